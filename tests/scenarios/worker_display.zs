# The worker screen opens empty, with the defaults of a new worker; a number typed and left shows the worker.
session company=00001 year=01 name="Empresa de prueba"
open Trabajadores
show all
type "11"
key Enter
show all
# A number that nobody has: an empty screen in which a new worker starts.
focus Text1(1)
key Home
type "99999"
key Enter
show Text1(1) Text1(2) Text1(92) Text1(101) Combo1(5) Grid1(0)[1,2]
key Esc

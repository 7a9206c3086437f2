# From worker to worker by buttons and by Alt with Home, End, Left and Right; the ends hold.
session company=00001 year=01
open Trabajadores
click Inicio
show Text1(1) Text1(2) Text1(92)
click Anterior
show Text1(1)
click Siguiente
show Text1(1) Text1(2)
key Alt+Right
show Text1(1)
key Alt+Left
show Text1(1)
key Alt+End
show Text1(1)
key Alt+Right
expect Text1(1) "00060"
key Alt+Home
expect Text1(1) "00001"
# The situaciones of a worker by their number; one that is not there gives the last.
focus Text1(1)
key Home
type "00013"
key Enter
show Text1(92) Text1(93) Text1(94)
focus Text1(92)
key Home
type "002"
key Enter
show Text1(92) Text1(93) Text1(94)
focus Text1(92)
key Home
type "050"
key Enter
show Text1(92) Text1(93)
click Salir

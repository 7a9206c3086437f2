# From the worker screen to the incidents and back, with the worker, and the situación, that stand there.
session company=00001 year=01
open Trabajadores
# Nobody chosen, nobody stored, no such situación.
click CmdIncidenciasIT
type "99\n"
click CmdIncidenciasESP
focus Text1(1)
key Home
type "00012\n"
# The number is there, the name is not; left as it is, nothing is looked for, and what is saved has no name.
click CmdIncidenciasIT
show all
key Enter
type "1\n050301\n100301\n"
key Enter
show all
click Salir
sql NOM00001.MDB "select * from TincidenciasIT where campo0 = '00012'"
# The number is handed over anew each time.
click CmdIncidenciasESP
show all
key Esc
# The variable concepts take the situación too, and the month that is typed sends both away.
click CmdIncidenciasVar
show all
type "03\n"
show all
key Esc
show Text1(1) Text1(92)
click Salir
# Opened by the host there is nobody.
open MIncidenciasVAR
show all
key Esc
open MIncidenciasESP
show all

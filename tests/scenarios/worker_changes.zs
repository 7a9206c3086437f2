# Changes, removals and what is dropped.
session company=00001 year=01
open Trabajadores

# A change is stored when it is saved, and not before.
type "13\nCorregido"
click Cancela
show Text1(1) Text1(2) Text1(101) Combo1(5)
type "13\nCorregido\n"
key Alt+G
sql Nom00001.MDB "SELECT Campo1, Campo19 FROM TrabajadoresFijo WHERE Campo0='00013'"
# A date of birth that was taken out is Null.
type "13\n"
focus Text1(20)
key Home
key Delete
key Delete
key Delete
key Delete
key Delete
key Delete
show Text1(20)
key Alt+G
sql Nom00001.MDB "SELECT Campo1, Campo19 FROM TrabajadoresFijo WHERE Campo0='00013'"

# The year of a birth is one of the hundred that end with the working year, and stays.
type "13\n"
focus Text1(20)
type "010225"
key Alt+G
type "13\n"
show Text1(20)
focus Text1(20)
key Alt+G
sql Nom00001.MDB "SELECT Campo19 FROM TrabajadoresFijo WHERE Campo0='00013'"

# Esc leaves while something required is missing, and saves when all is there.
type "13\nSegundo"
key Esc
sql Nom00001.MDB "SELECT Campo1 FROM TrabajadoresFijo WHERE Campo0='00013'"

# Situaciones are removed one by one, the last one never.
type "13\n"
show Text1(92)
key Alt+B
show Text1(92) Text1(94)
key Alt+B
focus Text1(1)
key Enter
show Text1(92)
focus Text1(92)
key Home
type "002\n"
show Text1(92) Text1(94)
key Alt+B
sql Nom00001.MDB "SELECT Campo1 FROM TrabajadoresVar WHERE Campo0='00013'"
focus Text1(1)
key Home
type "00001\n"
key Alt+B
show Text1(92)

# A worker is removed whole; his concepts stay.
key Alt+O
show Text1(1) Text1(92)
key Alt+O
sql Nom00001.MDB "SELECT Campo0 FROM TrabajadoresFijo WHERE Campo0='00001'"
sql Nom00001.MDB "SELECT Campo0 FROM TrabajadoresVar WHERE Campo0='00001'"
sql N0000101.MDB "SELECT Campo0, Campo3 FROM ConTrabajadorConceptos WHERE Campo1='00001' AND Campo0='01'"

key Alt+S

# A host without incidents has no buttons for them: a click does nothing.
session company=00001 year=01 program=05
open Trabajadores
click CmdIncidenciasIT
click CmdIncidenciasESP
click CmdIncidenciasVar
key Alt+S

# Situaciones: a new one takes over the concepts of the one before it, within the year and across years.
session company=00001 year=01
open Trabajadores

# The last one is open: no other may follow it.
type "13\n"
show Text1(92) Text1(94) Text1(95)
answer yes
click CmdNuevo
type "010601\n"
key Alt+G
show Text1(92) Text1(93) Text1(94) Text1(95)

# Leaving its number drops the question of copying, another worker drops it all. The stored one is closed.
focus Text1(92)
key Enter
key Alt+S
open Trabajadores
type "13\n"
focus Text1(95)
type "310501\n"
key Alt+G
show Text1(1)

# Now it may: May's concepts are June's. The other fields are those of the one shown.
type "13\n"
answer yes
click CmdNuevo
show Text1(92) Text1(93) Text1(95) Text1(101) Text1(111)
type "010601\n"
focus Text1(93)
type "Vuelta a jornada completa\n"
key Alt+G
sql N0000101.MDB "SELECT Campo0, Campo2, Campo3, Campo4, Campo19 FROM ConTrabajadorConceptos WHERE Campo1='00013' AND Campo2='005'"
sql N0000101.MDB "SELECT Campo0, Campo2, Campo3 FROM ConTrabajadorPagas WHERE Campo1='00013' AND Campo2='005'"
sql Nom00001.MDB "SELECT Campo1, Campo2, Campo3, Campo4 FROM TrabajadoresVar WHERE Campo0='00013'"

# Leaving the screen asks about one that is pending; a refused save does not hold the screen back.
type "13\n"
answer yes
click CmdNuevo
type "010201\n"
answer yes
key Alt+S
sql Nom00001.MDB "SELECT Campo1 FROM TrabajadoresVar WHERE Campo0='00013'"

# Without copying: the number is emptied too, and the focus stays.
open Trabajadores
type "13\n"
answer no
click CmdNuevo
show Text1(1) Text1(92) Text1(94) Text1(101)
key Alt+G
key Esc

# Across years. The old one ends in 2001, the new one begins in 2002: the rows go to the file of 2002.
open Trabajadores
type "1\n"
focus Text1(95)
type "311201\n"
key Alt+G
type "1\n"
answer yes
click CmdNuevo
type "010102\n"
key Alt+G
click Salir
sql N0000102.MDB "SELECT Campo0, Campo2, Campo3, Campo4, Campo19 FROM ConTrabajadorConceptos WHERE Campo1='00001' AND Campo2='002'"
sql N0000102.MDB "SELECT Campo0, Campo2, Campo3 FROM ConTrabajadorPagas WHERE Campo1='00001' AND Campo2='002'"
sql N0000101.MDB "SELECT Campo0 FROM ConTrabajadorConceptos WHERE Campo1='00001' AND Campo2='002'"

# The other way: working in 2002, from a situación that ended in 2001.
session company=00001 year=02
open Trabajadores
type "2\n"
focus Text1(95)
type "311201\n"
key Alt+G
type "2\n"
answer yes
click CmdNuevo
type "010102\n"
key Alt+G
click Salir
sql N0000102.MDB "SELECT Campo0, Campo2, Campo3, Campo4, Campo19 FROM ConTrabajadorConceptos WHERE Campo1='00002' AND Campo2='002'"
sql N0000102.MDB "SELECT Campo0, Campo2, Campo3 FROM ConTrabajadorPagas WHERE Campo1='00002' AND Campo2='002'"

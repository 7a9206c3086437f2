# A new worker from an empty screen to the stored rows, by Enter from field to field: family, account, contract, rate.
session company=00001 year=01
open Trabajadores

# Header and first page; a number that nobody has starts a new worker.
type "61\nPérez\nNúñez\nBegoña\n"
key Enter
type "12345678Z\n28\n1234567\n5\n"
pick 4
key F2
key Enter
type "Mayor\n12\nB\n2\nIzda\nAlcalá de Henares\nMadrid\n28801\n918881234\n150468\n"

# Family. The first digit of a year gives its row a grade, Enter at the end of a row goes down to the next one; Page Down
# goes down in any column.
key Enter
key Enter
type "2\n87654321X\n"
key Enter
type "1990\nS"
key Right
key Enter
key Left
type "19945\nn"
key Tab
type "02"
key PageDown
type "3"
key Right
type "1"
key Enter

# Income, and the bank account: its control digits are looked at, and put right.
type "3200000\n\n\n\n\n\n\n\n\n\n"
type "2100\n418\n99\n200051332\n"
key Shift+Tab
key Shift+Tab
key Home
type "45\n\n1\n"
show Text1(86) Text1(87) Text1(88) Text1(89) Text1(90) Text1(91)

# The situación. Start proposes entry, entry proposes seniority; codes tell what they stand for.
key Enter
key Enter
type "Contrato inicial\n010301\n\n\n\n\n\n37\n\n\n4\n\nDiseño\n113\n\n5\n"
show Text1(92) Text1(94) Text1(95) Text1(96) Text1(99) Text1(100) Text1(101) Text1(102) Text1(104) Text1(107) Text1(109)
key Enter
type "2\n8\n10301\n310801\n"
show Text1(110) Text1(111) Text1(112) Text1(113) Text1(114) Text1(115) Text1(116)
type "\n\n\n\n\n\n"
type "\n\n\n\n\n\n"
type "\n\n\n\n\n\n"

# The rate of what stands on the screen; there is no row yet that could take it.
answer yes
key Alt+R
show Text1(135)
key Tab
key Tab
type "3\n7\n"
show Text1(141) Text1(143)
key Enter
show all

# From a new worker the steps go to his neighbours.
key Alt+Left
show Text1(1)
key Alt+C

# Called up again, the rate is applied.
type "61\n"
show Text1(1) Text1(92)
answer yes
key Alt+R
show Text1(135)
# Another one typed over it is no change of somebody else's.
focus Text1(135)
key Home
key Shift+End
type "15\n"
key Alt+G
key Alt+S
sql Nom00001.MDB "SELECT * FROM TrabajadoresFijo WHERE Campo0='00061'"
sql Nom00001.MDB "SELECT * FROM TrabajadoresVar WHERE Campo0='00061'"

# What must be there before a worker is saved: each refusal brings up its field, and writes nothing.
session company=00001 year=01
open Trabajadores
key Alt+G
type "70\n"
key Alt+G
show Tab1
type "1Z"
key Alt+G
show Tab1 Tab2
type "010301"
focus Text1(96)
key Home
key Delete
key Delete
key Delete
key Delete
key Delete
key Delete
key Alt+G
type "010301"
focus Text1(101)
key Home
key Delete
key Delete
key Delete
key Delete
key Delete
key Delete
key Delete
key Alt+G
type "101"
key Alt+G
type "113"
key Alt+G
show Tab1 Tab2
type "2\n"
key Shift+Tab
key Alt+G
type "8"
key Alt+G
type "010301"

# The families' rows are filled or empty.
cell Grid1(0) 10 2
type "1999"
key Alt+G
show Tab1
cell Grid1(0) 10 3
type "xS"
key Delete
type "n"
key Enter
cell Grid1(0) 10 4
key Enter
cell Grid1(1) 4 3
type "1"
key Alt+G
cell Grid1(1) 4 2
type "07"
show Grid1(0)[10,2] Grid1(0)[10,3] Grid1(0)[10,4] Grid1(1)[4,2] Grid1(1)[4,3]
# A year that is taken out leaves its grade behind.
cell Grid1(0) 10 2
key Backspace
show Grid1(0)[10,2]
key Delete
key Alt+G
cell Grid1(0) 10 2
type "1998"
key Alt+G
show Tab1 Tab2
type "1"

# Dates of the contracts: one after the other, none open before another one, each later than the one before it.
focus Text1(117)
type "9\n"
focus Text1(121)
type "010901\n"
key Alt+G
focus Text1(116)
type "010301\n"
key Alt+G
show Tab1 Tab2
focus Text1(116)
key Home
type "310801\n"
focus Text1(122)
type "010901\n"
key Alt+G
focus Text1(122)
key Home
type "310102\n"
sql Nom00001.MDB "SELECT Campo0 FROM TrabajadoresFijo WHERE Campo0='00070'"
key Alt+G
sql Nom00001.MDB "SELECT Campo0, Campo5, Campo52, Campo53, Campo54, Campo61, Campo62 FROM TrabajadoresFijo WHERE Campo0='00070'"
sql Nom00001.MDB "SELECT Campo1, Campo3, Campo24, Campo25, Campo30, Campo31 FROM TrabajadoresVar WHERE Campo0='00070'"
key Alt+S

# Holidays and strikes: what this screen does as that of absences, and each of its differences.
session company=00001 year=01
open MIncidenciasESP

# Two types: every other key is refused, and one that was picked has a blank before it.
focus Combo1
type "3"
show Combo1 Text2
type "2"
show Combo1 Text2
pick "Vacaciones"
key F2
show Combo1 Text2
click Cancela

# What is missing is said in other words.
type "12\n"
click Grabar
click Cancela

# A new one, left open; the number of the worker brings it back for its end.
type "12\n1\n070701\n"
key Alt+G
type "12\n"
show all
type "200701\n"
key Alt+G
sql NOM00001.MDB "select * from TincidenciasESP where campo0 = '00012'"

# An open one is no trouble in the list of starts, and is one when its start is typed: the absences do the opposite.
type "12\n2\n090901\n"
key Alt+G
type "12\n"
focus Text1(4)
pick "09/09/01"
key F2
show all
click Cancela
type "12\n"
focus Combo1
type "2\n"
key Home
type "090901\n"
show Combo1 Text1(4) Text1(5)
click Cancela

# Closed, by its start, in the form of a date.
type "12\n"
focus Combo1
type "1\n"
type "070701\n"
show Text1(4) Text1(5)
click Cancela

# What falls into an absence of a worker with rows in both tables is refused in the same words.
type "44\n1\n121001\n141001\n"
key Esc
show Text1(4)
click Cancela

# The listing is offered even when the table is empty; nothing is stored without a type but the worker and the start.
type "41\n\n010101\n"
key Esc
sql NOM00001.MDB "select * from TincidenciasESP where campo0 = '00041'"
type "41\n"
key Alt+O
show all
key Alt+S

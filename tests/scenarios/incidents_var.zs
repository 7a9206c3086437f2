# A month of variable concepts: the month stays, situación and amount are proposed, a key that has a row shows it.
session company=00001 year=01
open MIncidenciasVAR

# The month, a worker with his situación, a concept with its amount, and the units; Enter goes on to Grabar.
type "02\n"
show Text1(1)
type "12\n"
show Text1(3) Text1(4)
key Enter
type "4\n"
show Text1(5) Text1(6) Text1(7)
type "10\n"
key Enter
show all
# The next one of that month.
key Enter
type "14\n"
show Text1(4)
key Enter
type "5\n"
type "3\n"
key Enter
sql N0000101.MDB "select * from TIncidenciasVar where campo0 = '02' and campo1 < '00015'"

# The same key again brings the row; another amount replaces it.
key Enter
type "12\n\n4\n"
show all
key Home
key Shift+End
type "900\n"
key Enter
key Enter
sql N0000101.MDB "select * from TIncidenciasVar where campo0 = '02' and campo1 < '00015'"

# A month: after 1 only 0 to 2, after another digit nothing, not even back.
key Home
key Shift+End
key Delete
type "13"
show Text1(1)
type "2"
show Text1(1)
key Home
key Shift+End
key Delete
type "51"
key Backspace
show Text1(1)
key Tab
show Text1(1)

# The lists. That of workers proposes the situación with the highest number, leaving the field the one begun last.
focus Text1(2)
pick "Zúñiga"
key F2
show Text1(2) Text1(3) Text1(4)
key Enter
focus Text1(4)
pick 1
key F2
show Text1(4)
focus Text1(5)
pick "Dietas"
key F2
show Text1(5) Text1(6)
key Enter
show Text1(7)
# Leaving the units goes to Grabar, whatever was clicked.
click Cancela
click Cancela
show all

# Through the table, and removing.
key Alt+Home
show all
key Alt+Right
show Text1(1) Text1(2)
key Alt+End
show Text1(1) Text1(2)
focus Text1(1)
key Home
key Shift+End
type "02\n"
type "14\n\n5\n"
key Alt+O
sql N0000101.MDB "select * from TIncidenciasVar where campo0 = '02' and campo1 < '00015'"
show all

# What is missing, in the order in which it is looked at.
click Grabar
type "99\n"
type "14\n"
click Grabar
type "02\n"
type "14\n"
# A situación and a concept that are not his: the field is emptied and keeps the focus until it is left again.
key Home
key Shift+End
key Delete
type "7\n"
show Text1(4)
key Enter
key Enter
click Grabar
key Home
type "1\n"
type "9\n"
show Text1(5)
key Enter
key Esc
# A month that is none can be typed, not saved.
focus Text1(1)
key Home
key Shift+End
key Delete
type "00\n"
show Text1(1)
type "14\n"
key Esc

# The clerk's work with absences: a new one, closing an open one, calling one up by its start, by the list, by walking.
session company=00001 year=01
open MIncidencias

# A new one by keyboard alone: Enter from field to field, and after the end to Grabar.
type "12\n"
show Text1(1) Text1(2)
type "1"
show Combo1 Text2
key Enter
type "050501\n"
type "100501\n"
show Text1(4) Text1(5)
key Enter
show all

# It is called up by type and start, where the day and the month can be taken for each other.
type "12\n1\n050501\n"
show Text1(4) Text1(5)
# Its other end goes into its own row.
key Home
type "120501\n"
key Esc
sql NOM00001.MDB "select * from TincidenciasIT where campo0 = '00012'"

# Left open, it is shown by the number of the worker alone, with the focus on the end.
type "12\n3\n110601\n"
key Alt+G
type "12\n"
show all
type "200601\n"
key Alt+G
sql NOM00001.MDB "select * from TincidenciasIT where campo0 = '00012'"

# The lists: worker, type and starts.
pick "Teresa"
key F2
show all
click Cancela
pick 5
click Image1(0)
show Combo1 Text2
focus Text1(1)
type "12\n"
focus Text1(4)
pick "11/06/01"
key F2
show all
focus Text1(1)
show Text1(4)

# Through the whole table; the ends hold.
key Alt+Home
show Text1(1) Text1(4)
key Alt+Left
show Text1(1) Text1(4)
key Alt+Right
show Text1(1) Text1(4)
click Fin
show Text1(1) Text1(4)
key Alt+Right
expect Text1(1) "00054"
click Anterior
show Text1(1) Text1(2) Combo1 Text2 Text1(4) Text1(5)

# Removing asks nothing.
click Cancela
type "12\n"
focus Text1(4)
pick "11/06/01"
key F2
click Borrar
sql NOM00001.MDB "select * from TincidenciasIT where campo0 = '00012'"
show all
key Alt+S

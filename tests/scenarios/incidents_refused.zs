# What the screen of absences refuses, and what its rule does not see.
session company=00001 year=01
open MIncidencias

# Nothing missing may be saved; the first thing that is missing is said.
click Grabar
type "12\n"
click Grabar
click Cancela
# Nobody has that number: everything is emptied and the focus stays.
type "99\n"
show all
# Dates: none, none that exists, an end before its start; the same day passes.
type "12\n1\n"
type "999999\n"
type "290201\n"
show Text1(4)
focus Text1(4)
type "150601\n"
type "140601\n"
show Text1(5)
type "150601\n"
show Text1(5)
click Cancela

# A type is one of its digits.
focus Combo1
type "x"
show Combo1 Text2
type "4"
show Combo1 Text2
key F2
show Combo1 Text2
click Cancela

# The worker has rows here and in the other table (holidays from 02/08/01 to 25/08/01): all that both tables hold is
# compared, first and last days too, and his own row with itself.
type "44\n1\n"
type "010801\n"
type "020801\n"
key Esc
click Cancela
type "44\n1\n010801\n260801\n"
key Esc
click Cancela
type "44\n1\n250801\n"
key Esc
click Cancela
type "44\n1\n260801\n270801\n"
key Esc
sql NOM00001.MDB "select * from TincidenciasIT where campo0 = '00044'"
type "44\n"
focus Text1(4)
pick "26/08/01"
key F2
key Alt+G
click Cancela

# An open one is between nothing: others within it pass, and a second open one.
type "44\n1\n050901\n"
key Alt+G
type "44\n"
show Text1(4)
click Cancela
type "44\n"
focus Text1(4)
key Home
type "150901\n"
focus Text1(5)
key Alt+G
sql NOM00001.MDB "select * from TincidenciasIT where campo0 = '00044'"
click Cancela

# Without a row in the other table nothing is compared.
type "12\n1\n010101\n311201\n"
key Alt+G
type "12\n2\n010201\n020201\n"
key Alt+G
sql NOM00001.MDB "select * from TincidenciasIT where campo0 = '00012'"

# The start of an open one in the list: its Null is shown as what it is.
type "44\n"
focus Text1(4)
pick "05/09/01"
key F2
show all
click Cancela
# Nothing to remove: of another day, or of no day at all.
type "12\n1\n020302\n"
key Alt+O
click Cancela
type "12\n"
key Alt+O
# A start that stands there already is told before it is replaced.
key Alt+C
type "12\n2\n010101\n"

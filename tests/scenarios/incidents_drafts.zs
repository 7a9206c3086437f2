# An incident that was typed and not saved comes back whole, wherever it came from.
drafts keep
session company=00001 year=01
open MIncidencias

# One that was called up by walking: its worker alone would not bring it back.
key Alt+Home
key Alt+Right
focus Text1(5)
key Home
type "221000"
click Cancela
key Ctrl+Z
show Combo1 Text2 Text1(1) Text1(2) Text1(4) Text1(5)
click Cancela

# A new one, left by closing the screen, and another one of the same worker that is saved meanwhile.
type "12\n2\n060601\n"
click Salir
open MIncidencias
type "12\n3\n070701\n080701\n"
key Alt+G
drafts list
drafts restore 1
show Combo1 Text2 Text1(1) Text1(2) Text1(4) Text1(5)
key Alt+G
drafts list
sql NOM00001.MDB "select * from TincidenciasIT where campo0 = '00012'"
click Salir

# An entry of a month, which its key brings back.
open MIncidenciasVAR
type "02\n12\n\n4\n"
type "17"
click Salir
click Salir
open MIncidenciasVAR
key Ctrl+Z
show Text1(1) Text1(2) Text1(4) Text1(5) Text1(7) Text1(8)

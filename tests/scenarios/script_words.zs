# Words, texts and keys as a script may write them, and the values of controls.
	session company=1 year=01 name="A \"b\"" exchange=166,386 date=15/03/01 # a comment
open Trabajadores
type "3\n"# another
focus Text1(2)
key Home
key shift+End
type "# \\ \"ñ\" \\n"
key Space
key +
key Ctrl+Shift+Left
key Delete
show Text1(2) Grabar Grid1(0)[1,2] Combo1(5) Tab1
expect Text1(2) "# \\ \"ñ\" \\n "
choose Combo1(5) "2"
expect Combo1(5) "2"
check Check1(144) 1
check Check1(144) 0
check Check1(144) 0
expect Check1(144) "0"
cell Grid1(0) 1 2
expect Grid1(0) ""
expect Grid1(0)[1,1] "Hijo 1"
sql nom00001.mdb "SELECT Campo0, Campo90 FROM TrabajadoresFijo WHERE Campo0 = '00003'"
expect Text1(2) "no"

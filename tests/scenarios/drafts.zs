# What was typed and not saved comes back.
drafts keep
session company=00001 year=01
open Trabajadores

# Walking through all fields of a worker changes nothing; a typed letter does.
type "13\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n"
key Alt+End
drafts list

# Emptied: Ctrl+Z puts it back, unsaved.
focus Text1(1)
key Home
type "00013\n"
key End
type "Uno"
focus Text1(20)
key End
key Backspace
key Backspace
type "65\n"
cell Grid1(0) 1 2
type "1999\nN"
choose Combo1(23) "2"
check Check1(81) 1
focus Text1(20)
click Cancela
drafts list
key Ctrl+Z
show Text1(1) Text1(2) Text1(20) Grid1(0)[1,2] Grid1(0)[1,3] Grid1(0)[1,4] Combo1(23) Check1(81) Text1(92)
drafts list

# The next worker, and back: it is offered, and taken. While something is unsaved Ctrl+Z takes nothing.
click Siguiente
show Text1(2)
click Anterior
show Text1(2)
key Ctrl+Z
show Text1(2) Text1(20) Grid1(0)[1,2]
key Ctrl+Z
# Saved, it is no draft any more.
focus Text1(3)
click Grabar
sql Nom00001.MDB "SELECT Campo1, Campo19, Campo22, Campo80 FROM TrabajadoresFijo WHERE Campo0='00013'"
drafts list

# The field's own undo comes first, and what code puts into a field has none.
type "13\n"
focus Text1(3)
key Home
type "abc"
key Backspace
key Ctrl+Z
show Text1(3)
key Ctrl+Z
show Text1(3)
key Ctrl+Y
show Text1(3)
key Ctrl+Z
key Ctrl+Z
drafts list

# Another number over it keeps the old one's draft under the old number.
type "Dos"
focus Text1(1)
key Home
type "00002\n"
drafts list
show Text1(1) Text1(3)
key Ctrl+Z
show Text1(1) Text1(3)

# Another situación keeps what was typed for the worker on the screen, and a draft of the rest.
focus Text1(105)
key Home
type "Jefe"
focus Text1(92)
key Home
type "001\n"
show Text1(92) Text1(3) Text1(105)
drafts list
drafts restore 1
show Text1(92) Text1(3) Text1(105)
click Grabar
drafts list

# A new situación that waits for saving.
type "13\n"
answer yes
key Alt+N
type "010102\n"
click Cancela
drafts list
key Ctrl+Z
show Text1(1) Text1(92) Text1(94) Text1(95) Text1(101)
click Cancela

# A new worker. A save that is refused keeps all of it.
type "900\nPeña\nGüell\nBegoña"
click Grabar
click Cancela
key Ctrl+Z
show Text1(1) Text1(2) Text1(3) Text1(4)
# Typed back to nothing there is no draft.
key Home
key Shift+End
key Delete
focus Text1(2)
key Home
key Shift+End
key Delete
focus Text1(3)
key Home
key Shift+End
key Delete
focus Text1(4)
key Home
key Shift+End
key Delete
drafts list

# A situación that was removed does not come back, and its draft stays.
focus Text1(1)
key Home
type "00013\n"
focus Text1(105)
key Home
type "Otro"
click CmdBorrar
drafts list
drafts restore 1
drafts list
click Cancela

# Leaving the screen keeps it too; the next screen offers it.
focus Text1(1)
key Home
type "00003\n"
key Home
type "Tres"
click Salir
open Trabajadores
key Ctrl+Z
show Text1(1) Text1(2)
click Cancela

# Figures of a regularisation belong to the worker for whom the frame was opened. Opening it changes nothing.
type "15\n"
key Alt+Z
key Alt+Right
key Alt+Left
key Alt+Z
type "3300000\n"
focus Text2(5)
key End
type "9"
key Alt+Right
show Text2(1)
key Alt+Left
key Ctrl+Z
show Text2(3) Text2(5)
# A rate that is refused closes the frame, and saving the worker stores no figures: they are still there.
key Alt+P
key Ctrl+Z
focus CalcularRegula
focus Text1(3)
type "Uno"
click Grabar
type "15\n"
key Ctrl+Z
show Text1(3) Text2(5)
answer yes
key Alt+P
click Cancela
type "15\n"
click Cancela

# The copy of concepts that was asked for is made after the screen was closed.
type "14\n"
answer yes
key Alt+N
type "010701\n"
answer no
click Salir
open Trabajadores
key Ctrl+Z
click Grabar
sql N0000101.MDB "SELECT Count(*) FROM ConTrabajadorConceptos WHERE Campo1='00014' AND Campo2='002'"
click Salir

# What is in another company or year is listed and stays there.
session company=00001 year=02 name="Talleres Sur"
open Trabajadores
drafts list
drafts restore 2
show Text1(1)

# Enter and the arrows walk the fields; typing goes over the text while Insert is off.
session company=00001 year=01
open Trabajadores
key Enter
key Down
key Up
key Shift+Tab
type "00005"
# The characters of the arrows' codes move too.
type "("
type "&"
key Down
show Text1(2)

# Over the text from its start, then with Insert on between the letters.
key Home
type "ETX"
show Text1(2)
key Home
key Insert
type "An"
show Text1(2)
key Delete
key End
key Backspace
show Text1(2)
key Insert

# Backspace takes what stands before the caret, with Insert off too.
key Home
key Right
key Backspace
show Text1(2)

# No more than the field holds.
focus Text1(12)
key Home
type "123456"
show Text1(12)

# Amounts stand on the right and take figures: a point is a comma, one comma, a minus only in front.
focus Text1(79)
type "1a2.5,0-"
show Text1(79)
focus Text1(80)
type "-1-2"
show Text1(80)

# The labels of the rows are passed over, and nothing empties them.
cell Grid1(0) 3 1
key Delete
show Grid1(0)[3,1]

# What is only shown takes no typing and is no stop; the way goes on from there. After the last field comes Grabar, then
# the other buttons, those that leave the record last.
focus Text1(112)
type "x"
key Delete
show Text1(112)
key Up
focus Text1(141)
key Enter
key Enter
key Down
key Down
key Down
key Down
key Down
key Down
key Down
key Down
key Down
key Down
key Down
key Down
key Down
key Down
key Down

# Tab stops at the buttons of a page after its fields; Enter goes from field to field.
focus Check1(144)
key Enter
key Shift+Tab
key Shift+Tab
key Shift+Tab

# Help and calculator.
key F1
click Calculadora
click Siguiente
show Text1(1)
click Salir

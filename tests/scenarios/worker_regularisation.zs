# The rate in mid-year, from the history.
session company=00001 year=01
open Trabajadores
type "15\n"
show Text1(76) Text1(82) Text1(83) Text1(135)
focus Text1(135)
key Alt+Z
show Text2(1) Text2(2) Text2(3) Text2(4) Text2(5)

# Answered No, nothing is written.
key Alt+P
show Text1(76) Text1(135) Text2(4)
sql Nom00001.MDB "SELECT Campo75, Campo81, Campo82 FROM TrabajadoresFijo WHERE Campo0='00015'"

# Six months in pesetas: 1.400.000 paid, 252.000 withheld, the year will be 3.300.000.
key Alt+Z
key Home
type "3300000\n"
key Enter
key Enter
type "1400000\n"
type "252000"
key Enter
show Text2(1) Text2(4) Text2(5)
answer yes
key Enter
show Text1(76) Text1(77) Text1(78) Text1(82) Text1(83) Text1(135)
sql Nom00001.MDB "SELECT Campo75, Campo76, Campo77, Campo81, Campo82 FROM TrabajadoresFijo WHERE Campo0='00015'"
sql Nom00001.MDB "SELECT Campo44 FROM TrabajadoresVar WHERE Campo0='00015'"

# A situación that is not stored gets no rate, nor does the one before it. Another worker closes the frame.
answer yes
click CmdNuevo
focus Text1(135)
key Alt+Z
answer yes
key Alt+P
focus Text1(92)
key Enter
key Alt+Z
show Text2(4)
key Alt+Right
show Text1(1) Text2(4)
key Alt+Left
sql Nom00001.MDB "SELECT Campo44 FROM TrabajadoresVar WHERE Campo0='00015'"

# Born in 1925, not in 2025: the minimum of those over 65.
focus Text1(20)
key Home
key Shift+End
type "050325"
click CmdCalcular

# On an emptied screen nobody gets the figures.
click Cancela
focus Text1(135)
key Alt+Z
answer yes
key Alt+P
sql Nom00001.MDB "SELECT Campo75, Campo81 FROM TrabajadoresFijo WHERE Campo0='00015'"
key Alt+S

# The table of a worker's situaciones: shows one by its row, through the rules of the field with its number.
session company=00001 year=01
open Trabajadores

# Nothing to choose without a worker.
focus Situaciones
type "13\n"
show Situaciones
expect Situaciones "004"

# Enter, a click on the row that is the current one. Arrows go from row to row, and at the ends to the next stop.
cell Situaciones 2 1
key Enter
show Text1(92) Text1(93) Text1(94) Text1(95) Situaciones[2,0]
key Up
key Enter
show Text1(92)
key Up
focus Situaciones
key Down
key Down
click Situaciones
show Text1(92) Text1(93)

# Filling in the fields passes it by; Tab does not.
focus Text1(109)
key Enter
focus Text1(109)
key Tab
key Shift+Tab

# A new one is not in it before it is saved; the one that is shown leaves it when it is removed.
answer yes
click CmdNuevo
show Situaciones[4,0]
focus Situaciones
cell Situaciones 3 0
key Enter
show Text1(92)
click CmdBorrar
show Situaciones

# Saving empties it with the screen.
cell Situaciones 1 0
key Enter
key Alt+G
show Situaciones
click Salir

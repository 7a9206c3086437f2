# A worker found among all by Ctrl+F, a new one begun by Ctrl+N.
session company=00001 year=01
open Trabajadores

# Nobody was shown yet: the rows are all workers by number. What is chosen is shown as if its number had been typed.
pick "00013"
key Ctrl+F
show Text1(1) Text1(2) Text1(3) Text1(92)

# From any field, also one that has a list of its own; closed without a choice, all stays.
focus Text1(140)
pick none
key Ctrl+F
show Text1(1) Text1(2)

# Who was shown stands first, the last one before the others.
pick "00027"
key Ctrl+F
pick 2
key Ctrl+F
show Text1(1)
pick 1
key Ctrl+F
show Text1(1)

# A field that keeps the focus keeps the worker.
focus Text1(129)
type "XYZ"
pick "00040"
key Ctrl+F
show Text1(1) Text1(129)
key Home
key Delete
key Delete
key Delete

# The next free number, and the focus where the new worker goes on.
key Ctrl+N
show Text1(1) Text1(2) Text1(92)
click Salir

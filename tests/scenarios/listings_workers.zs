# The listing of workers: both kinds, the orders, ranges of centres and sections, and what it refuses.
session company=00001 year=01
open Trabajadores
click Pendientes
show all
focus Text1(0)
key Home
key Shift+End
type "3"
key Enter
show Text1(0) Text1(1)
type "\n"
focus Text1(2)
key Home
key Shift+End
type "3"
click Impresora

# By sections, then by number; situaciones, of which number and name stand on the first line of a worker.
check Option1(5) 1
check Option1(7) 1
check Option1(1) 1
focus Text1(4)
pick "Dirección"
key F2
show Text1(4) Text1(5)
focus Text1(6)
pick none
key F2
key Home
key Shift+End
type "2\n"
show Text1(6) Text1(7)
click Impresora

# With their end of employment from today on: nobody, as those without an end do not count. Fixed data do not ask.
check Option1(3) 1
click Impresora
check Option1(0) 1
click Impresora

# The last one before the first; a code that does not exist has no name and is a limit all the same.
focus Text1(0)
key Home
key Shift+End
type "9\n"
show Text1(0) Text1(1)
click Impresora
show Text1(0)
focus Text1(4)
key Home
key Shift+End
type "8\n"
focus Text1(0)
key Home
key Shift+End
type "2\n"
click Impresora

# Figures alone, without commas; an emptied range is filled when the listing is asked for.
focus Text1(2)
key Home
key Shift+End
key Delete
type "a,.4\n"
show Text1(2)
focus Text1(2)
key Home
key Shift+End
key Delete
focus Text1(0)
key Home
key Shift+End
key Delete
focus Text1(4)
key Home
key Shift+End
type "6"
focus Text1(6)
key Home
key Shift+End
type "7"
click Impresora
show Text1(0) Text1(2) Text1(4) Text1(6)
key F1
key Esc

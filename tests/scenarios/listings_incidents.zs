# The listings of incidents, asked for from each of their screens.
session company=00001 year=01 name="Empresa de prueba"

# Absences: empty fields take the first and the last worker, by Enter or by leaving; the number is made whole when it is
# found.
open MIncidencias
click Pendientes
show all
key Enter
show Text1(1) Text1(2)
type "44\n"
show Text1(3) Text1(4)
click Impresora

# A worker without incidents; a range turned round lists nothing, and prints all the same.
focus Text1(1)
key Home
key Shift+End
key Delete
type "12\n"
show Text1(1) Text1(2)
type "54"
focus Text1(3)
key Home
key Shift+End
key Delete
type "19"
click Impresora

# A list: what is chosen, and what is left without a choice, which is the first or the last worker again.
focus Text1(1)
pick "Ulloa"
key F2
show Text1(1) Text1(2)
pick none
key F2
show Text1(3) Text1(4)
click Salir
# Up from the first field goes to the kind of paper, which changes nothing.
click Pendientes
key Up
check Papel(0) 1
key Esc
key Esc

# Holidays and strikes.
open MIncidenciasESP
click Pendientes
type "28\n29\n"
click Impresora
focus Text1(1)
key Home
key Shift+End
key Delete
type "1\n"
key Esc
key Esc

# Variable concepts of a month: the last one with rows, a month without any, workers who need not have rows.
open MIncidenciasVAR
click Pendientes
show all
key Enter
show Text1(1) Text1(2)
focus Text1(1)
key Home
key Shift+End
key Delete
type "13\n"
show Text1(1) Text1(2)
pick "Abril"
click Image1(1)
show Text1(1) Text1(2)
key Enter
type "7\n"
key Enter
show all
click Impresora
focus Text1(3)
key Home
key Shift+End
key Delete
type "8\n"
show Text1(3) Text1(4)
pick "Muñoz"
key F2
show Text1(3) Text1(4)
click Impresora
key Esc
key Esc

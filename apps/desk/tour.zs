# A walk through the worker screen, for pictures of every page where there is no display.
session company=00001 year=01 name="Empresa de prueba"
open Trabajadores

# A worker by number: Enter leaves the field and shows the worker.
type "00012"
key Enter
page Tab1 1
page Tab1 2
page Tab1 3
page Tab1 4
page Tab2 1
page Tab2 2
page Tab2 3
page Tab2 4

# Looking codes up: the workers with F2, a street with the image beside the field.
focus Text1(1)
pick "Óscar"
key F2
pick none
key Ctrl+F
pick none
click Image1(10)
page Tab1 1
pick none
click Image1(23)

# The rate, with its calculation behind the question, and a regularisation from the history; neither is applied.
focus Text1(1)
key Home
type "00015\n"
page Tab1 4
page Tab2 3
click CmdCalcular
click Regulariza
click CalcularRegula

# A number that nobody has: saving says what is missing, and writes nothing.
focus Text1(1)
key Home
type "99999\n"
click Grabar
click Cancela

# The first worker, help on the screen, and out.
key Alt+Home
key F1
page Tab1 0
click Salir

# The incidents of a worker with his calendar, and what the rule says of dates that meet others.
open MIncidencias
type "44\n1\n"
type "050801\n100801\n"
click Grabar
click Cancela
click Pendientes
key Enter
key Enter
click Impresora
key Esc
key Esc
open MIncidenciasVAR
type "02\n12\n\n4\n"
click Salir
click Salir
open Trabajadores
click Pendientes
click Impresora

# The worker screen, page by page, and what opens above it.
session company=00001 year=01 name="Compañía de Demostración, S.A."
open Trabajadores
type "00001\n"
page Tab1 0
page Tab1 1
page Tab1 2
page Tab1 3
focus Text1(1)
pick none
key F2
pick none
key Ctrl+F
page Tab1 1
pick none
click Image1(23)
page Tab1 4
page Tab2 3
click CmdCalcular
key F1

# A worker with several situaciones and a chain of contracts.
focus Text1(1)
key Home
type "00013\n"
page Tab1 4
page Tab2 0
page Tab2 1
page Tab2 2
page Tab2 3
page Tab2 4

# The new worker of the help's first steps: from the number to the saved record by Enter alone, with F2 for codes.
session company=00001 year=01
open Trabajadores

type "900\nMonte\nLlano\nAna\n\n12345678Z\n"
type "\n\n\n\n\n\n\n\n\n\n\n\n\n150468\n"

# Family situation; no children, no ascendants.
type "\n\n3\n\n\n\n\n\n1800000\n"
type "\n\n\n\n\n\n\n\n\n"
type "\n\n\n\n\n\n"

# The situación: its number and the agreement are there; the start proposes entry and seniority.
type "\n\n010301\n\n\n\n\n\n\n\n\n\n\n\n"
pick "oficina"
key F2
type "\n\n\n\n"
pick "Indefinido ordinario"
key F2
type "\n\n\n\n\n\n\n\n\n\n"
type "\n\n\n\n\n\n\n\n\n\n\n\n"
pick 1
key F2
type "\n\n"
key Enter
expect Text1(1) ""
click Salir
sql Nom00001.MDB "SELECT Campo0, Campo1, Campo3, Campo14, Campo48 FROM TrabajadoresVar WHERE Campo0 = '00900'"
sql Nom00001.MDB "SELECT Campo1, Campo2, Campo3, Campo22, Campo75 FROM TrabajadoresFijo WHERE Campo0 = '00900'"

# The intervals of a worker's situaciones may not overlap; bounds count. Worker 13 has 001 from 02/03/98 to 30/06/99, 002 to
# 31/12/00, 003 to 30/04/01, and 004 from 01/05/01, which is open.
session company=00001 year=01
open Trabajadores
type "13\n"
focus Text1(92)
key Home
type "002\n"
show Text1(92) Text1(94) Text1(95)

# Start within a closed one, and on its last day.
focus Text1(94)
key Home
type "010699\n"
key Alt+G
key Home
type "300699\n"
key Alt+G

# End within a closed one, and on its first day.
key Home
type "010799\n"
focus Text1(95)
key Home
type "010101\n"
key Alt+G

# Around a closed one.
focus Text1(94)
key Home
type "010198\n"
key Alt+G
focus Text1(94)
key Home
type "010799\n"
focus Text1(95)
key Home
type "300401\n"
key Alt+G

# After the start of the open one; ending after it.
focus Text1(94)
key Home
type "010601\n"
key Home
type "300601\n"
key Alt+G
focus Text1(94)
key Home
type "010799\n"
focus Text1(95)
key Home
type "010501\n"
key Alt+G

# The same start as another one is not looked at, nor is an open one that begins before closed ones.
focus Text1(94)
key Home
type "020398\n"
focus Text1(95)
key Home
type "311200\n"
key Alt+G
sql Nom00001.MDB "SELECT Campo1, Campo3, Campo4 FROM TrabajadoresVar WHERE Campo0='00013'"
key Alt+S

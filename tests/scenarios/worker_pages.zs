# Pages follow the focus, and the focus follows the pages.
session company=00001 year=01
open Trabajadores
show Tab1 Tab2
page Tab1 1
page Tab1 2
page Tab1 3
page Tab1 4
page Tab2 1
page Tab2 2
page Tab2 3
page Tab2 4
page Tab2 0
page Tab1 0

# Tabbing over the last field of a page enters the next one.
focus Text1(20)
key Tab
show Tab1
focus Text1(91)
show Tab1
key Tab
show Tab1 Tab2
focus Text1(109)
key Tab
show Tab2
focus Text1(116)
show Tab2
focus Text1(134)
key Tab
show Tab2
focus Check1(139)
show Tab2
focus Text1(140)
show Tab2

# The page keys turn all pages in turn, inner and outer ones, and around.
page Tab1 3
key Ctrl+PageDown
key Ctrl+PageDown
key Ctrl+PageDown
key Ctrl+PageDown
key Ctrl+PageDown
key Ctrl+PageDown
show Tab1
key Ctrl+PageUp
show Tab1 Tab2
key Ctrl+PageUp
page Tab2 0
key Ctrl+PageUp
show Tab1
# From the header it is the page in front that they turn.
focus Text1(1)
key Ctrl+PageDown
show Tab2

# And back over the first one.
focus Text1(76)
key Shift+Tab
show Tab1
click Salir

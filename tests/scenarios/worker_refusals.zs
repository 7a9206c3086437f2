# Values that a field refuses when it is left: the message, where the focus goes and what stays.
session company=00001 year=01
open Trabajadores
type "13\n"

# No day at all goes back to the field; no day of the calendar is emptied and the way goes on.
focus Text1(20)
key Home
type "999999\n"
show Text1(20)
type "290201\n"
show Text1(20)
focus Text1(20)
type "40360\n"
show Text1(20)
focus Text1(20)
key Home
type "050360\n"
show Text1(20)

# Account: only a warning.
focus Text1(86)
key Home
type "9999"
focus Text1(89)
key Enter
show Text1(86)

# Payment form, agreement, category, epigraph, centre, section: codes that no table has.
focus Text1(90)
key Home
type "99\n"
show Text1(90) Text1(91)
focus Text1(101)
key Home
type "0009999\n"
show Text1(101) Text1(102)
focus Text1(103)
key Enter
show Text1(103) Text1(104)
focus Text1(101)
key Home
type "0000101\n"
focus Text1(103)
key Home
type "99\n"
show Text1(102) Text1(103) Text1(104)
focus Text1(106)
key Home
type "999\n"
show Text1(106) Text1(107)
focus Text1(140)
key Home
type "999\n"
show Text1(140) Text1(141)
focus Text1(142)
key Home
type "999\n"
show Text1(142) Text1(143)
# An emptied code empties what it stood for.
focus Text1(142)
key Home
key Delete
key Delete
key Delete
key Enter
show Text1(142) Text1(143)

# Tariff group.
focus Text1(108)
key Home
type "12\n"
show Text1(108) Text1(109)
focus Text1(108)
key Home
type "07\n"
show Text1(108) Text1(109)

# End of the situación before its start, and without one; leaving proposes the end of the first bonus.
focus Text1(95)
type "300401\n"
show Text1(95)
key Home
type "310501\n"
show Text1(95)
focus Text1(94)
key Home
key Delete
key Delete
key Delete
key Delete
key Delete
key Delete
focus Text1(95)
key Enter
show Text1(94) Text1(95)
type "010501\n"
focus Text1(97)
type "311201\n"
show Text1(95) Text1(97) Text1(116)
# A date that stands there stays.
focus Text1(95)
key Home
type "150901\n"
focus Text1(97)
key Enter
show Text1(95)

# Contracts: a type that the number does not have; the first one emptied takes its block with it, and no second one
# comes before it.
focus Text1(117)
key Home
type "01\n"
show Text1(117) Text1(118) Text1(119) Text1(120) Text1(122)
focus Text1(111)
key Home
key Delete
key Delete
key Enter
show Text1(111) Text1(112) Text1(113) Text1(114) Text1(115) Text1(116)
focus Text1(121)
key Enter
show Text1(121)
focus Text1(117)
key Enter
show Text1(117) Text1(118) Text1(122)

# Days by number or letters; hours and percentages up to their limit.
focus Text1(129)
type "lmxjv\n"
show Text1(129)
focus Text1(129)
key Home
type "lunes\n"
show Text1(129)
key Home
type "31   \n"
key Home
type "30\n"
show Text1(129)
focus Text1(130)
type "25\n"
show Text1(130)
type "24\n"
focus Text1(131)
type "100,5\n"
show Text1(131)
type "100\n"
show Text1(130) Text1(131)
focus Text1(133)
type "12\n8\n"
show Text1(133) Text1(134)
focus Text1(136)
type "101\n"
show Text1(136)

# Situaciones that are not there.
focus Text1(92)
key Home
type "77\n"
show Text1(92) Text1(94)
key Alt+S

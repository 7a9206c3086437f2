# Every look-up list, by its image or by F2, and what is taken from the row.
session company=00001 year=01
open Trabajadores

# A worker from the list is shown at once.
pick "00013"
click Image1(1)
show Text1(1) Text1(2) Text1(92)

# Closed without a choice: all stays.
pick none
click Image1(1)
show Text1(1) Text1(2)

# Tables.
pick 1
click Image1(10)
show Text1(10)
pick 1
focus Text1(90)
key F2
show Text1(90) Text1(91)
pick 2
focus Text1(92)
key F2
show Text1(92) Text1(93) Text1(94)
pick 1
focus Text1(101)
key F2
show Text1(101) Text1(102)
pick 1
focus Text1(103)
key F2
show Text1(103) Text1(104)
pick 1
click Image1(106)
show Text1(106) Text1(107)
pick 1
click Image1(110)
show Text1(110) Text1(111) Text1(112) Text1(113) Text1(114)
pick 1
click Image1(111)
show Text1(111) Text1(112) Text1(113) Text1(114)
pick 2
click Image1(117)
show Text1(117) Text1(118)
pick 1
click Image1(123)
show Text1(123) Text1(124)
pick 1
click Image1(140)
show Text1(140) Text1(141)
pick 1
click Image1(142)
show Text1(142) Text1(143)

# Fixed codes.
pick 6
click Image1(5)
show Combo1(5) lbDescripcion
pick "Pensionista"
click Image1(21)
pick "Inferior"
click Image1(22)
pick 1
click Image1(23)
pick 4
focus Combo1(25)
key F2
pick 11
click Image1(108)
show Combo1(21) Combo1(22) Combo1(23) Combo1(25) Text1(108) Text1(109)

# F2 in a field without a list.
focus Text1(2)
key F2
click Salir

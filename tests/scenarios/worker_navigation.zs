# From worker to worker by buttons and by Alt with Home, End, Left and Right; the ends hold.
session company=00001 year=01
open Trabajadores
click Inicio
show Text1(1) Text1(2) Text1(92)
click Anterior
show Text1(1)
click Siguiente
show Text1(1) Text1(2)
key Alt+Right
show Text1(1)
key Alt+Left
show Text1(1)
key Alt+End
show Text1(1)
key Alt+Right
expect Text1(1) "00060"
key Alt+Home
expect Text1(1) "00001"
# A number typed over the one shown is another one, whatever stood there when the field was entered.
key Alt+End
key Home
type "00001"
key Enter
show Text1(1) Text1(2)
# Without a worker on the screen the steps start from the number that was typed.
focus Text1(1)
key Home
type "00030\n"
key Alt+O
type "30\n"
key Alt+Right
show Text1(1)
focus Text1(1)
key Home
type "00030\n"
key Alt+Left
show Text1(1)
focus Text1(1)
key Home
type "99999\n"
key Alt+Left
show Text1(1)
# A date that is being edited has six digits for every worker.
focus Text1(20)
key Alt+Home
show Text1(20)
key Enter
show Text1(20)
# The situaciones of a worker by their number; one that is not there gives the last.
focus Text1(1)
key Home
type "00013"
key Enter
show Text1(92) Text1(93) Text1(94)
focus Text1(92)
key Home
type "002"
key Enter
show Text1(92) Text1(93) Text1(94)
focus Text1(92)
key Home
type "050"
key Enter
show Text1(92) Text1(93)
# The same with a situación.
focus Text1(92)
key Alt+Home
key Home
type "004\n"
show Text1(1) Text1(92) Text1(94)
click Salir

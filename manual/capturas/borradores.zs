# What was typed and not saved, on two screens.
drafts keep "drafts"
session company=00001 year=01 name="Compañía de Demostración, S.A."
open MIncidencias
type "44\n1\n"
type "050801\n100801\n"
click Salir
open Trabajadores
type "00007\n"
focus Text1(11)
key Home
type "Calle Mayor"
focus Text1(1)
key Home
type "00012\n"
key Ctrl+Shift+Z

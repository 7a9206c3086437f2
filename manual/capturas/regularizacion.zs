# The regularisation of a worker who has been paid this year.
session company=00001 year=01 name="Compañía de Demostración, S.A."
open Trabajadores
type "00015\n"
page Tab1 4
page Tab2 3
click Regulariza

# A new worker, of whom something is missing.
session company=00001 year=01 name="Compañía de Demostración, S.A."
open Trabajadores
type "00900\nPérez\nNúñez\nBegoña\n"
click Grabar

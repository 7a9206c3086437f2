# A fault ends the run where it is, with the number of its line.
session company=00001 year=01
sql Empresa.MDB "SELECT Campo0, Campo1 FROM Nada"
open Trabajadores

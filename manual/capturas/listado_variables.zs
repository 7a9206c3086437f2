# What asks for the listing of the variable concepts of a month, and its preview.
session company=00001 year=01 name="Compañía de Demostración, S.A."
open MIncidenciasVAR
click Pendientes
key Enter
key Enter
key Enter
click Impresora

# The screens of incidents with the worker's calendar, and dates that the rule refuses.
session company=00001 year=02 name="Compañía de Demostración, S.A."
open MIncidencias
type "19\n"
click Salir
open MIncidenciasESP
type "19\n1\n010202\n080202"
click Salir
open MIncidenciasVAR
type "02\n12\n\n"
type "4\n"

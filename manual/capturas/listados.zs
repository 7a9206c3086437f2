# What asks for listings, of workers and of absences, and their previews.
session company=00001 year=01 name="Compañía de Demostración, S.A."
open Trabajadores
click Pendientes
click Impresora
key Esc
click Salir
open MIncidencias
click Pendientes
key Enter
key Enter
click Impresora
key Esc
key Esc

# A listing is looked at again when its screen is closed: how many pages it has, and that it is kept whole or not at all.
session company=00001 year=01 name="Empresa de prueba"
open MIncidenciasVAR
click Pendientes
focus Text1(3)
focus Text1(5)
click Impresora
click Salir
click Salir
listing pages
listing save "no_hay_tal_carpeta/incidencias.xlsx"

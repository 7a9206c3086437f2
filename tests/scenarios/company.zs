# The demonstration company as the scenarios find it: who the first workers are and where they work.
session company=00001 year=01 name="Empresa de prueba"
sql Nom00001.MDB "SELECT Campo0, Campo1, Campo2, Campo3 FROM TrabajadoresFijo WHERE Campo0 <= '00005'"
sql Nom00001.MDB "SELECT Campo0, Campo1, Campo2, Campo3 FROM TrabajadoresVar WHERE Campo0 = '00013'"

#include "frame/sesion_anfitrion.hpp"

#include "frame/bases_datos.hpp"
#include "frame/parametros.hpp"

namespace zendara {
namespace {

std::shared_ptr<Database> AbreGrupo(Sesion& sesion, int numero) {
  const GrupoCatalogo& grupo = Grupo(numero);
  AbreFichero(sesion, grupo.fichero);
  LlenaRanuras(sesion, grupo);
  return sesion.BDEmpresa;
}

}  // namespace

void AbreEmpresa(Sesion& sesion, std::string_view codigo, std::string_view ano) {
  PonCarpetas(sesion);
  sesion.CodEmpresa = codigo;
  sesion.PonEjercicio(ano);
  const std::shared_ptr<Database> empresa = AbreGrupo(sesion, 1);
  for (const int grupo : {2, 3, 4, 6}) AbreGrupo(sesion, grupo);
  sesion.BDSegunda = AbreGrupo(sesion, 5);
  // The lookup of street types asks slot 2 whether it is worth opening the list, which comes from this file.
  AbreFichero(sesion, FileKind::kEmpresas);
  sesion.Tablas[kTiposVia] = sesion.BDEmpresa->OpenRecordset("Calles", RecordsetType::kTable);
  sesion.BDEmpresa = empresa;
}

}  // namespace zendara

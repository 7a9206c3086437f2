#include "frame/bases_datos.hpp"

#include <string>

#include "runtime/failure.hpp"
#include "runtime/text.hpp"
#include "values/muestra_error.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

std::shared_ptr<Database> AbreEn(Workspace& espacio, const Sesion& sesion, std::string_view nombre) {
  std::shared_ptr<Database> db = espacio.OpenDatabase(sesion.DirDatos + std::string(nombre));
  db->SetYearWindow(sesion.VentanaFechas);
  return db;
}

void Abre(Sesion& sesion, std::shared_ptr<Database>& db, std::string_view nombre) {
  sesion.WsTrabajo = sesion.platform.engine->Workspaces(0);
  db = AbreEn(*sesion.WsTrabajo, sesion, nombre);
}

void PonConsulta(Sesion& sesion, Database& db) {
  try {
    sesion.ConsultaQD = db.CreateQueryDef("Consulta");
  } catch (const RuntimeError& error) {
    if (error.number() != kObjectExists) throw;
    sesion.ConsultaQD = db.QueryDefs("Consulta");
  }
}

}  // namespace

void AbreFichero(Sesion& sesion, FileKind fichero) { AbreFichero(sesion, fichero, sesion.AnoTrabajo.str()); }

void AbreFichero(Sesion& sesion, FileKind fichero, std::string_view ano) {
  Abre(sesion, sesion.BDEmpresa, FileName(fichero, sesion.CodEmpresa.str(), ano));
}

std::shared_ptr<Database> AbreAparte(const Sesion& sesion, FileKind fichero) {
  return AbreEn(*sesion.platform.engine->Workspaces(0), sesion,
                FileName(fichero, sesion.CodEmpresa.str(), sesion.AnoTrabajo.str()));
}

bool AbreTabla(Sesion& sesion, std::shared_ptr<Database>& db, std::string_view nombre) try {
  Abre(sesion, db, nombre);
  if (nombre.starts_with("NOM")) PonConsulta(sesion, *db);
  return true;
} catch (...) {
  MuestraError(CurrentError(), *sesion.platform.dialogs);
  return false;
}

void AbreTablas(Sesion& sesion, int grupo, std::string_view codigo, std::string_view ano) try {
  if (Trim(codigo).empty() || Trim(ano).empty()) return;
  for (const GrupoCatalogo& g : Catalogo()) {
    const bool corre = grupo == g.numero || (grupo == 0 && g.numero != 5);
    if (!corre) continue;
    // Going on in the file that was open before would fill the slots with another file's tables.
    if (!AbreTabla(sesion, sesion.BDEmpresa, FillFileName(g.nombre, codigo, ano))) return;
    LlenaRanuras(sesion, g);
  }
} catch (...) {
  const RuntimeError error = CurrentError();
  LogDetail(error);
  if (error.number() != kObjectClosed && error.number() != kObjectNotFound) return;
  sesion.platform.dialogs->Show({.text = "Error: Base de Datos vacia ó dañada"});
}

void LlenaRanuras(Sesion& sesion, const GrupoCatalogo& grupo) {
  for (const EntradaCatalogo& entrada : grupo.entradas) {
    std::shared_ptr<Recordset>& ranura = sesion.Tablas[static_cast<std::size_t>(entrada.ranura)];
    ranura = sesion.BDEmpresa->OpenRecordset(entrada.tabla, RecordsetType::kTable);
    ranura->SetIndex(entrada.indice);
  }
  sesion.platform.engine->Idle(1);
}

}  // namespace zendara

#include "common/navegacion.hpp"

#include <algorithm>
#include <string>

#include "frame/bases_datos.hpp"
#include "frame/catalogo.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/format.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

struct TablaDeRanura {
  FileKind fichero;
  const TableDef* tabla;
};

TablaDeRanura TablaDe(int ranura) {
  for (const GrupoCatalogo& grupo : Catalogo()) {
    const auto entrada = std::ranges::find(grupo.entradas, ranura, &EntradaCatalogo::ranura);
    if (entrada != grupo.entradas.end()) return {grupo.fichero, StoredTable(grupo.fichero, entrada->tabla)};
  }
  throw RuntimeError(kInvalidCall);
}

std::string Literal(const Value& valor) {
  if (valor.IsDate()) return "#" + FormatDate(valor.AsDate(), "mm/dd/yyyy") + "#";
  return "'" + SqlText(valor.Text()) + "'";
}

}  // namespace

bool Navegacion::AlInicio() {
  Recordset& tabla = sesion_.Tabla(ranura_);
  if (tabla.IsEmpty()) return false;
  tabla.MoveFirst();
  return true;
}

bool Navegacion::AlFin() {
  Recordset& tabla = sesion_.Tabla(ranura_);
  if (tabla.IsEmpty()) return false;
  tabla.MoveLast();
  return true;
}

bool Navegacion::Da(bool atras) {
  Recordset& tabla = sesion_.Tabla(ranura_);
  if (tabla.IsEmpty()) return false;
  bool queda = false;
  if (!TieneRegistro()) {
    queda = VaAlVecino(atras);
  } else if (atras) {
    tabla.MovePrevious();
    queda = !tabla.Bof();
  } else {
    tabla.MoveNext();
    queda = !tabla.Eof();
  }
  if (!queda) atras ? tabla.MoveFirst() : tabla.MoveLast();
  return true;
}

// The place of a deleted row counts as one: moves start from it.
bool Navegacion::TieneRegistro() const try {
  sesion_.Tabla(ranura_).Bookmark();
  return true;
} catch (const RuntimeError& error) {
  if (error.number() != kNoCurrentRecord && error.number() != kRecordDeleted) throw;
  return error.number() == kRecordDeleted;
}

// The first row behind the remembered key, or the last one before it: equal in all keys but the last, then in one less.
bool Navegacion::VaAlVecino(bool atras) {
  Recordset& tabla = sesion_.Tabla(ranura_);
  const auto [fichero, definicion] = TablaDe(ranura_);
  const int en_uso = definicion->IndexOrdinal(tabla.Index());
  if (clave_.empty() || en_uso < 0) return false;
  const std::vector<int>& indice = definicion->indexes[static_cast<std::size_t>(en_uso)].columns;
  const auto nombre = [&](std::size_t i) { return definicion->columns[static_cast<std::size_t>(indice[i])].name; };
  std::string columnas = nombre(0);
  std::string orden = nombre(0) + (atras ? " DESC" : "");
  for (std::size_t i = 1; i < indice.size(); ++i) {
    columnas += "," + nombre(i);
    orden += "," + nombre(i) + (atras ? " DESC" : "");
  }
  AbreFichero(sesion_, fichero);
  for (std::size_t claves = std::min(clave_.size(), indice.size()); claves > 0; --claves) {
    std::string condicion;
    for (std::size_t i = 0; i + 1 < claves; ++i) condicion += nombre(i) + "=" + Literal(clave_[i]) + " AND ";
    condicion += nombre(claves - 1) + (atras ? "<" : ">") + Literal(clave_[claves - 1]);
    const auto filas = sesion_.BDEmpresa->OpenRecordset("SELECT " + columnas + " FROM " + definicion->name + " WHERE " +
                                                        condicion + " ORDER BY " + orden);
    if (filas->Eof()) continue;
    std::vector<Value> vecino;
    for (std::size_t i = 0; i < indice.size(); ++i) vecino.push_back(filas->Fields(static_cast<int>(i)).Get());
    tabla.Seek(vecino);
    return !tabla.NoMatch();
  }
  return false;
}

}  // namespace zendara

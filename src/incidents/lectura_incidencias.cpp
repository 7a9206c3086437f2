#include "incidents/lectura_incidencias.hpp"

#include <memory>
#include <string_view>

#include "frame/bases_datos.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/text.hpp"
#include "values/valor_numero.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr struct {
  TablaIncidencias tabla;
  std::string_view nombre;
} kTablas[] = {{TablaIncidencias::kIT, "TincidenciasIT"}, {TablaIncidencias::kESP, "TincidenciasESP"}};

// Columns of the query.
enum Columna { kTipo, kInicio, kFin };

std::optional<Date> FechaDe(Recordset& filas, Columna columna, bool& ilegible) try {
  const Value valor = filas.Fields(columna).Get();
  return valor.IsDate() ? std::optional(valor.AsDate()) : std::nullopt;
} catch (const RuntimeError& error) {
  if (error.number() != kDataConversion) throw;
  ilegible = true;
  return std::nullopt;
}

}  // namespace

std::vector<IncidenciaVista> LeeIncidencias(const Sesion& sesion, const std::string& trabajador) {
  const std::shared_ptr<Database> base = AbreAparte(sesion, FileKind::kCompany);
  std::vector<IncidenciaVista> incidencias;
  for (const auto& [tabla, nombre] : kTablas) {
    const auto filas = base->OpenRecordset("SELECT Campo2, Campo3, Campo4 FROM " + std::string(nombre) +
                                               " WHERE Campo0 = '" + SqlText(trabajador) + "' ORDER BY Campo3",
                                           RecordsetType::kForward);
    for (; !filas->Eof(); filas->MoveNext()) {
      IncidenciaVista& vista = incidencias.emplace_back();
      vista.tabla = tabla;
      vista.tipo = Trim(TextoNoNulo(filas->Fields(kTipo).Get()));
      vista.inicio = FechaDe(*filas, kInicio, vista.ilegible);
      vista.fin = FechaDe(*filas, kFin, vista.ilegible);
    }
  }
  return incidencias;
}

}  // namespace zendara

// Saving an incident with dates, the rule before it, and the listing that hosts may ask for.
#include <vector>

#include "frame/bases_datos.hpp"
#include "incidents/incidencias_fechas.hpp"
#include "incidents/lectura_incidencias.hpp"
#include "incidents/solape.hpp"
#include "listings/mesa_listado.hpp"
#include "runtime/date.hpp"
#include "runtime/failure.hpp"
#include "runtime/format.hpp"
#include "runtime/number.hpp"

namespace zendara {
namespace {

using enum CampoFechas;

// The listing of GeneraPendientes, and the columns that its rows are made of.
const DescripcionListado kPendientes = {
    .titulo = "Listados de Epígrafes",
    .columnas = {{"Descripción", 2, "500"}, {"Nº de Epígrafe", 1, "1300"}, {"I.L.T.", 1, "900"}, {"I.M.S.", 1, "900"}},
    .pendientes = true};
constexpr int kCopiadas[] = {kColumnaNombre, kColumnaTrabajador, kColumnaTipo, kColumnaInicio};

}  // namespace

bool IncidenciasFechas::CompruebaDatos() {
  if (diseno_fechas_.reabre_al_grabar) AbreFichero(sesion_, FileKind::kCompany);
  if (FaltaCodigo(kTrabajador, "Es preciso introducir el Nº del Trabajador")) return true;
  return Texto(kInicio).empty() && Falta(diseno_fechas_.falta_inicio, Text1(IndiceCampo(kInicio)));
}

// An error has been said, and empties the screen as well.
void IncidenciasFechas::GrabaComprobado() {
  if (!CompruebaSolape()) return;
  const std::string resumen = Resumen();
  const bool grabado = GrabarRegistro();
  CancelaFicha();
  if (grabado) DiGrabado(resumen);
}

bool IncidenciasFechas::CompruebaSolape() {
  const auto fecha = [this](CampoFechas campo) {
    return CStr(FormatDate(Value(Texto(campo)), "mm/dd/yy", sesion_.VentanaFechas));
  };
  const ConsultasSolape consultas =
      ConsultasDeSolape(diseno_fechas_.tabla, Texto(kTrabajador), fecha(kInicio), fecha(kFin));
  const auto hay = [this](const std::string& consulta) { return !Lee(consulta).IsEmpty(); };
  if (hay(consultas.abierta)) {
    const YearWindow ventana = sesion_.VentanaFechas;
    if (CDate(sesion_.RsTrabajo->Fields(0).Get(), ventana) == CDate(Texto(kInicio), ventana)) return true;
    Mensaje("No se puede guardar una nueva incidencia para un  \n" + std::string(diseno_fechas_.hay_abierta));
    return false;
  }
  const bool tiene_fin = !Texto(kFin).empty();
  if (!hay(consultas.inicio) && !(tiene_fin && (hay(consultas.fin) || hay(consultas.encierra)))) return true;
  Mensaje("Ya existe una incidencia para ese trabajador en es intervalo tiempo ", Text1(IndiceCampo(kInicio)));
  SetStatus(Coincidencias());
  return false;
}

std::string IncidenciasFechas::Coincidencias() const {
  const YearWindow ventana = sesion_.VentanaFechas;
  const auto inicio = ReadDateStrict(Texto(kInicio), ventana);
  const auto fin = ReadDateStrict(Texto(kFin), ventana);
  std::string con;
  for (const IncidenciaVista& fila : LeeIncidencias(sesion_, Texto(kTrabajador))) {
    if (!inicio || !fila.inicio || !fila.fin || fila.inicio > fin.value_or(*inicio) || fila.fin < inicio) continue;
    const bool propia = fila.tabla == diseno_fechas_.tabla && fila.inicio == inicio;
    con += (con.empty() ? "" : "; ") + std::string(TextoTipo(fila.tabla, fila.tipo)) + " del " +
           ShortDate(*fila.inicio) + " al " + ShortDate(*fila.fin) +
           (propia ? " (es esta misma, ya grabada: bórrela antes para cambiarla)" : "");
  }
  return con.empty() ? con : "Coincide con " + con;
}

// A field that its column does not take leaves it empty, which for a start is the store's own error; the row is not
// kept in any case.
void IncidenciasFechas::AsignaCampos() {
  Recordset& fila = Tabla();
  try {
    for (const CampoFechas campo : {kTrabajador, kNombre, kTipo, kInicio, kFin}) {
      const std::string texto = Texto(campo);
      const Value valor = Queda(campo, texto.empty() && campo != kTipo ? Value() : Value(texto));
      if (!valor.IsNull()) fila.Fields(IndiceCampo(campo) - 1).Set(valor);
    }
  } catch (...) {
    fila.Update();
    throw;
  }
}

bool IncidenciasFechas::GrabarRegistro() {
  try {
    PantallaIncidencias::GrabarRegistro();
    return true;
  } catch (...) {
    const RuntimeError error = CurrentError();
    LogDetail(error);
    if (error.number() == kNullInKey) Mensaje("Debe Introducir la Fecha de Inicio");
    Mensaje("No se ha grabado la incidencia de " + Resumen() + ".\n" + error.what());
    Text1(IndiceCampo(kInicio)).SetFocus();
    return false;
  }
}

void IncidenciasFechas::GeneraPendientes(int ranura) {
  MesaListado mesa(sesion_, "ICampo0_1");
  Recordset& origen = sesion_.Tabla(ranura);
  if (!origen.IsEmpty()) {
    for (origen.MoveFirst(); !origen.Eof(); origen.MoveNext()) {
      std::vector<Value> linea;
      for (const int columna : kCopiadas) linea.push_back(origen.Fields(columna).Get());
      mesa.Anade(linea);
    }
  }
  mesa.Termina();
  VisualizaListado(sesion_, kPendientes, sesion_.DirPrograma + "datos\\Nom" + sesion_.CodEmpresa.str() + ".mdb",
                   "ListadosNOM", this);
}

}  // namespace zendara

// Saving, removing and dropping the worker on the screen, and leaving it.
#include <utility>

#include "common/busqueda.hpp"
#include "frame/catalogo.hpp"
#include "runtime/text.hpp"
#include "workers/familia.hpp"
#include "workers/reglas_trabajador.hpp"
#include "workers/trabajadores.hpp"

namespace zendara {

using enum CampoTrabajador;

namespace {

constexpr int kPaginaFamilia = 1;  // of Tab1
constexpr std::string_view kNombresRejillas[] = {"Hijos", "Ascendientes"};

}  // namespace

// The first fault is shown and ends it.
bool Trabajadores::ValidarTrabajador() {
  return EstanRellenos(kNumero, kTipo1) && TieneFechaBonificacion() && CompruebaGrids() &&
         EstanRellenos(kCentro, kCentro) && ValidarFechasContratos() && ValidarIntervaloSituacion();
}

bool Trabajadores::EstanRellenos(CampoTrabajador desde, CampoTrabajador hasta) {
  for (const auto& [campo, mensaje] : CamposObligatorios()) {
    if (campo < desde || campo > hasta || !ficha_.Vacio(campo)) continue;
    Mensaje(std::string(mensaje), *ficha_.ControlDe(campo), BoxIcon::kExclamation);
    ficha_.ControlDe(campo)->SetFocus();
    return false;
  }
  return true;
}

bool Trabajadores::TieneFechaBonificacion() {
  if (Vacio(kBonificacion1) || !Vacio(kInicioBonificacion1)) return true;
  Mensaje("Debe introducir la fecha de inicio de la bonificación", Text1(kInicioBonificacion1), BoxIcon::kExclamation);
  Text1(kInicioBonificacion1).SetFocus();
  return false;
}

bool Trabajadores::CompruebaGrids() {
  for (const auto& [indice, rejilla] : Grid1) {
    const int fila = FilaIncompleta(*rejilla);
    if (fila == 0) continue;
    Tab1.SetTab(kPaginaFamilia);
    Mensaje("Error en el grid '" + std::string(kNombresRejillas[indice]) + "' en la fila " + std::to_string(fila),
            *rejilla, BoxIcon::kExclamation);
    return false;
  }
  return true;
}

void Trabajadores::GrabaFicha() {
  SetPointer(MousePointer::kHourglass);
  // Here and not between the check and the writing, where what was checked might change.
  Host().DoEvents();
  if (!ValidarTrabajador()) {
    SetPointer(MousePointer::kDefault);
    return;
  }
  SetStatus({});
  if (RespuestaNueva == BoxAnswer::kYes) CopiaConceptos();
  GrabarTrabajador();
  RegistroGrabado();
  const std::string grabado =
      "Grabado: " + QuienEs(TextoRecortado(kNumero)) + (Status().empty() ? "" : ". ") + Status();
  Text1(kNumero).SetFocus();
  CancelaFicha();
  SetStatus(grabado);
  SetPointer(MousePointer::kDefault);
}

// Concepts that cannot be copied keep the situación from being saved and stay asked for.
void Trabajadores::CopiaConceptos() {
  NuevaSituacion nueva = {TextoRecortado(kNumero), TextoRecortado(kSituacion), Texto(kFechaInicio)};
  if (nueva != copia_.nueva) copia_ = {std::move(nueva)};
  TransfiereConceptos(sesion_, copia_);
  RespuestaNueva.reset();
  copia_ = {};
}

// Each table by itself: the first stays when the second fails.
void Trabajadores::GrabarTrabajador() {
  const std::string numero = TextoRecortado(kNumero);
  const std::string situacion = TextoRecortado(kSituacion);
  const bool mostrado = ficha_.Mostro(kNumero, numero);
  navegacion_.Recuerda({numero});
  TablaActiva = kTrabajadoresFijo;
  GrabaFila("Icampo0", {numero}, mostrado);
  TablaActiva = kTrabajadoresVar;
  GrabaFila("Icampo0_1", {numero, situacion}, mostrado && ficha_.Mostro(kSituacion, situacion));
  TablaActiva = kTrabajadoresFijo;
}

void Trabajadores::GrabaFila(std::string_view indice, const std::vector<Value>& claves, bool mostrada) {
  const bool fijo = TablaActiva == kTrabajadoresFijo;
  Recordset& tabla = sesion_.Tabla(TablaActiva);
  const bool existe = !tabla.IsEmpty() && Busca(sesion_, TablaActiva, indice, claves);
  if (existe) {
    tabla.Edit();
  } else {
    tabla.AddNew();
  }
  if (!fijo) tabla.Fields(0).Set(claves[0]);
  const std::vector<int> sustituidos = ficha_.Guarda(tabla, fijo ? kTramoFijo : kTramoVar, existe && mostrada);
  if (mostrada && !existe) {
    Avisa((fijo ? "El trabajador " : "La situación ") + claves.back().Text() +
          " ya no estaba en el fichero, otro puesto había borrado sus datos: se graba de nuevo con lo que hay en "
          "pantalla.");
  }
  if (!sustituidos.empty()) {
    std::string nombres;
    for (const int campo : sustituidos) nombres += (nombres.empty() ? "" : ", ") + NombreDe(campo);
    Avisa("Otro puesto había cambiado también, y queda lo grabado aquí: " + nombres + ".");
  }
}

void Trabajadores::Avisa(const std::string& texto) { SetStatus(Status().empty() ? texto : Status() + " " + texto); }

std::string Trabajadores::NombreDe(IndiceCampo indice) const {
  const Campo* campo = ficha_.CampoDe(indice);
  if (!campo) {
    const auto [rejilla, fila, columna] = CeldaDe(indice);
    return Grid1(rejilla).Cell(fila, kColumnaRotulo) + " (" + Grid1(rejilla).Cell(0, columna) + ")";
  }
  std::string rotulo(campo->rotulo.substr(0, campo->rotulo.find_last_not_of(" :") + 1));
  for (const Control* marco = ficha_.ControlDe(indice)->Container(); marco; marco = marco->Container()) {
    if (!marco->Caption().empty()) return rotulo + " (" + marco->Caption() + ")";
  }
  return rotulo;
}

// His row and those of his situaciones; concepts, incidents and history stay.
void Trabajadores::BorraTrabajador() {
  SetPointer(MousePointer::kHourglass);
  const std::string numero = Texto(kNumero);
  TablaActiva = kTrabajadoresFijo;
  const bool existe = Busca(sesion_, TablaActiva, "Icampo0", {numero});
  if (existe) sesion_.Tabla(TablaActiva).Delete();
  TablaActiva = kTrabajadoresVar;
  const auto queda = [&] { return Busca(sesion_, TablaActiva, "ICampo0", {numero}); };
  // Situaciones without a worker are what a removal has left that was cut short.
  if (!existe && !queda()) {
    Host().DoEvents();
    Mensaje("No existe el Registro que se pretende borrar");
    SetPointer(MousePointer::kDefault);
    return;
  }
  while (queda()) {
    sesion_.Tabla(TablaActiva).Delete();
    Host().DoEvents();
  }
  const std::string borrado = "Borrado: " + QuienEs(numero);
  CancelaFicha();
  SetStatus(borrado);
  SetPointer(MousePointer::kDefault);
}

// A new situación that was asked for stays pending.
void Trabajadores::CancelaFicha() {
  SetPointer(MousePointer::kHourglass);
  ficha_.Limpia(kNumero, kUltimoTexto);
  Olvida();
  PonListasIniciales();
  Text1(kConvenio).SetText(ConvenioEmpresa);
  PreparaGrids();
  Text1(kNumero).SetFocus();
  SetPointer(MousePointer::kDefault);
  Tab1.SetTab(0);
}

void Trabajadores::AntesDeSalir() {
  if (RespuestaNueva != BoxAnswer::kYes) return;
  const BoxAnswer respuesta = Boxes().Show(
      {.text = "No ha guardado la ultima situación añadida, ¿Desea hacerlo ahora?", .buttons = BoxButtons::kYesNo});
  if (respuesta == BoxAnswer::kYes) Guarda([this] { GrabaFicha(); });
}

}  // namespace zendara

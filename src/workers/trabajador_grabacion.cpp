// Saving, removing and dropping the worker on the screen, and leaving it.
#include <utility>

#include "frame/catalogo.hpp"
#include "runtime/text.hpp"
#include "workers/familia.hpp"
#include "workers/reglas_trabajador.hpp"
#include "workers/trabajadores.hpp"

namespace zendara {

using namespace campo;

namespace {

constexpr int kPaginaFamilia = 1;  // of Tab1
constexpr std::string_view kNombresRejillas[] = {"Hijos", "Ascendientes"};

}  // namespace

// The first fault is told and ends it.
bool Trabajadores::ValidarTrabajador() {
  return EstanRellenos(kNumero, kTipo1) && TieneFechaBonificacion() && CompruebaGrids() &&
         EstanRellenos(kCentro, kCentro) && ValidarFechasContratos() && ValidarIntervaloSituacion();
}

bool Trabajadores::EstanRellenos(int desde, int hasta) {
  for (const CampoObligatorio& campo : CamposObligatorios()) {
    if (campo.indice < desde || campo.indice > hasta || !Trim(ficha_.Texto(campo.indice)).empty()) continue;
    Mensaje(std::string(campo.mensaje), BoxIcon::kExclamation);
    ficha_.Campo(campo.indice)->SetFocus();
    return false;
  }
  return true;
}

bool Trabajadores::TieneFechaBonificacion() {
  if (Vacio(kBonificacion1) || !Vacio(kInicioBonificacion1)) return true;
  Mensaje("Debe introducir la fecha de inicio de la bonificación", BoxIcon::kExclamation);
  Text1(kInicioBonificacion1).SetFocus();
  return false;
}

bool Trabajadores::CompruebaGrids() {
  for (const auto& [indice, rejilla] : Grid1) {
    const int fila = FilaIncompleta(*rejilla);
    if (fila == 0) continue;
    Tab1.SetTab(kPaginaFamilia);
    Mensaje("Error en el grid '" + std::string(kNombresRejillas[indice]) + "' en la fila " + std::to_string(fila),
            BoxIcon::kExclamation);
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
  // Concepts that could not be copied stay asked for while the worker is on the screen.
  if (RespuestaNueva == BoxAnswer::kYes && CopiaConceptos()) RespuestaNueva.reset();
  GrabarTrabajador();
  RespuestaNueva.reset();
  copia_ = {};
  Text1(kNumero).SetFocus();
  CancelaFicha();
  SetPointer(MousePointer::kDefault);
}

bool Trabajadores::CopiaConceptos() {
  NuevaSituacion nueva = {TextoRecortado(kNumero), TextoRecortado(kSituacion), Texto(kFechaInicio)};
  if (nueva != copia_.nueva) copia_ = {std::move(nueva)};
  bool copiados = false;
  Guarda([&] {
    TransfiereConceptos(sesion_, copia_);
    copiados = true;
  });
  return copiados;
}

// Each table by itself: the first stays when the second fails.
void Trabajadores::GrabarTrabajador() {
  const std::string numero = TextoRecortado(kNumero);
  TablaActiva = kTrabajadoresFijo;
  GrabaFila("Icampo0", {numero});
  TablaActiva = kTrabajadoresVar;
  GrabaFila("Icampo0_1", {numero, TextoRecortado(kSituacion)});
  TablaActiva = kTrabajadoresFijo;
}

void Trabajadores::GrabaFila(std::string_view indice, const std::vector<Value>& claves) {
  Recordset& tabla = sesion_.Tabla(TablaActiva);
  tabla.SetIndex(indice);
  bool existe = false;
  if (tabla.RecordCount() > 0) {
    tabla.Seek(claves);
    sesion_.platform.engine->Idle(1);
    existe = !tabla.NoMatch();
  }
  if (existe) {
    tabla.Edit();
  } else {
    tabla.AddNew();
  }
  if (TablaActiva == kTrabajadoresFijo) {
    PonerCamposFijo(tabla);
  } else {
    PonerCamposVar(tabla);
  }
  tabla.Update();
}

void Trabajadores::PonerCamposFijo(Recordset& fila) {
  for (int indice = kNumero; indice <= kUltimoFijo; ++indice) fila.Fields(ColumnaDe(indice)).Set(ficha_.Valor(indice));
}

void Trabajadores::PonerCamposVar(Recordset& fila) {
  fila.Fields(0).Set(ficha_.Valor(kNumero));
  for (int indice = kPrimeroVar; indice <= kUltimoVar; ++indice) {
    fila.Fields(ColumnaDe(indice)).Set(ficha_.Valor(indice));
  }
}

// His row and those of his situaciones; concepts, incidents and history stay.
void Trabajadores::BorraTrabajador() {
  SetPointer(MousePointer::kHourglass);
  const std::string numero = Texto(kNumero);
  TablaActiva = kTrabajadoresFijo;
  Recordset& trabajadores = sesion_.Tabla(TablaActiva);
  trabajadores.Seek({numero});
  if (trabajadores.NoMatch()) {
    Host().DoEvents();
    Mensaje("No existe el Registro que se pretende borrar");
    SetPointer(MousePointer::kDefault);
    return;
  }
  trabajadores.Delete();
  TablaActiva = kTrabajadoresVar;
  const auto situacion = [&]() -> Recordset& { return sesion_.Tabla(kTrabajadoresVar); };
  situacion().SetIndex("ICampo0");
  for (situacion().Seek({numero}); !situacion().NoMatch(); situacion().Seek({numero})) {
    situacion().Delete();
    Host().DoEvents();
  }
  CancelaFicha();
  SetPointer(MousePointer::kDefault);
}

// A new situación that was asked for stays pending.
void Trabajadores::CancelaFicha() {
  SetPointer(MousePointer::kHourglass);
  ficha_.LimpiarCampos(kNumero, kUltimoTexto);
  TrabajadorAnterior.clear();
  SituacionAnterior.clear();
  PonListasIniciales();
  Text1(kConvenio).SetText(ConvenioEmpresa);
  ficha_.LimpiarGrid();
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

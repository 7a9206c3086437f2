// From worker to worker, and from the worker to the incidents.
#include "common/busqueda.hpp"
#include "frame/catalogo.hpp"
#include "workers/trabajadores.hpp"

namespace zendara {

using enum CampoTrabajador;

void Trabajadores::IrAInicio() {
  if (navegacion_.AlInicio()) MuestraActual();
}

void Trabajadores::IrAAnterior() {
  if (navegacion_.AlAnterior()) MuestraActual();
}

void Trabajadores::IrASiguiente() {
  if (!navegacion_.AlSiguiente()) return;
  Text1(kNumero).SetFocus();
  MuestraActual();
}

void Trabajadores::IrAFin() {
  if (navegacion_.AlFin()) MuestraActual();
}

void Trabajadores::MuestraActual() {
  sesion_.platform.engine->Idle(1);
  MostrarTrabajador();
}

bool Trabajadores::VerificarTrabajador() {
  if (Busca(sesion_, kTrabajadoresFijo, "Icampo0", {TextoRecortado(kNumero)})) return true;
  Mensaje("El trabajador seleccionado no esta registrado", BoxIcon::kExclamation);
  return false;
}

bool Trabajadores::VerificarSituacion() {
  const std::vector<Value> claves = {TextoRecortado(kNumero), TextoRecortado(kSituacion)};
  if (Busca(sesion_, kTrabajadoresVar, "Icampo0_1", claves)) return true;
  Mensaje("El trabajador seleccionado no esta registrado", BoxIcon::kExclamation);
  return false;
}

void Trabajadores::AbreIncidencias(std::string_view pantalla, bool con_situacion) {
  if (TextoRecortado(kNumero).empty() || (con_situacion && TextoRecortado(kSituacion).empty())) {
    Mensaje("Debe seleccionar antes un trabajador", BoxIcon::kExclamation);
    return;
  }
  if (!VerificarTrabajador()) return;
  if (con_situacion && !VerificarSituacion()) return;
  TrabajadorElegido = TextoRecortado(kNumero);
  if (con_situacion) SituacionElegida = TextoRecortado(kSituacion);
  pantallas_.Muestra(pantalla);
  TrabajadorElegido.clear();
  if (con_situacion) SituacionElegida = " 0";
}

}  // namespace zendara

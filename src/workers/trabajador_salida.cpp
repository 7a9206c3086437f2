// What entering and leaving a field of the worker screen does.
#include "frame/catalogo.hpp"
#include "runtime/text.hpp"
#include "values/formato_fecha.hpp"
#include "values/valor_numero.hpp"
#include "workers/trabajadores.hpp"

namespace zendara {

using namespace campo;

void Trabajadores::EntradaCampo(int indice) {
  if (indice == kNumero) TrabajadorAnterior = TextoRecortado(kNumero);
  if (indice == kSituacion) SituacionAnterior = TextoRecortado(kSituacion);
  if (CampoDe(indice)->Tiene(kFecha)) Text1(indice).SetText(FichaTrabajador::SeisDigitos(Texto(indice)));
}

void Trabajadores::SalidaCampo(int indice) {
  const CampoTrabajador& campo = *CampoDe(indice);
  if (campo.Tiene(kVista)) return;
  if (campo.Tiene(kCeros)) RellenaCeros(indice);
  if (indice == kNumero) return SalidaNumero();
  if (indice == kSituacion) return SalidaSituacion();
  if (campo.Tiene(kFecha)) Text1(indice).SetText(FormatoFecha(Text1(indice), Host().Boxes()));
}

void Trabajadores::RellenaCeros(int indice) {
  const std::string texto = TextoRecortado(indice);
  if (texto.empty()) return;
  const int faltan = Text1(indice).MaxLength() - static_cast<int>(Len(texto));
  if (faltan > 0) Text1(indice).SetText(Repeat('0', faltan) + texto);
}

// Another number: its worker, or an empty screen in which a new one starts.
void Trabajadores::SalidaNumero() {
  const std::string numero = TextoRecortado(kNumero);
  if (numero == TrabajadorAnterior) return;
  TrabajadorAnterior = numero;
  ficha_.LimpiarCampos(kNumero + 1, kUltimoVar);
  // The children and ascendants of the worker shown before are not the new one's.
  ficha_.LimpiarGrid();
  ValoresIniciales();
  Recordset& tabla = sesion_.Tabla(kTrabajadoresFijo);
  if (tabla.RecordCount() == 0) return;
  tabla.SetIndex("ICampo0");
  tabla.Seek({numero});
  sesion_.platform.engine->Idle(1);
  if (!tabla.NoMatch()) MostrarTrabajador();
}

// Another number of situación: its row, or the worker's last one if there is none.
void Trabajadores::SalidaSituacion() {
  RespuestaNueva.reset();
  const std::string situacion = TextoRecortado(kSituacion);
  if (situacion == SituacionAnterior) return;
  SituacionAnterior = situacion;
  Recordset& tabla = sesion_.Tabla(kTrabajadoresVar);
  tabla.SetIndex("ICampo0_1");
  tabla.Seek({TextoRecortado(kNumero), situacion});
  sesion_.platform.engine->Idle(1);
  if (!tabla.NoMatch()) return MostrarSituacion();
  Mensaje("La situación seleccionada no existe");
  Text1(kSituacion).SetText(UltimaSituacion(TextoRecortado(kNumero)));
  SalidaCampo(kSituacion);
}

std::string Trabajadores::UltimaSituacion(const std::string& trabajador) {
  AbreFicheroEmpresa();
  sesion_.RsAuxiliar = sesion_.BDEmpresa->OpenRecordset(
      "SELECT campo0 ,campo1,Campo3 FROM TRABAJADORESVAR WHERE Campo0='" + trabajador + "' ORDER BY Campo3");
  sesion_.RsAuxiliar->MoveLast();
  return TextoNoNulo(sesion_.RsAuxiliar->Fields("Campo1").Get());
}

}  // namespace zendara

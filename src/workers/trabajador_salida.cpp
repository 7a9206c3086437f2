// What entering and leaving a field of the worker screen does.
#include "common/busqueda.hpp"
#include "frame/bases_datos.hpp"
#include "frame/catalogo.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/date.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "values/comprobar_cuenta.hpp"
#include "values/formato_fecha.hpp"
#include "values/valor_numero.hpp"
#include "workers/reglas_trabajador.hpp"
#include "workers/trabajadores.hpp"

namespace zendara {

using enum CampoTrabajador;

namespace {

constexpr int kCamposContrato = 6;  // of a block, its type first
constexpr double kMaximoDias = 30;
constexpr std::string_view kDiasSemana = "LMXJVSD";
constexpr double kPrimerGrupoTarifa = 1;
constexpr double kUltimoGrupoTarifa = 11;

}  // namespace

void Trabajadores::EntradaCampo(int indice) {
  const auto campo = static_cast<CampoTrabajador>(indice);
  if (campo == kNumero) TrabajadorAnterior = TextoRecortado(kNumero);
  if (campo == kSituacion) SituacionAnterior = TextoRecortado(kSituacion);
  ficha_.Edita(campo);
}

// The order of the steps is part of the rules: one leaving can run several of them.
void Trabajadores::SalidaCampo(int indice) {
  const auto campo = static_cast<CampoTrabajador>(indice);
  const Campo& reglas = *ficha_.CampoDe(campo);
  if (reglas.Tiene(kVista)) return;
  if (reglas.Tiene(kCeros)) ficha_.RellenaCeros(campo);
  if (campo == kNumero) return SalidaNumero();
  if (campo == kSituacion) return SalidaSituacion();
  CompletaOtrosCampos(campo);
  if (RechazaValor(campo)) return;
  if (reglas.Tiene(kFecha)) Text1(campo).SetText(FormatoFecha(Text1(campo), Boxes(), ficha_.Ventana(campo)));
  if (campo == kFechaFin) CompruebaFechaFin();
  const bool segundo_contrato = campo == kTipo2 || campo == kInicioBonificacion2 || campo == kFinBonificacion2;
  if (segundo_contrato && !Vacio(campo) && Vacio(kTipo1)) {
    Mensaje("No se puede introducir el segundo contrato si no se ha introducido antes el primero");
    Text1(campo).SetText("");
  }
  if (reglas.Tiene(kCodigo)) BuscaCodigo(campo);
}

// Another number: its worker, or an empty screen in which a new one starts.
void Trabajadores::SalidaNumero() {
  const std::string numero = TextoRecortado(kNumero);
  if (numero == TrabajadorAnterior) return;
  Olvida();
  TrabajadorAnterior = numero;
  navegacion_.Recuerda({numero});
  ficha_.Limpia(kNumero + 1, kUltimoVar);
  // The children and ascendants of the worker shown before are not the new one's.
  PreparaGrids();
  ValoresIniciales();
  if (sesion_.Tabla(kTrabajadoresFijo).IsEmpty()) return;
  if (Busca(sesion_, kTrabajadoresFijo, "ICampo0", {numero})) MostrarTrabajador();
}

// Another number of situación: its row, or the worker's last one if there is none.
void Trabajadores::SalidaSituacion() {
  RespuestaNueva.reset();
  const std::string situacion = TextoRecortado(kSituacion);
  if (situacion == SituacionAnterior) return;
  SituacionAnterior = situacion;
  if (Busca(sesion_, kTrabajadoresVar, "ICampo0_1", {TextoRecortado(kNumero), situacion})) return MostrarSituacion();
  Mensaje("La situación seleccionada no existe");
  Text1(kSituacion).SetText(UltimaSituacion(TextoRecortado(kNumero)));
  ficha_.RellenaCeros(kSituacion);
  SalidaSituacion();
}

// What other fields take from this one, and what they lose by it.
void Trabajadores::CompletaOtrosCampos(CampoTrabajador campo) {
  const auto propone = [&](CampoTrabajador fecha) {
    if (Vacio(campo) || !Vacio(fecha)) return;
    Text1(fecha).SetText(FormatoFecha(Text1(campo), Boxes(), ficha_.Ventana(campo)));
  };
  const auto excluye = [&](CampoTrabajador otro) {
    if (!Vacio(campo)) Text1(otro).SetText("");
  };
  switch (campo) {
    case kFechaInicio:
      propone(kFechaAlta);
      break;
    case kFechaAlta:
      propone(kFechaAntiguedad);
      break;
    case kFechaBaja:
      // The end of the first bonus, which is in its shown form already; not the date of leaving.
      if (!Vacio(kFechaBaja) && Vacio(kFechaFin)) Text1(kFechaFin).SetText(Texto(kFinBonificacion1));
      break;
    case kFormacionPresencial:
      excluye(kFormacionDistancia);
      break;
    case kFormacionDistancia:
      excluye(kFormacionPresencial);
      break;
    case kCuenta:
      if (!Vacio(kEntidad) || !Vacio(kOficina) || !Vacio(kControlCuenta) || !Vacio(kCuenta)) {
        ComprobarCuenta(Texto(kEntidad), Texto(kOficina), Texto(kControlCuenta), Texto(kCuenta), Boxes());
      }
      break;
    default:
      break;
  }
  if (ficha_.CampoDe(campo)->Tiene(kContrato) && Vacio(campo)) ficha_.Vacia(campo + 1, campo + (kCamposContrato - 1));
}

bool Trabajadores::RechazaValor(CampoTrabajador campo) {
  if (Vacio(campo)) return false;
  if (campo == kDiasParcial) return RechazaDias();
  if (campo == kGrupoTarifa) {
    const double grupo = ValorNumero(Texto(campo));
    // A box, and the value stays.
    if (grupo < kPrimerGrupoTarifa || grupo > kUltimoGrupoTarifa) {
      Mensaje("El número del Grupo de tarifa tiene que estar entre el 1 y el 11");
    }
    return false;
  }
  const MaximoCampo* maximo = MaximoDe(campo);
  if (!maximo || ValorNumero(Texto(campo)) <= maximo->maximo) return false;
  Mensaje(std::string(maximo->mensaje));
  Text1(campo).SetText("");
  Text1(campo).SetFocus();
  return true;
}

// A number of days, or letters of the week.
bool Trabajadores::RechazaDias() {
  TextBox& caja = Text1(kDiasParcial);
  if (IsNumeric(caja.Text()) && CDbl(caja.Text()) <= kMaximoDias) return false;
  const std::string dias = Trim(UCase(caja.Text()));
  caja.SetText(dias);
  if (dias.find_first_not_of(kDiasSemana) == std::string::npos) return false;
  Mensaje(
      "El valor introducido no es válido, solo se permiten los valores: L, M, X, J, V, S, D y número de días inferior "
      "a 30.");
  caja.SetFocus();
  return true;
}

void Trabajadores::CompruebaFechaFin() {
  if (Vacio(kFechaFin)) return;
  if (Vacio(kFechaInicio)) {
    Mensaje("Debe introducir antes la fecha de inicio de la situación", Text1(kFechaInicio));
    Text1(kFechaFin).SetText("");
    Text1(kFechaInicio).SetFocus();
  } else if (CDbl(DateDiffDays(Texto(kFechaInicio), Texto(kFechaFin), sesion_.VentanaFechas)) < 0) {
    Mensaje("La fecha de fin de situación no puede ser anterior a la de inicio");
    Text1(kFechaFin).SetFocus();
  }
}

// What a code stands for, in the fields after it.
void Trabajadores::BuscaCodigo(CampoTrabajador campo) {
  if (Vacio(campo)) {
    Text1(campo + 1).SetText("");
  } else if (const DescripcionCampo* d = DescripcionDe(campo)) {
    Text1(campo + 1).SetText(BuscarDescripcion(*d));
  } else if (ficha_.CampoDe(campo)->Tiene(kContrato)) {
    BuscarContrato(campo);
  } else if (campo == kCategoria) {
    BuscaCategoria();
  } else if (campo == kGrupoTarifa) {
    const std::string_view texto = TextoGrupoTarifa(TextoRecortado(kGrupoTarifa));
    if (!texto.empty()) Text1(kDescripcionGrupoTarifa).SetText(std::string(texto));
  }
}

std::string Trabajadores::BuscarDescripcion(const DescripcionCampo& descripcion) {
  const auto& [campo, ranura, indice, columna] = descripcion;
  if (Busca(sesion_, ranura, indice, {TextoRecortado(campo)})) {
    return TextoNoNulo(sesion_.Tabla(ranura).Fields(columna).Get());
  }
  Mensaje("El dato introducido no existe en la tabla");
  return {};
}

// Categories are numbered within their agreement.
void Trabajadores::BuscaCategoria() {
  constexpr int kColumnaNombre = 3;
  if (Busca(sesion_, kConEmpresaConceptos, "ICampo0_2", {TextoRecortado(kConvenio), TextoRecortado(kCategoria)})) {
    const Value nombre = sesion_.Tabla(kConEmpresaConceptos).Fields(kColumnaNombre).Get();
    Text1(kDescripcionCategoria).SetText(TextoNoNulo(nombre));
  } else {
    Mensaje("La categoría seleccionada para este convenio no existe.");
    Text1(kDescripcionCategoria).SetText("");
  }
}

// `campo`: the type of one of the three contracts.
void Trabajadores::BuscarContrato(CampoTrabajador campo) {
  AbreFichero(sesion_, FileKind::kOfficial);
  sesion_.RsAuxiliar = sesion_.BDEmpresa->OpenRecordset(
      "SELECT Campo1,Campo2, Campo3, Campo4 FROM Contratos WHERE Campo1 = '" + SqlText(TextoRecortado(campo)) +
      "' AND Campo0 = '" + SqlText(TextoRecortado(kNumeroContrato)) + "' ORDER BY Campo1 ");
  const Recordset& contrato = *sesion_.RsAuxiliar;
  if (contrato.Eof()) {
    Mensaje("El contrato seleccionado no existe");
    ficha_.Vacia(campo + 1, campo + 3);
    return;
  }
  for (int i = 0; i <= 3; ++i) Text1(campo + i).SetText(TextoNoNulo(sesion_.RsAuxiliar->Fields(i).Get()));
}

}  // namespace zendara

// What entering and leaving a field of the worker screen does.
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

using namespace campo;

namespace {

constexpr int kCamposContrato = 6;  // of a block, its type first
constexpr double kMaximoDias = 30;
constexpr std::string_view kDiasSemana = "LMXJVSD";
constexpr double kPrimerGrupoTarifa = 1;
constexpr double kUltimoGrupoTarifa = 11;

}  // namespace

void Trabajadores::EntradaCampo(int indice) {
  if (indice == kNumero) TrabajadorAnterior = TextoRecortado(kNumero);
  if (indice == kSituacion) SituacionAnterior = TextoRecortado(kSituacion);
  if (CampoDe(indice)->Tiene(kFecha)) Text1(indice).SetText(FichaTrabajador::SeisDigitos(Texto(indice)));
}

// The order of the steps is part of the rules: one leaving can run several of them.
void Trabajadores::SalidaCampo(int indice) {
  const CampoTrabajador& campo = *CampoDe(indice);
  if (campo.Tiene(kVista)) return;
  if (campo.Tiene(kCeros)) RellenaCeros(indice);
  if (indice == kNumero) return SalidaNumero();
  if (indice == kSituacion) return SalidaSituacion();
  CompletaOtrosCampos(indice);
  if (RechazaValor(indice)) return;
  if (campo.Tiene(kFecha)) Text1(indice).SetText(FormatoFecha(Text1(indice), Host().Boxes(), ficha_.Ventana(indice)));
  if (indice == kFechaFin) CompruebaFechaFin();
  const bool segundo_contrato = indice == kTipo2 || indice == kInicioBonificacion2 || indice == kFinBonificacion2;
  if (segundo_contrato && !Vacio(indice) && Vacio(kTipo1)) {
    Mensaje("No se puede introducir el segundo contrato si no se ha introducido antes el primero");
    Text1(indice).SetText("");
  }
  if (campo.Tiene(kCodigo)) BuscaCodigo(indice);
}

void Trabajadores::RellenaCeros(int indice) {
  const std::string texto = TextoRecortado(indice);
  if (texto.empty()) return;
  const int faltan = Text1(indice).MaxLength() - static_cast<int>(Len(texto));
  if (faltan > 0) Text1(indice).SetText(Repeat('0', faltan) + texto);
}

void Trabajadores::Vacia(int desde, int hasta) {
  for (int indice = desde; indice <= hasta; ++indice) Text1(indice).SetText("");
}

// Another number: its worker, or an empty screen in which a new one starts.
void Trabajadores::SalidaNumero() {
  const std::string numero = TextoRecortado(kNumero);
  if (numero == TrabajadorAnterior) return;
  Olvida();
  TrabajadorAnterior = numero;
  navegacion_.Recuerda({numero});
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

// What other fields take from this one, and what they lose by it.
void Trabajadores::CompletaOtrosCampos(int indice) {
  const auto propone = [&](int fecha) {
    if (Vacio(indice) || !Vacio(fecha)) return;
    Text1(fecha).SetText(FormatoFecha(Text1(indice), Host().Boxes(), ficha_.Ventana(indice)));
  };
  const auto excluye = [&](int otro) {
    if (!Vacio(indice)) Text1(otro).SetText("");
  };
  switch (indice) {
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
        ComprobarCuenta(Texto(kEntidad), Texto(kOficina), Texto(kControlCuenta), Texto(kCuenta), Host().Boxes());
      }
      break;
    default:
      break;
  }
  if (CampoDe(indice)->Tiene(kContrato) && Vacio(indice)) Vacia(indice + 1, indice + kCamposContrato - 1);
}

bool Trabajadores::RechazaValor(int indice) {
  if (Vacio(indice)) return false;
  if (indice == kDiasParcial) return RechazaDias();
  if (indice == kGrupoTarifa) {
    const double grupo = ValorNumero(Texto(indice));
    // Told, not refused.
    if (grupo < kPrimerGrupoTarifa || grupo > kUltimoGrupoTarifa) {
      Mensaje("El número del Grupo de tarifa tiene que estar entre el 1 y el 11");
    }
    return false;
  }
  const MaximoCampo* maximo = MaximoDe(indice);
  if (!maximo || ValorNumero(Texto(indice)) <= maximo->maximo) return false;
  Mensaje(std::string(maximo->mensaje));
  Text1(indice).SetText("");
  Text1(indice).SetFocus();
  return true;
}

// A number of days, or letters of the week.
bool Trabajadores::RechazaDias() {
  TextBox& campo = Text1(kDiasParcial);
  if (IsNumeric(campo.Text()) && CDbl(campo.Text()) <= kMaximoDias) return false;
  const std::string dias = Trim(UCase(campo.Text()));
  campo.SetText(dias);
  if (dias.find_first_not_of(kDiasSemana) == std::string::npos) return false;
  Mensaje(
      "El valor introducido no es válido, solo se permiten los valores: L, M, X, J, V, S, D y número de días inferior "
      "a 30.");
  campo.SetFocus();
  return true;
}

void Trabajadores::CompruebaFechaFin() {
  if (Vacio(kFechaFin)) return;
  if (Vacio(kFechaInicio)) {
    Mensaje("Debe introducir antes la fecha de inicio de la situación");
    Text1(kFechaFin).SetText("");
    Text1(kFechaInicio).SetFocus();
  } else if (CDbl(DateDiffDays(Texto(kFechaInicio), Texto(kFechaFin), sesion_.VentanaFechas)) < 0) {
    Mensaje("La fecha de fin de situación no puede ser anterior a la de inicio");
    Text1(kFechaFin).SetFocus();
  }
}

// What a code stands for, in the fields after it.
void Trabajadores::BuscaCodigo(int indice) {
  if (Vacio(indice)) {
    Text1(indice + 1).SetText("");
  } else if (const DescripcionCampo* d = DescripcionDe(indice)) {
    Text1(indice + 1).SetText(BuscarDescripcion(d->ranura, TextoRecortado(indice), d->columna, d->indice_tabla));
  } else if (CampoDe(indice)->Tiene(kContrato)) {
    BuscarContrato(indice);
  } else if (indice == kCategoria) {
    BuscaCategoria();
  } else if (indice == kGrupoTarifa) {
    const std::string_view texto = TextoGrupoTarifa(TextoRecortado(kGrupoTarifa));
    if (!texto.empty()) Text1(kDescripcionGrupoTarifa).SetText(std::string(texto));
  }
}

std::string Trabajadores::BuscarDescripcion(int ranura, const std::string& clave, int columna,
                                            std::string_view indice) {
  sesion_.platform.engine->Idle(1);
  Recordset& tabla = sesion_.Tabla(ranura);
  tabla.SetIndex(indice);
  tabla.Seek({clave});
  if (!tabla.NoMatch()) return TextoNoNulo(tabla.Fields(columna).Get());
  Mensaje("El dato introducido no existe en la tabla");
  return {};
}

// Categories are numbered within their agreement.
void Trabajadores::BuscaCategoria() {
  constexpr int kColumnaNombre = 3;
  Recordset& tabla = sesion_.Tabla(kConEmpresaConceptos);
  tabla.SetIndex("ICampo0_2");
  tabla.Seek({TextoRecortado(kConvenio), TextoRecortado(kCategoria)});
  if (tabla.NoMatch()) {
    Mensaje("La categoría seleccionada para este convenio no existe.");
    Text1(kDescripcionCategoria).SetText("");
  } else {
    Text1(kDescripcionCategoria).SetText(TextoNoNulo(tabla.Fields(kColumnaNombre).Get()));
  }
}

// `indice`: the type of one of the three contracts.
void Trabajadores::BuscarContrato(int indice) {
  AbreFichero(sesion_, FileKind::kOfficial);
  sesion_.RsAuxiliar = sesion_.BDEmpresa->OpenRecordset(
      "SELECT Campo1,Campo2, Campo3, Campo4 FROM Contratos WHERE Campo1 = '" + SqlText(TextoRecortado(indice)) +
      "' AND Campo0 = '" + SqlText(TextoRecortado(kNumeroContrato)) + "' ORDER BY Campo1 ");
  const Recordset& contrato = *sesion_.RsAuxiliar;
  if (contrato.Eof()) {
    Mensaje("El contrato seleccionado no existe");
    Vacia(indice + 1, indice + 3);
    return;
  }
  for (int i = 0; i <= 3; ++i) Text1(indice + i).SetText(TextoNoNulo(sesion_.RsAuxiliar->Fields(i).Get()));
}

}  // namespace zendara

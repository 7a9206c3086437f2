// The situaciones of the worker on the screen: a new one, one less, and whether the one shown may be saved.
#include "common/busqueda.hpp"
#include "frame/bases_datos.hpp"
#include "frame/catalogo.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/format.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "values/valor_numero.hpp"
#include "workers/reglas_situacion.hpp"
#include "workers/trabajadores.hpp"

namespace zendara {

using enum CampoTrabajador;

namespace {

constexpr int kPaginaSituacion = 4;  // of Tab1
constexpr int kPaginaContrato = 1;   // of Tab2

}  // namespace

std::string Trabajadores::UltimaSituacion(const std::string& trabajador) {
  AbreFichero(sesion_, FileKind::kCompany);
  sesion_.RsAuxiliar = sesion_.BDEmpresa->OpenRecordset(
      "SELECT campo0 ,campo1,Campo3 FROM TRABAJADORESVAR WHERE Campo0='" + SqlText(trabajador) + "' ORDER BY Campo3");
  sesion_.RsAuxiliar->MoveLast();
  return TextoNoNulo(sesion_.RsAuxiliar->Fields("Campo1").Get());
}

// It stands on the screen alone until it is saved.
void Trabajadores::NuevaSituacionEnPantalla() {
  if (Vacio(kNumero)) return;
  const double ultima = Val(UltimaSituacion(TextoRecortado(kNumero)));
  Text1(kSituacion).SetText(FormatText(ultima + 1, "000;;"));
  ficha_.Vacia(kDescripcionSituacion, kFechaFin);
  RespuestaNueva = Boxes().Show(
      {.text = "¿Desea copiar los datos de la situación actual en la nueva situacion", .buttons = BoxButtons::kYesNo});
  if (RespuestaNueva == BoxAnswer::kNo) {
    ficha_.Limpia(kPrimeroVar, kUltimoTexto);
  } else {
    Text1(kFechaInicio).SetFocus();
  }
}

void Trabajadores::BorraSituacion() {
  AbreFichero(sesion_, FileKind::kCompany);
  sesion_.RsAuxiliar = sesion_.BDEmpresa->OpenRecordset(
      "SELECT campo0 ,campo1,Campo3 FROM TRABAJADORESVAR WHERE Campo0='" + SqlText(Texto(kNumero)) + "' ");
  if (sesion_.RsAuxiliar->Eof()) return;
  sesion_.RsAuxiliar->MoveLast();
  if (sesion_.RsAuxiliar->RecordCount() == 1) {
    Mensaje("El trabajador debe tener registrada al menos una situación.");
    return;
  }
  if (!Busca(sesion_, kTrabajadoresVar, "Icampo0_1", {Texto(kNumero), Texto(kSituacion)})) {
    Host().DoEvents();
    Mensaje("No existe el Registro que se pretende borrar");
    return;
  }
  sesion_.Tabla(kTrabajadoresVar).Delete();
  ficha_.Limpia(kPrimeroVar, kUltimoTexto);
}

bool Trabajadores::ValidarFechasContratos() {
  const FaltaContratos falta = CompruebaFechasContratos(
      {TextoRecortado(kInicioBonificacion1), TextoRecortado(kFinBonificacion1), TextoRecortado(kInicioBonificacion2),
       TextoRecortado(kFinBonificacion2), TextoRecortado(kInicioBonificacion3), TextoRecortado(kFinBonificacion3)},
      sesion_.VentanaFechas);
  switch (falta) {
    case FaltaContratos::kAnteriorAbierto:
      Mensaje("No se puede registrar un nuevo contrato hasta que el anterior ha finalizado");
      return false;
    case FaltaContratos::kSolapados:
      Mensaje("Las fechas de inicio y fin del intervalo no se pueden solapar entre si");
      Tab1.SetTab(kPaginaSituacion);
      Tab2.SetTab(kPaginaContrato);
      return false;
    case FaltaContratos::kNinguna:
      break;
  }
  return true;
}

bool Trabajadores::ValidarIntervaloSituacion() {
  const IntervaloSituacion nueva = {TextoRecortado(kSituacion), TextoRecortado(kFechaInicio),
                                    TextoRecortado(kFechaFin)};
  AbreFichero(sesion_, FileKind::kCompany);
  sesion_.RsAuxiliar =
      sesion_.BDEmpresa->OpenRecordset("SELECT Campo1, Campo3, Campo4 FROM TRABAJADORESVAR WHERE Campo0 = '" +
                                       SqlText(TextoRecortado(kNumero)) + "' ORDER BY Campo3 ");
  Recordset& filas = *sesion_.RsAuxiliar;
  const auto texto = [&](int columna) { return TextoNoNulo(filas.Fields(columna).Get()); };
  for (; !filas.Eof(); filas.MoveNext()) {
    const auto falta = ComparaIntervalos(nueva, {texto(0), texto(1), texto(2)}, sesion_.VentanaFechas);
    if (!falta) continue;
    Mensaje(falta->mensaje, falta->icono);
    if (falta->campo) Text1(*falta->campo).SetFocus();
    return false;
  }
  return true;
}

}  // namespace zendara

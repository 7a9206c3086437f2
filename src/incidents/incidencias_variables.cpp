#include "incidents/incidencias_variables.hpp"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "common/busqueda.hpp"
#include "frame/bases_datos.hpp"
#include "frame/catalogo.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/characters.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "values/nombres.hpp"
#include "values/valor_numero.hpp"

namespace zendara {
namespace {

using enum CampoVariable;

constexpr std::string_view kMascaraMes = "00;; ";
constexpr std::string_view kMascaraTrabajador = "00000;; ";
constexpr std::string_view kMascaraTres = "000;; ";

constexpr unsigned kCodigo = kClave | kNumerico;
constexpr Campo kCampos[] = {
    {kMes, TipoCampo::kTexto, "Mes.......:", 2, kCodigo},
    {kTrabajador, TipoCampo::kTexto, "Nº de Trabajador............:", 5, kCodigo},
    {kNombre, TipoCampo::kTexto, "Nombre", 25, kVista},
    {kSituacion, TipoCampo::kTexto, "Situación..........................:", 3, kCodigo},
    {kConcepto, TipoCampo::kTexto, "Número Concepto............:", 3, kCodigo},
    {kDescripcion, TipoCampo::kTexto, "Descripción", 8, kVista},
    {kImporteConcepto, TipoCampo::kTexto, "Importe.............................:", 9, kImporte},
    {kUnidades, TipoCampo::kTexto, "Unidades..........................:", 5, kNumerico},
};
constexpr IndiceCampo kCamposClave[] = {kMes, kTrabajador, kSituacion, kConcepto};
constexpr CampoVariable kConLista[] = {kTrabajador, kSituacion, kConcepto};

constexpr DisenoIncidencias kDiseno = {
    .pantalla = "MIncidenciasVAR",
    .leyenda = "Incidencias Conceptos Variables",
    .contexto_ayuda = 30003,
    .pista_grabar = " Graba Incidencias ",
    .pista_borrar = " Borra Incidencias ",
    .ranura = kTIncidenciasVar,
    .fichero = FileKind::kYear,
    .indice = "ICampo0_1_3_4",
    .clave = kCamposClave,
    .campos = kCampos,
    .trabajador = kTrabajador,
    .nombre = kNombre,
    .lista_sin_filas = true,
};

// The fields without which nothing is saved, in the order in which they are looked at.
constexpr struct {
  CampoVariable campo;
  std::string_view mensaje;
} kObligatorios[] = {
    {kTrabajador, "Es preciso introducir el Nº del Trabajador"},
    {kMes, "Es preciso introducir el Mes"},
    {kSituacion, "Es preciso introducir la Situación"},
    {kConcepto, "Es preciso introducir el Concepto"},
};

// Columns of ConTrabajadorConceptos.
constexpr int kColumnaDescripcion = 4;
constexpr int kColumnaImporte = 19;

}  // namespace

MIncidenciasVAR::MIncidenciasVAR(Sesion& sesion, RegistroPantallas& pantallas)
    : PantallaIncidencias(sesion, pantallas, kDiseno) {
  for (const Campo& campo : kCampos) CreaTexto(campo);
  for (const auto& obligatorio : kObligatorios) Text1(IndiceCampo(obligatorio.campo)).SetRequired(true);
  for (const CampoVariable campo : kConLista) Image1.Add(IndiceCampo(campo));

  const auto caja = [this](CampoVariable campo) -> TextBox& { return Text1(IndiceCampo(campo)); };
  // A code with its list and what it stands for.
  const auto codigo = [&](CampoVariable campo, CampoVariable texto) {
    return Row({Place(caja(campo), {&Image1(IndiceCampo(campo))}), Unlabelled(Place(caja(texto))), Space()});
  };
  SetLayout(Disposicion({
      Row({Place(caja(kMes), {&lbMes}), Space()}),
      codigo(kTrabajador, kNombre),
      Row({Place(caja(kSituacion), {&Image1(IndiceCampo(kSituacion))}), Space()}),
      codigo(kConcepto, kDescripcion),
      Row({Place(caja(kImporteConcepto)), Space()}),
      Row({Place(caja(kUnidades)), Space()}),
  }));
  Conecta();
  const auto tecla = Text1.On().key_press;
  Text1.On().key_press = [this, tecla](int indice, int& caracter) {
    tecla(indice, caracter);
    if (static_cast<CampoVariable>(indice) == kMes) FiltraMes(caracter);
  };
  Text1.On().change = [this](int indice) {
    if (static_cast<CampoVariable>(indice) == kMes)
      lbMes.SetCaption(NombreMes(static_cast<std::int16_t>(Val(Texto(kMes)))));
  };
}

// With a first digit 1 the second one is 0 to 2; behind 2 to 9 none goes, and none is taken back.
void MIncidenciasVAR::FiltraMes(int& caracter) {
  const std::string mes = Texto(kMes);
  if (Len(mes) != 1 || mes == "0") return;
  if (caracter > '2' || Val(mes) > 1) caracter = 0;
}

// What the user is told.

std::string MIncidenciasVAR::Expected() const {
  const Control* foco = Focus();
  if (!foco || foco->Name() != "Text1") return {};
  switch (static_cast<CampoVariable>(foco->Index())) {
    case kMes:
      return "Mes: 01 a 12";
    case kTrabajador:
      return "Hasta 5 cifras · F2: lista · Ctrl+F: buscar";
    case kSituacion:
      return "Hasta 3 cifras · F2: las del trabajador";
    case kConcepto:
      return "Hasta 3 cifras · F2: los del mes";
    case kImporteConcepto:
      return "Importe";
    case kUnidades:
      return "Unidades";
    case kNombre:
    case kDescripcion:
      break;
  }
  return {};
}

std::string MIncidenciasVAR::Position() const {
  return ficha_.Cambiado(kConcepto) ? std::string() : "Incidencia grabada";
}

std::string MIncidenciasVAR::Resumen() const {
  return Trim(Texto(kTrabajador) + " " + Texto(kNombre)) + ", mes " + Texto(kMes) + ", situación " + Texto(kSituacion) +
         ", concepto " + Trim(Texto(kConcepto) + " " + Texto(kDescripcion));
}

// The row.

void MIncidenciasVAR::PonElegido(const std::string& trabajador, const std::string& situacion) {
  OlvidaClaves();
  Pon(kTrabajador, trabajador);
  Pon(kSituacion, situacion);
  calendario_.PonTrabajador(trabajador);
  if (!trabajador.empty()) SetStatus("Viene de Trabajadores: al escribir el mes se vacían trabajador y situación.");
}

void MIncidenciasVAR::OlvidaClaves() {
  for (std::string* anterior : {&MesAnterior, &SituacionAnterior, &ConceptoAnterior}) {
    anterior->clear();
  }
}

// A Null is answered by an empty name, whichever column it is, and its field keeps what it has.
void MIncidenciasVAR::MuestraRegistro() {
  Guarda([this] {
    Recordset& fila = Tabla();
    for (const Campo& campo : kCampos) {
      const Value valor = fila.Fields(campo.indice - 1).Get();
      valor.IsNull() ? Pon(kNombre, "") : Pon(campo.indice, CStr(valor));
    }
    Anota(fila, kMes, kUnidades);
  });
}

void MIncidenciasVAR::AsignaCampos() {
  Recordset& fila = Tabla();
  for (const Campo& campo : kCampos) {
    const std::string texto = Texto(campo.indice);
    const Value valor = Queda(campo.indice, texto.empty() ? Value() : Value(texto));
    if (!valor.IsNull()) fila.Fields(campo.indice - 1).Set(valor);
  }
}

// The situación with the highest number.
void MIncidenciasVAR::Poneregistro() {
  AbreFichero(sesion_, FileKind::kCompany);
  Recordset& filas = Lee("SELECT MAX(CAMPO1) From TRABAJADORESVAR where campo0='" + SqlText(Texto(kTrabajador)) + "'");
  if (!filas.Eof()) Pon(kSituacion, CStr(filas.Fields(0).Get()));
}

// Buttons.

bool MIncidenciasVAR::CompruebaDatos() {
  return std::ranges::any_of(
      kObligatorios, [this](const auto& obligatorio) { return FaltaCodigo(obligatorio.campo, obligatorio.mensaje); });
}

void MIncidenciasVAR::GrabaComprobado() {
  const std::string resumen = Resumen();
  GrabarRegistro();
  CancelaFicha();
  DiGrabado(resumen);
}

// The month stays after saving.
void MIncidenciasVAR::CancelaFicha() {
  SetPointer(MousePointer::kHourglass);
  LimpiaCampos(Cancela.Value() || Borrar.Value() ? kMes : kTrabajador, kUnidades);
  Text1(IndiceCampo(kMes)).SetFocus();
  OlvidaClaves();
  SetPointer(MousePointer::kDefault);
}

bool MIncidenciasVAR::EscSale() const { return Val(Texto(kMes)) == 0 || Val(Texto(kTrabajador)) == 0; }

// Fields.

void MIncidenciasVAR::EntradaCampo(int indice) {
  if (static_cast<CampoVariable>(indice) == kTrabajador) CodigoAlEntrar = Texto(kTrabajador);
}

void MIncidenciasVAR::SalidaCampo(int indice) {
  Guarda([&] {
    switch (static_cast<CampoVariable>(indice)) {
      case kMes:
        return SalidaMes();
      case kTrabajador:
        return SalidaTrabajador();
      case kSituacion:
        return SalidaSituacion();
      case kConcepto:
        return SalidaConcepto();
      case kUnidades:
        return Grabar.SetFocus();
      case kNombre:
      case kDescripcion:
      case kImporteConcepto:
        break;
    }
  });
}

void MIncidenciasVAR::DejaVacio(CampoVariable campo) {
  Pon(campo, "");
  Text1(IndiceCampo(campo)).SetFocus();
}

void MIncidenciasVAR::Rechaza(CampoVariable campo, const std::string& texto) {
  Mensaje(texto, Text1(IndiceCampo(campo)));
  DejaVacio(campo);
}

// Another month is another entry, from the worker on.
void MIncidenciasVAR::SalidaMes() {
  if (Texto(kMes) != MesAnterior) LimpiaCampos(kTrabajador, kUnidades);
  Formatea(kMes, kMascaraMes);
  MesAnterior = Texto(kMes);
}

// Whoever stands there counts as another one, the same worker too.
void MIncidenciasVAR::SalidaTrabajador() {
  Formatea(kTrabajador, kMascaraTrabajador);
  if (Trim(Texto(kTrabajador)).empty() || sesion_.Tabla(kTrabajadoresFijo).IsEmpty()) return;
  if (!LlamaTrabajador()) return;
  LimpiaCampos(kSituacion, kUnidades);
  ProponeSituacion();
}

// The one that began last; the list of workers proposes the one with the highest number.
void MIncidenciasVAR::ProponeSituacion() {
  AbreFichero(sesion_, FileKind::kCompany);
  const auto filas = sesion_.BDEmpresa->OpenRecordset(
      "SELECT campo0 ,campo1,Campo2,Campo3 FROM TRABAJADORESVAR WHERE Campo0='" + SqlText(Trim(Texto(kTrabajador))) +
      "' GROUP BY campo0,campo1,CAMPO2,CAMPO3 ORDER BY Campo3");
  if (filas->IsEmpty()) return;
  filas->MoveLast();
  Pon(kSituacion, TextoNoNulo(filas->Fields(1).Get()));
}

void MIncidenciasVAR::SalidaSituacion() {
  Formatea(kSituacion, kMascaraTres);
  const std::string situacion = Texto(kSituacion);
  if (situacion == SituacionAnterior) return;
  SituacionAnterior = situacion;
  if (Val(situacion) == 0) return DejaVacio(kSituacion);
  if (sesion_.Tabla(kTrabajadoresVar).IsEmpty()) return;
  if (!Busca(sesion_, kTrabajadoresVar, "Icampo0_1", {Texto(kTrabajador), situacion})) {
    return Rechaza(kSituacion, "No existe esa situación para ese trabajador");
  }
  LimpiaCampos(kConcepto, kUnidades);
}

void MIncidenciasVAR::SalidaConcepto() {
  Formatea(kConcepto, kMascaraTres);
  const std::string concepto = Texto(kConcepto);
  if (concepto == ConceptoAnterior) return;
  ConceptoAnterior = concepto;
  if (Val(concepto) == 0) return Pon(kConcepto, "");
  if (sesion_.Tabla(kConTrabajadorConceptos).IsEmpty()) {
    return Rechaza(kConcepto, "No hay ninguna convenio para esta situacion");
  }
  const std::vector<Value> clave = {Texto(kMes), Texto(kTrabajador), Texto(kSituacion), concepto};
  if (!Busca(sesion_, kConTrabajadorConceptos, "Icampo0_1_2_3", clave)) {
    return Rechaza(kConcepto, "No existe concepto para esa situación, de ese trabajador, en ese mes");
  }
  if (!Tabla().IsEmpty() && Busca(sesion_, kTIncidenciasVar, "Icampo0_1_3_4", clave)) return MuestraRegistro();
  ProponeConcepto();
}

// The first entry of all takes the description alone.
void MIncidenciasVAR::ProponeConcepto() {
  const auto columna = [this](int ordinal) {
    return Trim(TextoNoNulo(sesion_.Tabla(kConTrabajadorConceptos).Fields(ordinal).Get()));
  };
  Pon(kDescripcion, columna(kColumnaDescripcion));
  LimpiaCampos(kImporteConcepto, kUnidades);
  for (const IndiceCampo indice : kCamposClave) Settle(Text1(indice));
  if (Tabla().IsEmpty()) return Text1(IndiceCampo(kImporteConcepto)).SetFocus();
  Pon(kImporteConcepto, columna(kColumnaImporte));
  if (!Texto(kImporteConcepto).empty()) Text1(IndiceCampo(kUnidades)).SetFocus();
}

// Lists.

void MIncidenciasVAR::AbreLista(int indice) {
  const auto campo = static_cast<CampoVariable>(indice);
  if (campo == kTrabajador) return EligeTrabajadorDeLista();
  TextBox& caja = Text1(indice);
  if (campo == kSituacion) {
    return Elige(caja, kListaSituacionesTrabajador, {Texto(kTrabajador)}, {Trim(caja.Text())},
                 [this](const std::vector<std::string>& cortes) { Pon(kSituacion, cortes[0]); });
  }
  const std::vector<std::string> parametros = {Texto(kMes), Texto(kTrabajador), Texto(kSituacion)};
  Elige(caja, kListaConceptosTrabajador, parametros, {Trim(caja.Text()), ""}, [this](const auto& cortes) {
    Pon(kConcepto, cortes[0]);
    Pon(kDescripcion, cortes[1]);
  });
}

}  // namespace zendara

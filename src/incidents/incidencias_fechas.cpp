#include "incidents/incidencias_fechas.hpp"

#include <utility>
#include <vector>

#include "frame/bases_datos.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/format.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "values/formato_fecha.hpp"

namespace zendara {
namespace {

using enum CampoFechas;

constexpr int kPitidos = 11;
constexpr int kAnchoTipo = 22;  // of its words

}  // namespace

IncidenciasFechas::IncidenciasFechas(Sesion& sesion, RegistroPantallas& pantallas, TablaIncidencias tabla)
    : PantallaIncidencias(sesion, pantallas, DisenoDe(tabla).comun), diseno_fechas_(DisenoDe(tabla)) {
  CreaCampos();
  for (const int imagen : {static_cast<int>(kTrabajador), kImagenTipo, static_cast<int>(kInicio)}) Image1.Add(imagen);
  Frame1.SetCaption("Datos Incidencia");
  const auto lugar = [this](CampoFechas campo, int imagen) {
    return Row({Place(*ficha_.ControlDe(campo), {&Image1(imagen)}), Space()});
  };
  SetLayout(Disposicion({
      Row({Place(Text1(IndiceCampo(kTrabajador)), {&Image1(IndiceCampo(kTrabajador))}),
           Unlabelled(Place(Text1(IndiceCampo(kNombre)))), Space()}),
      Framed(Frame1, {Row({Place(Combo1, {&Image1(kImagenTipo)}), Unlabelled(Place(Text2)), Space()}),
                      lugar(kInicio, IndiceCampo(kInicio)), Row({Place(Text1(IndiceCampo(kFin))), Space()})}),
  }));
  RecordComesWhole();
  Conecta();
  ConectaTipo();
}

void IncidenciasFechas::CreaCampos() {
  for (const Campo& campo : CamposFechas()) {
    if (campo.tipo == TipoCampo::kLista) {
      std::vector<std::string> codigos;
      for (const TipoIncidencia& tipo : kTiposIncidencia) {
        if (tipo.tabla == diseno_fechas_.tabla) codigos.emplace_back(tipo.codigo);
      }
      Combo1.SetItems(std::move(codigos));
      Combo1.SetEditable(true);
      ficha_.Anade(campo, Combo1);
      continue;
    }
    CreaTexto(campo);
  }
  Text1(IndiceCampo(kTrabajador)).SetRequired(true);
  Text1(IndiceCampo(kInicio)).SetRequired(true);
  Text2.SetCaption("Tipo");
  Text2.SetWidth(kAnchoTipo);
  Text2.SetEnabled(false);
}

void IncidenciasFechas::ConectaTipo() {
  Combo1.SetBackColor(kGrey);
  Combo1.On().got_focus = [this](int) { Combo1.SetBackColor(kWhite); };
  Combo1.On().lost_focus = [this](int) { Combo1.SetBackColor(kGrey); };
  Combo1.On().click = [this](int) {
    if (Combo1.ListIndex() < 0) return Combo1.SetText("");
    MuestraTipo(std::to_string(Combo1.ListIndex() + 1));
  };
  Combo1.On().key_down = [this](int, int& tecla, int) {
    if (tecla == key::kF2) AbreLista(kImagenTipo);
  };
  Combo1.On().key_press = [this](int, int& caracter) {
    Combo1.SetText("");
    const std::string codigo = Utf8(caracter);
    if (!TextoTipo(diseno_fechas_.tabla, codigo).empty()) return MuestraTipo(codigo);
    for (int pitido = 0; pitido < kPitidos; ++pitido) Boxes().Beep();
    caracter = 0;
    Text2.SetText("");
  };
  Text1.On().change = [this](int) { calendario_.PonTecleado(diseno_fechas_.tabla, Texto(kInicio), Texto(kFin)); };
}

// What the user is told.

std::string IncidenciasFechas::Expected() const {
  const Control* foco = Focus();
  if (foco == &Combo1) return "Cifra del tipo · F2: lista";
  if (!foco || foco->Name() != "Text1") return {};
  switch (static_cast<CampoFechas>(foco->Index())) {
    case kTrabajador:
      return "Hasta 5 cifras · F2: lista · Ctrl+F: buscar";
    case kInicio:
      return "Fecha: ddmmaa · F2: sus fechas";
    case kFin:
      return "Fecha: ddmmaa, o nada si sigue abierta";
    case kNombre:
    case kTipo:
      break;
  }
  return {};
}

std::string IncidenciasFechas::Position() const {
  return ficha_.Cambiado(kInicio) ? std::string() : "Incidencia grabada";
}

std::string IncidenciasFechas::Resumen() const {
  const std::string tipo(TextoTipo(diseno_fechas_.tabla, Texto(kTipo)));
  const std::string fin = ConBarras(Texto(kFin));
  const std::string inicio = ConBarras(Texto(kInicio));
  return Trim(Texto(kTrabajador) + " " + Texto(kNombre)) + ", " + (tipo.empty() ? "sin tipo" : tipo) +
         (fin.empty() ? " desde el " + inicio + ", abierta" : " del " + inicio + " al " + fin);
}

void IncidenciasFechas::MuestraTipo(const std::string& codigo) {
  const std::string_view texto = TextoTipo(diseno_fechas_.tabla, codigo);
  if (!texto.empty()) Text2.SetText(std::string(texto));
}

// The row.

void IncidenciasFechas::PonElegido(const std::string& trabajador, const std::string&) {
  Pon(kNombre, "");
  Pon(kTrabajador, trabajador);
  calendario_.PonTrabajador(trabajador);
  if (!trabajador.empty()) SetStatus("Viene de Trabajadores: F2 trae su nombre y la incidencia que tenga abierta.");
}

void IncidenciasFechas::LimpiaCampos(IndiceCampo desde, IndiceCampo hasta) {
  PantallaIncidencias::LimpiaCampos(desde, hasta);
  Combo1.SetText("");
  Text2.SetText("");
}

void IncidenciasFechas::PonFecha(CampoFechas campo, const Value& valor) {
  Pon(campo, CStr(FormatDate(valor, "dd/mm/yy", sesion_.VentanaFechas)));
}

// A Null is answered by an empty end, whichever column it is, and its field keeps what it has.
void IncidenciasFechas::MuestraRegistro() {
  Guarda([this] {
    Recordset& fila = Tabla();
    const auto muestra = [&](ColumnaFechas columna, const auto& pon) {
      const Value valor = fila.Fields(columna).Get();
      valor.IsNull() ? Pon(kFin, "") : pon(valor);
    };
    muestra(kColumnaTrabajador, [this](const Value& valor) { Pon(kTrabajador, CStr(valor)); });
    muestra(kColumnaNombre, [this](const Value& valor) { Pon(kNombre, CStr(valor)); });
    muestra(kColumnaTipo, [this](const Value& valor) { Combo1.SetText(CStr(valor)); });
    muestra(kColumnaInicio, [this](const Value& valor) { PonFecha(kInicio, valor); });
    muestra(kColumnaFin, [this](const Value& valor) { PonFecha(kFin, valor); });
    MuestraTipo(Combo1.Text());
    Anota(fila, kTrabajador, kFin);
  });
}

// The open incident of the worker, the first one of several.
void IncidenciasFechas::Poneregistro() {
  AbreFichero(sesion_, FileKind::kCompany);
  Recordset& filas = Lee("select * from " + std::string(diseno_fechas_.nombre_tabla) + " where campo0='" +
                         SqlText(Texto(kTrabajador)) + "'");
  for (; !filas.Eof(); filas.MoveNext()) {
    if (!filas.Fields(kColumnaFin).Get().IsNull()) continue;
    Pon(kNombre, CStr(filas.Fields(kColumnaNombre).Get()));
    const std::string tipo = CStr(filas.Fields(kColumnaTipo).Get());
    Combo1.SetText(tipo);
    MuestraTipo(tipo);
    PonFecha(kInicio, filas.Fields(kColumnaInicio).Get());
    Pon(kFin, "");
    Anota(filas, kTrabajador, kFin);
    Text1(IndiceCampo(kFin)).SetFocus();
    return;
  }
  LimpiaCampos(kTipo, kFin);
  Settle(Text1(IndiceCampo(kTrabajador)));
  Settle(Text1(IndiceCampo(kNombre)));
}

void IncidenciasFechas::CancelaFicha() {
  SetPointer(MousePointer::kHourglass);
  LimpiaCampos(kTrabajador, kFin);
  Text1(IndiceCampo(kTrabajador)).SetFocus();
  SetPointer(MousePointer::kDefault);
}

bool IncidenciasFechas::EscSale() const { return Val(Texto(kTrabajador)) == 0 || Trim(Texto(kInicio)).empty(); }

}  // namespace zendara

#include "listings/imprgast.hpp"

#include <cstdint>
#include <utility>
#include <vector>

#include "common/busqueda.hpp"
#include "common/consulta.hpp"
#include "frame/bases_datos.hpp"
#include "frame/catalogo.hpp"
#include "frame/stored_tables.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/format.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "values/nombres.hpp"
#include "values/valor_numero.hpp"

namespace zendara {
namespace {

using enum CampoRango;

constexpr CampoRango kRangos[] = {kPrimero, kSegundo, kTercero};
constexpr int kCifrasTrabajador = 5;
constexpr int kAnchoNombre = 37;
constexpr std::string_view kIndiceTrabajador = "ICampo0";

enum TipoDePapel { kHojasSueltas, kPapelContinuo };
enum TipoDeDesglose { kConDesglose, kSinDesglose };

// Columns of the tables with dates, and of the one with months.
enum ColumnaFechas { kTrabajador, kNombre, kTipo, kInicio, kFin };
enum ColumnaVariable { kMes, kTrabajadorMes, kNombreMes, kSituacion, kColumnasCopiadas };
constexpr int kColumnasVariable = 8;

Marco MarcoListado() {
  return {.nombre = "Imprgast",
          .leyenda = "Listados",
          .contexto_ayuda = 0,
          .pistas = {{"Impresora", " Imprimir "}, {"Salir", " Regresar al menu anterior  "}},
          .de_otra = true};
}

}  // namespace

Imprgast::Imprgast(Sesion& sesion, RegistroPantallas& pantallas) : PantallaBase(sesion, pantallas, MarcoListado()) {
  std::vector<Layout> rangos;
  for (const CampoRango campo : kRangos) {
    TextBox& codigo = Text1.Add(IndiceCampoRango(campo));
    TextBox& texto = Text1.Add(IndiceCampoRango(Detras(campo)));
    codigo.SetMaxLength(kCifrasTrabajador);
    texto.SetCaption("Nombre");
    texto.SetWidth(kAnchoNombre);
    texto.SetEnabled(false);
    Image& imagen = Image1.Add(IndiceCampoRango(campo));
    rangos.push_back(Row({Place(codigo, {&imagen}), Unlabelled(Place(texto)), Space()}));
  }
  // A window is laid out before the screen loads.
  const ModoListado* modo = sesion_.FormActivo ? ModoDe(sesion_.FormActivo->Name()) : nullptr;
  if (modo) PonRotulos(*modo);
  FrameRango.SetCaption("Qué se lista");
  SSFrame2.SetCaption("Tipo de Papel");
  SSFrame8.SetCaption("Desglose Trimestral");
  Papel.Add(kHojasSueltas).SetCaption("&Hojas sueltas");
  Papel.Add(kPapelContinuo).SetCaption("&Papel continuo");
  Desglose.Add(kConDesglose).SetCaption("Con &Desglose");
  Desglose.Add(kSinDesglose).SetCaption("S&in Desglose");
  Impresora.SetCaption("I&mpresora");

  SetLayout(Row(
      {Place(Picture25),
       Column({Cabecera(),
               Scrolled(Column(
                   {Framed(FrameRango, std::move(rangos)),
                    Row({Framed(SSFrame2, {Place(Papel(kHojasSueltas)), Place(Papel(kPapelContinuo))}),
                         Framed(SSFrame8, {Place(Desglose(kConDesglose)), Place(Desglose(kSinDesglose))}), Space()}),
                    Space()})),
               Flow({MainButton(Impresora), Space(), Place(Salir)}), TiraAnuncio()})}));
  ConectaMarco();
  Papel.On().click = [this](int indice) { TipoPapel = indice == kHojasSueltas ? "N" : "C"; };
  Impresora.On().click = [this](int) { Guarda([this] { Imprime(); }); };
  const auto tecla = Text1.On().key_down;
  Text1.On().key_down = [this, tecla](int indice, int& codigo, int turno) {
    tecla(indice, codigo, turno);
    const auto campo = static_cast<CampoRango>(indice);
    if (codigo == key::kEnter && Texto(campo).empty() && !Modo().pide_mes) Guarda([&] { PonExtremo(campo); });
  };
}

const ModoListado& Imprgast::Modo() const {
  if (!sesion_.FormActivo) throw RuntimeError(kObjectNotSet);
  const ModoListado* modo = ModoDe(sesion_.FormActivo->Name());
  if (!modo) throw RuntimeError(kInvalidCall);
  return *modo;
}

void Imprgast::OnLoad() {
  Guarda([this] {
    CreaAnuncio();
    PintaLeyenda();
    PonTitulos();
    PonTamano();
    sesion_.NomEmpresa = Trim(sesion_.NomEmpresa.str());
    Papel(kPapelContinuo).SetValue(true);
    PonModo();
  });
}

void Imprgast::PonRotulos(const ModoListado& modo) {
  Caja(kPrimero).SetCaption(modo.primero);
  Caja(kSegundo).SetCaption(modo.segundo);
  Caja(kTercero).SetCaption("A Trabajador");
}

void Imprgast::PonModo() {
  const ModoListado& modo = Modo();
  SetTitle("Listados: " + sesion_.FormActivo->Title());
  Caja(kPrimero).SetMaxLength(modo.largo_primero);
  for (const CampoRango campo : {kTercero, kTextoTercero}) Caja(campo).SetVisible(modo.pide_mes);
  Image1(IndiceCampoRango(kTercero)).SetVisible(modo.pide_mes);
}

std::string Imprgast::Expected() const {
  const Control* foco = Focus();
  if (!foco || foco->Name() != "Text1" || !sesion_.FormActivo) return {};
  const auto campo = static_cast<CampoRango>(foco->Index());
  const bool primero = campo == (Modo().pide_mes ? kSegundo : kPrimero);
  return std::string(primero ? "Vacío: el primero" : "Vacío: el último") + " · F2: lista";
}

HelpPlace Imprgast::HelpOnFocus() const { return {.link = "listado_incidencias.md", .words = {}}; }

// Up from the first field goes to the kind of paper.
void Imprgast::OnKeyDown(int& code, int shift) {
  if (code == key::kUp && CampoActivo == IndiceCampoRango(kPrimero)) {
    code = 0;
    Papel(Papel(kHojasSueltas).Value() ? kHojasSueltas : kPapelContinuo).SetFocus();
    return;
  }
  PantallaBase::OnKeyDown(code, shift);
}

// Fields.

void Imprgast::Pon(CampoRango campo, const Value& valor, const Value& texto) {
  Caja(campo).SetText(TextoNoNulo(valor));
  Caja(Detras(campo)).SetText(TextoNoNulo(texto));
}

void Imprgast::LimpiaCampo(CampoRango campo) { Pon(campo, "", ""); }

bool Imprgast::CompruebaCampo(CampoRango campo) {
  TextBox& caja = Caja(campo);
  if (!caja.Visible() || !LTrim(caja.Text()).empty()) return false;
  caja.SetFocus();
  Host().DoEvents();
  Mensaje("Es preciso especificar " + caja.Caption());
  return true;
}

void Imprgast::SalidaCampo(int indice) {
  Guarda([&] {
    BDAnual = AbreAparte(sesion_, FileKind::kYear);
    const auto campo = static_cast<CampoRango>(indice);
    if (!Modo().pide_mes) return SalidaTrabajador(campo);
    campo == kPrimero ? SalidaMes() : SalidaTrabajadorMes(campo);
  });
}

void Imprgast::PonExtremo(CampoRango campo) {
  Recordset& tabla = sesion_.Tabla(Modo().ranura);
  if (tabla.IsEmpty()) return;
  if (campo == kPrimero) {
    tabla.MoveFirst();
  } else if (campo == kSegundo) {
    tabla.MoveLast();
  } else {
    return;
  }
  Pon(campo, tabla.Fields(kTrabajador).Get(), tabla.Fields(kNombre).Get());
}

// The number with its zeros is looked for; the field has it only when it is found.
void Imprgast::SalidaTrabajador(CampoRango campo) {
  const ModoListado& modo = Modo();
  Recordset& tabla = sesion_.Tabla(modo.ranura);
  if (tabla.IsEmpty()) return;
  const std::string numero = Texto(campo);
  if (Busca(sesion_, modo.ranura, kIndiceTrabajador, {FormatText(numero, "00000")})) {
    return Pon(campo, tabla.Fields(kTrabajador).Get(), tabla.Fields(kNombre).Get());
  }
  if (numero.empty()) return PonExtremo(campo);
  Mensaje(std::string(modo.sin_trabajador), Caja(campo));
  LimpiaCampo(campo);
  Caja(campo).SetFocus();
}

void Imprgast::SalidaMes() {
  const auto nombre = [](const Value& mes) {
    return NombreMes(static_cast<std::int16_t>(ValorNumero(TextoNoNulo(mes))));
  };
  Recordset& tabla = sesion_.Tabla(Modo().ranura);
  if (tabla.IsEmpty()) return;
  if (Trim(Texto(kPrimero)).empty()) {
    tabla.MoveLast();
    const Value mes = tabla.Fields(kMes).Get();
    return Pon(kPrimero, mes, nombre(mes));
  }
  Caja(kPrimero).SetText(FormatText(Texto(kPrimero), "00"));
  if (Busca(sesion_, Modo().ranura, "ICampo0", {Texto(kPrimero)})) {
    return Caja(kTextoPrimero).SetText(nombre(tabla.Fields(kMes).Get()));
  }
  Mensaje("No hay Incidencias en ese mes", Caja(kPrimero));
  for (const CampoRango campo : kRangos) LimpiaCampo(campo);
  Caja(kPrimero).SetFocus();
}

void Imprgast::SalidaTrabajadorMes(CampoRango campo) {
  Caja(campo).SetText(FormatText(Texto(campo), "00000"));
  Recordset& tabla = sesion_.Tabla(Modo().ranura);
  if (!Texto(campo).empty()) {
    tabla.SetIndex("Icampo0_1");
    sesion_.platform.engine->Idle(1);
    if (tabla.IsEmpty()) return;
    tabla.Seek({Texto(kPrimero), Texto(campo)});
    if (tabla.NoMatch()) return Mensaje(std::string(Modo().sin_trabajador), Caja(campo));
    return Caja(Detras(campo)).SetText(TextoNoNulo(tabla.Fields(kNombreMes).Get()));
  }
  if (tabla.IsEmpty()) return;
  const std::string extremo = campo == kSegundo ? "min" : "max";
  const auto filas =
      BDAnual->OpenRecordset("select " + extremo + "(campo1)," + extremo +
                             "(campo2) from tincidenciasvar where campo0='" + SqlText(Texto(kPrimero)) + "'");
  Pon(campo, filas->Fields(0).Get(), filas->Fields(1).Get());
}

// Nothing chosen empties both fields.
void Imprgast::AbreLista(int indice) {
  const auto campo = static_cast<CampoRango>(indice);
  Guarda([&] {
    const ModoListado& modo = Modo();
    SetPointer(MousePointer::kHourglass);
    if (modo.pide_mes) Caja(campo).SetFocus();
    const bool mes = modo.pide_mes && campo == kPrimero;
    const Lista& lista = mes ? kListaMeses : *modo.lista;
    const std::vector<std::string> parametros =
        modo.pide_mes && !mes ? std::vector{Texto(kPrimero)} : std::vector<std::string>();
    if (const auto fila = Consulta(sesion_, lista, parametros, {Trim(Texto(campo)), ""})) {
      const std::vector<std::string> cortes = CortaFila(lista, *fila);
      Pon(campo, cortes[0], cortes[1]);
      if (mes) Caja(kTextoPrimero).SetAlignment(Alignment::kCenter);
      if (!modo.pide_mes && campo == kPrimero) Caja(kSegundo).SetFocus();
      if (modo.pide_mes && campo == kSegundo) Caja(kTercero).SetFocus();
    }
    SetPointer(MousePointer::kDefault);
  });
}

// The listing.

void Imprgast::Imprime() {
  for (const CampoRango campo : kRangos) {
    if (CompruebaCampo(campo)) return;
  }
  sesion_.platform.engine->Idle(1);
  CampoActivo = IndiceCampoRango(kPrimero);
  Host().DoEvents();
  const struct Mientras {
    Form& pantalla;
    ~Mientras() { pantalla.SetPointer(MousePointer::kDefault); }
  } mientras{*this};
  SetPointer(MousePointer::kHourglass);
  const ModoListado& modo = Modo();
  if (!(modo.pide_mes ? GeneraIncidenciasVar() : GeneraTablaPen())) return;
  const std::string carpeta =
      modo.datos_de_programa ? sesion_.platform.application_folder + "\\datos\\" : sesion_.DirDatos;
  VisualizaListado(sesion_, *modo.descripcion, carpeta + "Nom" + sesion_.CodEmpresa.str() + ".mdb", "ListadosNOM",
                   sesion_.FormActivo);
}

void Imprgast::Avanza(const MesaListado& mesa) {
  constexpr std::size_t kLineas = 5000;
  if (mesa.Lineas() % kLineas != 0) return;
  SetStatus("Preparando el listado: " + GroupThousands(std::to_string(mesa.Lineas())) + " líneas");
  Host().DoEvents();
}

// A worker's number and name stand on his first line alone.
bool Imprgast::GeneraTablaPen() {
  bool hecho = false;
  Guarda([&] {
    const ModoListado& modo = Modo();
    MesaListado mesa(sesion_);
    const std::string desde = SqlText(Texto(kPrimero));
    // Nothing reads this one; a company without workers' table ends here.
    sesion_.RsTrabajo =
        sesion_.BDEmpresa->CreateDynaset("select * from trabajadoresfijo where campo0= '" + desde + "' ");
    sesion_.SqlTexto = "select * from " + std::string(modo.tabla) + " where campo0 >= '" + desde + "' and campo0 <= '" +
                       SqlText(Texto(kSegundo)) + "' ";
    sesion_.RsTrabajo = sesion_.BDEmpresa->CreateDynaset(sesion_.SqlTexto);
    Recordset& filas = *sesion_.RsTrabajo;
    Value ultimo = "";
    for (; !filas.Eof(); filas.MoveNext()) {
      const auto columna = [&](ColumnaFechas ordinal) { return filas.Fields(ordinal).Get(); };
      const Value trabajador = columna(kTrabajador);
      const bool repetido = !trabajador.IsNull() && trabajador == ultimo;
      if (!repetido) ultimo = trabajador;
      mesa.Anade({repetido ? Value("") : trabajador, repetido ? Value("") : columna(kNombre),
                  std::string(modo.texto_tipo(TextoNoNulo(columna(kTipo)))), columna(kInicio), columna(kFin)});
      sesion_.platform.engine->Idle(1);
      Avanza(mesa);
    }
    mesa.Termina();
    hecho = true;
  });
  return hecho;
}

// The month stands on the first line of all. The situación is not told again where a worker follows who has the same.
bool Imprgast::GeneraIncidenciasVar() {
  bool hecho = false;
  Guarda([&] {
    MesaListado mesa(sesion_);
    AbreFichero(sesion_, FileKind::kYear);
    sesion_.SqlTexto = "select * from TIncidenciasVar where campo0 = '" + SqlText(Texto(kPrimero)) +
                       "' and campo1 >= '" + SqlText(Texto(kSegundo)) + "' and campo1 <= '" + SqlText(Texto(kTercero)) +
                       "' ";
    sesion_.RsTrabajo = sesion_.BDEmpresa->CreateDynaset(sesion_.SqlTexto);
    Recordset& filas = *sesion_.RsTrabajo;
    Value ultimo_mes = "", ultimo_trabajador = "", ultima_situacion = "";
    // Whether it repeats the line above; if not, it is remembered.
    const auto repite = [](Value& ultimo, const Value& valor) {
      if (!valor.IsNull() && valor == ultimo) return true;
      ultimo = valor;
      return false;
    };
    for (; !filas.Eof(); filas.MoveNext()) {
      std::vector<Value> linea;
      for (int ordinal = 0; ordinal < kColumnasVariable; ++ordinal) linea.push_back(filas.Fields(ordinal).Get());
      const Value mes = linea[kMes];
      if (mes == ultimo_mes || ultimo_mes != Value("")) linea[kMes] = mes == ultimo_mes ? Value("") : Null();
      if (ultimo_mes == Value("")) ultimo_mes = mes;
      if (repite(ultimo_trabajador, linea[kTrabajadorMes])) linea[kTrabajadorMes] = linea[kNombreMes] = "";
      if (repite(ultima_situacion, linea[kSituacion])) linea[kSituacion] = "";
      mesa.Anade(linea);
      sesion_.platform.engine->Idle(1);
      Avanza(mesa);
    }
    mesa.Termina();
    hecho = true;
  });
  return hecho;
}

}  // namespace zendara

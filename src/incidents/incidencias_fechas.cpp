#include "incidents/incidencias_fechas.hpp"

#include <cstdint>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include "frame/bases_datos.hpp"
#include "frame/catalogo.hpp"
#include "incidents/lectura_incidencias.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/date.hpp"
#include "runtime/failure.hpp"
#include "runtime/format.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "values/formato_fecha.hpp"
#include "values/valor_numero.hpp"

namespace zendara {
namespace {

using enum CampoFechas;

constexpr int kImagenTipo = 0;  // of Combo1; the other images have the index of their field
constexpr int kPitidos = 11;
constexpr int kAnchoTipo = 22;  // of its words
constexpr std::string_view kMascaraTrabajador = "00000;; ";
constexpr std::size_t kCifrasTrabajador = 5;

constexpr Campo kCampos[] = {
    {kTrabajador, TipoCampo::kTexto, "Nº de Trabajador............:", 5, kClave | kNumerico},
    {kNombre, TipoCampo::kTexto, "Nombre", 25, kVista},
    {kTipo, TipoCampo::kLista, "Tipo Incidencia................:", 1, kSinRegla},
    {kInicio, TipoCampo::kTexto, "Fecha de Inicio................:", 8, kFecha},
    {kFin, TipoCampo::kTexto, "Fecha de Fin...................:", 8, kFecha},
};
constexpr IndiceCampo kCamposClave[] = {kTrabajador, kInicio};

constexpr DisenoFechas kDisenos[] = {
    {.comun = {.pantalla = "MIncidencias",
               .leyenda = "Incidencias de I.T.",
               .contexto_ayuda = 30001,
               .pista_grabar = " Graba Incidencia ",
               .pista_borrar = " Borra Incidencia ",
               .ranura = kTincidenciasIT,
               .fichero = FileKind::kCompany,
               .indice = "ICampo0_3",
               .clave = kCamposClave,
               .campos = kCampos,
               .trabajador = kTrabajador,
               .nombre = kNombre,
               .lista_sin_filas = false},
     .tabla = TablaIncidencias::kIT,
     .nombre_tabla = "TincidenciasIT",
     .tipos = &kListaTiposIT,
     .fechas = &kListaFechasIT,
     .falta_inicio = "Es preciso la fecha de inicio",
     .hay_abierta = "trabajador si existe alguna anterior sin su fecha  final",
     .reabre_al_grabar = false,
     .al_salir = TratoFechas::kTexto,
     .de_lista = TratoFechas::kFormato},
    {.comun = {.pantalla = "MIncidenciasESP",
               .leyenda = "Incidencias de E.S.P.",
               .contexto_ayuda = 300022,
               .pista_grabar = " Graba Incidencia",
               .pista_borrar = " Borra Incidencia ",
               .ranura = kTincidenciasESP,
               .fichero = FileKind::kCompany,
               .indice = "ICampo0_3",
               .clave = kCamposClave,
               .campos = kCampos,
               .trabajador = kTrabajador,
               .nombre = kNombre,
               .lista_sin_filas = true},
     .tabla = TablaIncidencias::kESP,
     .nombre_tabla = "TincidenciasESP",
     .tipos = &kListaTiposESP,
     .fechas = &kListaFechasESP,
     .falta_inicio = "Es preciso introducir la fecha de inicio",
     .hay_abierta = "trabajador si existe alguna incidencia de I.T. o E.S.P. anterior sin su fecha  final",
     .reabre_al_grabar = true,
     .al_salir = TratoFechas::kFormato,
     .de_lista = TratoFechas::kAmbos},
};

// Of the row that a query gives, and of the two tables.
enum Columna { kColumnaTrabajador, kColumnaNombre, kColumnaTipo, kColumnaInicio, kColumnaFin };

// The listing of GeneraPendientes. The first column of a row is the name.
constexpr int kCopiadas[] = {kColumnaNombre, kColumnaTrabajador, kColumnaTipo, kColumnaInicio};

// Whichever of its two forms stands in the field.
std::string EnReposo(const std::string& fecha) {
  if (Len(fecha) != 6 || fecha.find('/') != std::string::npos) return fecha;
  return Mid(fecha, 1, 2) + "/" + Mid(fecha, 3, 2) + "/" + Mid(fecha, 5, 2);
}

}  // namespace

const DisenoFechas& DisenoDe(TablaIncidencias tabla) { return kDisenos[tabla == TablaIncidencias::kIT ? 0 : 1]; }

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
  for (const Campo& campo : kCampos) {
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
  const std::string fin = EnReposo(Texto(kFin));
  const std::string inicio = EnReposo(Texto(kInicio));
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
  ficha_.Limpia(desde, hasta);
  CodigoAlEntrar.clear();
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
    const auto muestra = [&](Columna columna, const auto& pon) {
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
    ApuntaTrabajador(Trim(Texto(kTrabajador)));
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
  Combo1.SetText("");
  Settle(Text1(IndiceCampo(kTrabajador)));
  Settle(Text1(IndiceCampo(kNombre)));
  calendario_.PonTrabajador(Texto(kTrabajador));
}

// A field that its column does not take leaves it empty, which for a start is the store's own error; the row is not
// kept in any case.
void IncidenciasFechas::AsignaCampos() {
  Recordset& fila = Tabla();
  try {
    for (const CampoFechas campo : {kTrabajador, kNombre, kTipo, kInicio, kFin}) {
      const std::string texto = Texto(campo);
      const Value valor = Queda(campo, texto.empty() && campo != kTipo ? Value() : Value(texto));
      if (!valor.IsNull()) fila.Fields(IndiceCampo(campo) - 1).Set(valor);
    }
  } catch (...) {
    fila.Update();
    throw;
  }
}

bool IncidenciasFechas::GrabarRegistro() {
  grabado_.clear();
  const std::string resumen = Resumen();
  try {
    PantallaIncidencias::GrabarRegistro();
    grabado_ = resumen;
  } catch (...) {
    const RuntimeError error = CurrentError();
    LogDetail(error);
    if (error.number() == kNullInKey) Mensaje("Debe Introducir la Fecha de Inicio");
    Mensaje("No se ha grabado la incidencia de " + resumen + ".\n" + error.what());
    Text1(IndiceCampo(kInicio)).SetFocus();
  }
  return true;
}

// Buttons.

bool IncidenciasFechas::CompruebaDatos() {
  if (diseno_fechas_.reabre_al_grabar) AbreFichero(sesion_, FileKind::kCompany);
  const std::string numero = Texto(kTrabajador);
  if (Val(numero) == 0 || Len(numero) != kCifrasTrabajador) {
    return Falta("Es preciso introducir el Nº del Trabajador", Text1(IndiceCampo(kTrabajador)));
  }
  if (!Texto(kInicio).empty()) return false;
  return Falta(std::string(diseno_fechas_.falta_inicio), Text1(IndiceCampo(kInicio)));
}

void IncidenciasFechas::GrabaComprobado() {
  if (!CompruebaSolape() || !GrabarRegistro()) return;
  CancelaFicha();
  if (!grabado_.empty()) DiGrabado(grabado_);
}

bool IncidenciasFechas::CompruebaSolape() {
  const auto fecha = [this](CampoFechas campo) {
    return CStr(FormatDate(Value(Texto(campo)), "mm/dd/yy", sesion_.VentanaFechas));
  };
  const ConsultasSolape consultas =
      ConsultasDeSolape(diseno_fechas_.tabla, Texto(kTrabajador), fecha(kInicio), fecha(kFin));
  const auto hay = [this](const std::string& consulta) { return Lee(consulta).RecordCount() > 0; };
  if (hay(consultas.abierta)) {
    const YearWindow ventana = sesion_.VentanaFechas;
    if (CDate(sesion_.RsTrabajo->Fields(0).Get(), ventana) == CDate(Texto(kInicio), ventana)) return true;
    Mensaje("No se puede guardar una nueva incidencia para un  \n" + std::string(diseno_fechas_.hay_abierta));
    return false;
  }
  const bool tiene_fin = !Texto(kFin).empty();
  if (!hay(consultas.inicio) && !(tiene_fin && (hay(consultas.fin) || hay(consultas.encierra)))) return true;
  Mensaje("Ya existe una incidencia para ese trabajador en es intervalo tiempo ", Text1(IndiceCampo(kInicio)));
  SetStatus(Coincidencias());
  return false;
}

std::string IncidenciasFechas::Coincidencias() const {
  const YearWindow ventana = sesion_.VentanaFechas;
  const auto inicio = ReadDateStrict(Texto(kInicio), ventana);
  const auto fin = ReadDateStrict(Texto(kFin), ventana);
  std::string con;
  for (const IncidenciaVista& fila : LeeIncidencias(sesion_, Texto(kTrabajador))) {
    if (!inicio || !fila.inicio || !fila.fin || fila.inicio > fin.value_or(*inicio) || fila.fin < inicio) continue;
    const bool propia = fila.tabla == diseno_fechas_.tabla && fila.inicio == inicio;
    con += (con.empty() ? "" : "; ") + std::string(TextoTipo(fila.tabla, fila.tipo)) + " del " +
           ShortDate(*fila.inicio) + " al " + ShortDate(*fila.fin) +
           (propia ? " (es esta misma, ya grabada: bórrela antes para cambiarla)" : "");
  }
  return con.empty() ? con : "Coincide con " + con;
}

void IncidenciasFechas::CancelaFicha() {
  SetPointer(MousePointer::kHourglass);
  LimpiaCampos(kTrabajador, kFin);
  calendario_.PonTrabajador("");
  Text1(IndiceCampo(kTrabajador)).SetFocus();
  SetPointer(MousePointer::kDefault);
}

bool IncidenciasFechas::EscSale() const { return Val(Texto(kTrabajador)) == 0 || Trim(Texto(kInicio)).empty(); }

void IncidenciasFechas::GeneraPendientes(int ranura) {
  AbreFichero(sesion_, FileKind::kCompany);
  const auto listado = sesion_.BDEmpresa->OpenRecordset("ListadosNOM", RecordsetType::kTable);
  listado->SetIndex("ICampo0_1");
  if (listado->RecordCount() > 0) sesion_.BDEmpresa->Execute("DELETE * FROM ListadosNom");
  Recordset& origen = sesion_.Tabla(ranura);
  if (origen.RecordCount() > 0) {
    for (origen.MoveFirst(); !origen.Eof(); origen.MoveNext()) {
      listado->AddNew();
      for (std::size_t columna = 0; columna < std::size(kCopiadas); ++columna) {
        listado->Fields(static_cast<int>(columna)).Set(origen.Fields(kCopiadas[columna]).Get());
      }
      listado->Update();
      sesion_.platform.engine->Idle(1);
    }
    listado->MoveFirst();
  }
  listado->SetIndex("ICampo1");
  constexpr std::int16_t kNumero = 1;
  constexpr std::int16_t kDescripcion = 2;
  ListingDescription descripcion = {
      "4",   "Descripción", kDescripcion, "500", "Nº de Epígrafe",        kNumero, "1300", "I.L.T.", kNumero,
      "900", "I.M.S.",      kNumero,      "900", "Listados de Epígrafes", true};
  const std::unique_ptr<ListingViewer> visor = CreateListingViewer(sesion_.platform.components);
  visor->FicheroDatos(sesion_.DirPrograma + "datos\\Nom" + sesion_.CodEmpresa.str() + ".mdb");
  visor->TablaDatos("ListadosNOM");
  visor->FormularioPadre(this);
  visor->Visualiza(descripcion);
}

// Fields.

void IncidenciasFechas::EntradaCampo(int indice) {
  if (static_cast<CampoFechas>(indice) == kTrabajador) CodigoAlEntrar = Texto(kTrabajador);
  ficha_.Edita(indice);
}

void IncidenciasFechas::SalidaCampo(int indice) {
  Guarda([&] {
    switch (static_cast<CampoFechas>(indice)) {
      case kTrabajador:
        return SalidaTrabajador();
      case kInicio:
        return SalidaInicio();
      case kFin:
        return SalidaFin();
      case kNombre:
      case kTipo:
        break;
    }
  });
}

void IncidenciasFechas::SalidaTrabajador() {
  TextBox& campo = Text1(IndiceCampo(kTrabajador));
  Formatea(kTrabajador, kMascaraTrabajador);
  const std::string numero = campo.Text();
  if (Trim(CodigoAlEntrar) == Trim(numero)) return;
  CodigoAlEntrar = numero;
  if (sesion_.Tabla(kTrabajadoresFijo).RecordCount() == 0) return;
  if (PonNombre()) return Poneregistro();
  if (!Trim(numero).empty()) Mensaje("No existe trabajador con ese código", campo);
  LimpiaCampos(kTrabajador, kFin);
  calendario_.PonTrabajador("");
  campo.SetFocus();
  CodigoAlEntrar.clear();
}

// Calls up the row of that type and start. The date is read with the month first if it can be, so what comes may be
// another day's row, or none.
void IncidenciasFechas::SalidaInicio() {
  TextBox& campo = Text1(IndiceCampo(kInicio));
  campo.SetText(FormatoFecha(campo, Boxes(), sesion_.VentanaFechas));
  const std::string inicio = campo.Text();
  if (Trim(inicio).empty()) return;
  Recordset& filas = Lee("select * from " + std::string(diseno_fechas_.nombre_tabla) + " where campo0 = '" +
                         SqlText(Texto(kTrabajador)) + "' and campo2 = '" + SqlText(Texto(kTipo)) + "' and campo3 = #" +
                         inicio + "# ");
  if (filas.RecordCount() == 0) return AvisaSiExiste();
  MuestraFila(filas, diseno_fechas_.al_salir);
}

void IncidenciasFechas::MuestraFila(Recordset& fila, TratoFechas trato) {
  const Value inicio = fila.Fields(kColumnaInicio).Get();
  const Value fin = fila.Fields(kColumnaFin).Get();
  Combo1.SetText(CStr(fila.Fields(kColumnaTipo).Get()));
  switch (trato) {
    case TratoFechas::kTexto:
      Pon(kFin, TextoNoNulo(fin));
      Pon(kInicio, TextoNoNulo(inicio));
      break;
    case TratoFechas::kFormato:
      PonFecha(kFin, fin);
      PonFecha(kInicio, inicio);
      break;
    case TratoFechas::kAmbos:
      PonFecha(kFin, TextoNoNulo(fin));
      PonFecha(kInicio, inicio);
      break;
  }
  Anota(fila, kTipo, kFin);
}

// Saving replaces the row of that worker and day, whatever its type.
void IncidenciasFechas::AvisaSiExiste() {
  const auto dia = ReadDateStrict(Texto(kInicio), sesion_.VentanaFechas);
  if (!dia || !ficha_.Cambiado(kInicio)) return;
  const auto filas = AbreAparte(sesion_, FileKind::kCompany)
                         ->OpenRecordset("SELECT Campo2, Campo4 FROM " + std::string(diseno_fechas_.nombre_tabla) +
                                         " WHERE Campo0 = '" + SqlText(Texto(kTrabajador)) + "' AND Campo3 = #" +
                                         FormatDate(*dia, "mm/dd/yyyy") + "#");
  if (filas->Eof()) return;
  const std::string_view tipo = TextoTipo(diseno_fechas_.tabla, TextoNoNulo(filas->Fields(0).Get()));
  const std::string fin = TextoNoNulo(filas->Fields(1).Get());
  SetStatus("Ya tiene una incidencia desde el " + Texto(kInicio) + " (" +
            (tipo.empty() ? "sin tipo" : std::string(tipo)) + ", " + (fin.empty() ? "abierta" : "hasta el " + fin) +
            "): Grabar la sustituye. F2 la muestra.");
}

void IncidenciasFechas::SalidaFin() {
  TextBox& campo = Text1(IndiceCampo(kFin));
  const YearWindow ventana = sesion_.VentanaFechas;
  campo.SetText(FormatoFecha(campo, Boxes(), ventana));
  if (campo.Text().empty() || Texto(kInicio).empty()) return;
  if (CDate(campo.Text(), ventana) >= CDate(Texto(kInicio), ventana)) return;
  Mensaje("Debe Introducir la Fecha Fin mayor que la Fecha Inicio");
  campo.SetText("");
  campo.SetFocus();
}

// Lists.

void IncidenciasFechas::AbreLista(int indice) {
  if (indice == kImagenTipo) return EligeTipo();
  static_cast<CampoFechas>(indice) == kTrabajador ? EligeTrabajadorDeLista() : EligeFecha();
}

void IncidenciasFechas::EligeTipo() {
  Elige(Combo1, *diseno_fechas_.tipos, {}, {Combo1.Text(), ""}, [this](const std::vector<std::string>& cortes) {
    Combo1.SetText(cortes[0]);
    Text2.SetText(cortes[1]);
  });
}

void IncidenciasFechas::EligeFecha() {
  const std::vector<std::string> actuales = {EnReposo(Texto(kInicio))};
  Elige(Text1(IndiceCampo(kInicio)), *diseno_fechas_.fechas, {Texto(kTrabajador)}, actuales,
        [this](const std::vector<std::string>& cortes) {
          const Date dia = CDate(cortes[0], sesion_.VentanaFechas);
          Recordset& fila = Lee("select * from " + std::string(diseno_fechas_.nombre_tabla) + " where campo0 = '" +
                                SqlText(Texto(kTrabajador)) + "'  and campo3 = #" + FormatDate(dia, "mm/dd/yy") + "# ");
          if (fila.RecordCount() == 0) return;
          MuestraFila(fila, diseno_fechas_.de_lista);
          // A field that refuses to be left has kept the focus.
          if (Text1(IndiceCampo(kInicio)).HasFocus()) ficha_.Edita(kInicio);
        });
}

}  // namespace zendara

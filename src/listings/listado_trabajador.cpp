#include "listings/listado_trabajador.hpp"

#include <utility>
#include <vector>

#include "common/consulta.hpp"
#include "frame/bases_datos.hpp"
#include "frame/catalogo.hpp"
#include "frame/parametros.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/date.hpp"
#include "runtime/format.hpp"
#include "runtime/text.hpp"
#include "values/valor_numero.hpp"

namespace zendara {
namespace {

using enum CampoListado;

enum Opcion { kFijos, kVariables, kTodos, kEnAlta, kPorCentros, kPorSecciones, kPorNombre, kPorNumero };

struct TextoOpcion {
  Opcion opcion;
  std::string_view rotulo;
};
constexpr TextoOpcion kOpciones[] = {
    {kFijos, "Fijos"},        {kVariables, "Variables"},    {kTodos, "Todos"},      {kEnAlta, "En alta"},
    {kPorCentros, "Centros"}, {kPorSecciones, "Secciones"}, {kPorNombre, "Nombre"}, {kPorNumero, "Número"},
};

// The codes of the range, each with its list.
struct Limite {
  CampoListado campo;
  std::string_view rotulo;
  int ranura;
  const Lista* lista;
};
constexpr Limite kLimites[] = {
    {kDeCentro, "De Centro:", kCentros, &kListaCentrosListado},
    {kACentro, "a Centro:", kCentros, &kListaCentrosListado},
    {kDeSeccion, "De Sección:", kSecciones, &kListaSeccionesListado},
    {kASeccion, "a Sección:", kSecciones, &kListaSeccionesListado},
};
constexpr int kLargoCodigo = 3;
constexpr int kAnchoNombre = 30;
constexpr int kColumnaNombre = 1;  // of centres and sections
constexpr int kLargoTexto = 53;    // of a name or an address in the listing

constexpr std::string_view kPrimerCodigo = "001";
constexpr std::string_view kUltimoCodigo = "999";
constexpr std::string_view kSinLineas = "No se ha encontrado ningún registro que coincida con el criterio de busqueda";

const DescripcionListado kDescripcionFijos = {"Listado de Trabajadores (Fijos)",
                                              {{"NºTrabajador", 0, "1000"},
                                               {"Nombre Trabajador", 0, "2300"},
                                               {"NºAfil", 1, "1200"},
                                               {"Nº ID", 0, "1100"},
                                               {"Domicilio", 0, "1700"},
                                               {"Municipio", 0, "800"},
                                               {"Telefono", 1, "900"},
                                               {"F.Pago", 1, "500"}}};
const DescripcionListado kDescripcionVariables = {"Listado de Trabajadores (Variables)",
                                                  {{"NºTrabajador", 0, "1000"},
                                                   {"Nombre Trabajador", 0, "2300"},
                                                   {"F.Alta", 0, "700"},
                                                   {"F.Baja", 0, "700"},
                                                   {"NºMatr", 1, "700"},
                                                   {"C.Colectivo", 1, "800"},
                                                   {"Categoria", 1, "800"},
                                                   {"P.Trabajo", 0, "1500"},
                                                   {"G.Tarifa", 1, "1000"}}};

constexpr std::string_view kConsultaFijos =
    "SELECT TrabajadoresFijo.Campo0, TrabajadoresFijo.Campo1, TrabajadoresFijo.Campo2, TrabajadoresFijo.Campo3, "
    "TrabajadoresFijo.Campo6,TrabajadoresFijo.Campo7, TrabajadoresFijo.Campo8,TrabajadoresFijo.Campo5,"
    "TrabajadoresFijo.Campo9, TrabajadoresFijo.Campo10, TrabajadoresFijo.Campo11, TrabajadoresFijo.Campo12, "
    "TrabajadoresFijo.Campo13, TrabajadoresFijo.Campo14,TrabajadoresFijo.Campo15, TrabajadoresFijo.Campo18, "
    "TrabajadoresFijo.Campo89,TrabajadoresVar.Campo3 FROM TrabajadoresVar,TrabajadoresFijo WHERE "
    "TrabajadoresVar.Campo0=TrabajadoresFijo.Campo0 ";
constexpr std::string_view kConsultaVariables =
    "SELECT TrabajadoresVar.Campo0, TrabajadoresFijo.Campo1, TrabajadoresFijo.Campo2, TrabajadoresFijo.Campo3, "
    "TrabajadoresVar.Campo5, TrabajadoresVar.Campo6, TrabajadoresVar.Campo9, TrabajadoresVar.Campo10,"
    "TrabajadoresVar.Campo12,TrabajadoresVar.Campo14, TrabajadoresVar.Campo17 FROM TrabajadoresVar,TrabajadoresFijo "
    "WHERE TrabajadoresVar.Campo0=TrabajadoresFijo.Campo0 ";

// Places in both queries, in that of fixed data, and in that of situaciones.
enum Columna { kNumero, kApellido1, kApellido2, kNombrePila };
enum ColumnaFija { kProvinciaSS = 4, kIdentificacion = 7, kCalle = 8, kMunicipio = 14, kTelefono, kFormaPago, kInicio };
enum ColumnaVariable { kAlta = 4, kUltimaVariable = 10 };
// Between the parts of an address.
constexpr std::string_view kBlancos[] = {" ", " ", "  ", "  ", " "};

Marco MarcoListado() {
  return {.nombre = "ListadoTrabajador", .leyenda = "Listado Trabajadores", .contexto_ayuda = 0, .pistas = {}};
}

std::string TextoDe(Recordset& fila, int columna) { return TextoNoNulo(fila.Fields(columna).Get()); }

std::string NombreDe(Recordset& fila) {
  return TextoDe(fila, kApellido1) + " " + TextoDe(fila, kApellido2) + " " + TextoDe(fila, kNombrePila);
}

CampoListado Detras(CampoListado campo) { return static_cast<CampoListado>(static_cast<int>(campo) + 1); }

}  // namespace

ListadoTrabajador::ListadoTrabajador(Sesion& sesion, RegistroPantallas& pantallas)
    : PantallaBase(sesion, pantallas, MarcoListado()) {
  for (const auto& [opcion, rotulo] : kOpciones) Option1.Add(opcion).SetCaption(rotulo);
  const std::pair<Frame*, std::string_view> marcos[] = {{&FrameTipo, "Tipo datos:"},
                                                        {&Frame1, "Listar:"},
                                                        {&Frame3, "Ordenado por:"},
                                                        {&Frame4, "Ordenado por:"},
                                                        {&FrameRango, "Entre"}};
  for (const auto& [marco, rotulo] : marcos) marco->SetCaption(rotulo);
  std::vector<Layout> rango;
  for (const Limite& limite : kLimites) {
    const int indice = static_cast<int>(limite.campo);
    TextBox& codigo = Text1.Add(indice);
    TextBox& nombre = Text1.Add(indice + 1);
    codigo.SetCaption(limite.rotulo);
    codigo.SetMaxLength(kLargoCodigo);
    codigo.SetAlignment(Alignment::kRight);
    nombre.SetCaption("Nombre");
    nombre.SetWidth(kAnchoNombre);
    nombre.SetEnabled(false);
    rango.push_back(Row({Place(codigo, {&Image1.Add(indice)}), Unlabelled(Place(nombre)), Space()}));
  }
  Impresora.SetCaption("I&mpresora");

  const auto opciones = [this](Frame& marco, Opcion una, Opcion otra) {
    return Framed(marco, {Place(Option1(una)), Place(Option1(otra))});
  };
  SetLayout(
      Row({Place(Picture25),
           Column({Cabecera(),
                   Scrolled(Column({Row({opciones(FrameTipo, kFijos, kVariables), opciones(Frame1, kTodos, kEnAlta),
                                         opciones(Frame4, kPorCentros, kPorSecciones),
                                         opciones(Frame3, kPorNombre, kPorNumero), Space()}),
                                    Framed(FrameRango, std::move(rango)), Space()})),
                   Flow({MainButton(Impresora), Space(), Place(Salir)}), TiraAnuncio()})}));
  ConectaMarco();
  Impresora.On().click = [this](int) { Guarda([this] { Imprime(); }); };
  const auto tecla = Text1.On().key_press;
  Text1.On().key_press = [tecla](int indice, int& caracter) {
    if (caracter == ',' || caracter == '.') caracter = 0;
    tecla(indice, caracter);
  };
}

void ListadoTrabajador::OnLoad() {
  Guarda([this] {
    SetPointer(MousePointer::kHourglass);
    PonTitulos();
    CargaParametros(sesion_);
    CreaAnuncio();
    PintaLeyenda();
    PonTamano();
    for (const Opcion opcion : {kFijos, kTodos, kPorCentros, kPorNombre}) Option1(opcion).SetValue(true);
    PonRangosDefecto();
    SetPointer(MousePointer::kDefault);
  });
}

std::string ListadoTrabajador::Expected() const {
  const Control* foco = Focus();
  return foco && foco->Name() == "Text1" ? "3 cifras · F2: lista" : std::string();
}

HelpPlace ListadoTrabajador::HelpOnFocus() const { return {.link = "listado_trabajador.md", .words = {}}; }

// The range.

std::string ListadoTrabajador::Codigo(CampoListado campo) const { return Trim(Caja(campo).Text()); }

std::string ListadoTrabajador::LeeDescripcion(int ranura, const std::string& clave, int campo) {
  sesion_.WsTrabajo = sesion_.platform.engine->Workspaces(0);
  Recordset& tabla = sesion_.Tabla(ranura);
  tabla.Seek({clave});
  if (tabla.NoMatch()) return {};
  return ranura == kTrabajadoresFijo ? NombreDe(tabla) : TextoDe(tabla, campo);
}

void ListadoTrabajador::PonNombre(CampoListado campo) {
  const int ranura = campo < kDeSeccion ? kCentros : kSecciones;
  Caja(Detras(campo)).SetText(LeeDescripcion(ranura, Codigo(campo), kColumnaNombre));
}

void ListadoTrabajador::PonLimite(CampoListado campo, const std::string& limite, bool hay, const std::string& ninguno) {
  if (!Caja(campo).Text().empty()) return;
  Caja(campo).SetText(hay ? limite : ninguno);
  if (hay) PonNombre(campo);
}

// The last section without any is 999, the last centre without any 001.
void ListadoTrabajador::PonRangosDefecto() {
  const struct {
    CampoListado desde;
    CampoListado hasta;
    FileKind fichero;
    std::string_view consulta;
    std::string_view sin_ultimo;
  } rangos[] = {
      {kDeCentro, kACentro, FileKind::kYear, "SELECT Min(Campo0) as MinCod ,Max(Campo0) as MaxCod FROM Centros",
       kPrimerCodigo},
      {kDeSeccion, kASeccion, FileKind::kCompany, "SELECT Min(Campo0) as MinCod ,Max(Campo0) as MaxCod FROM Secciones ",
       kUltimoCodigo},
  };
  for (const auto& [desde, hasta, fichero, consulta, sin_ultimo] : rangos) {
    if (!Caja(desde).Text().empty() && !Caja(hasta).Text().empty()) continue;
    AbreFichero(sesion_, fichero);
    const auto limites = sesion_.BDEmpresa->OpenRecordset(consulta);
    if (limites->Eof()) continue;
    const std::string minimo = TextoDe(*limites, 0);
    const std::string maximo = TextoDe(*limites, 1);
    PonLimite(desde, minimo, !minimo.empty(), std::string(kPrimerCodigo));
    PonLimite(hasta, maximo, !minimo.empty(), std::string(sin_ultimo));
  }
}

void ListadoTrabajador::SalidaCampo(int indice) {
  Guarda([&] {
    const auto campo = static_cast<CampoListado>(indice);
    TextBox& caja = Caja(campo);
    const std::string codigo = Trim(caja.Text());
    const int faltan = caja.MaxLength() - static_cast<int>(Len(codigo));
    if (!codigo.empty() && faltan > 0) caja.SetText(Repeat('0', faltan) + codigo);
    PonNombre(campo);
  });
}

void ListadoTrabajador::AbreLista(int indice) {
  Guarda([&] {
    for (const Limite& limite : kLimites) {
      if (static_cast<int>(limite.campo) != indice) continue;
      SetPointer(MousePointer::kHourglass);
      Caja(limite.campo).SetFocus();
      const std::string fila = Consulta(sesion_, *limite.lista, {}, {Codigo(limite.campo), ""}).value_or("");
      if (!fila.empty()) {
        const std::vector<std::string> cortes = CortaFila(*limite.lista, fila);
        Caja(limite.campo).SetText(cortes[0]);
        Caja(Detras(limite.campo)).SetText(cortes[1]);
      }
      Host().DoEvents();
      SetPointer(MousePointer::kDefault);
    }
  });
}

bool ListadoTrabajador::CompruebaRangos() {
  const auto al_reves = [this](CampoListado desde, CampoListado hasta, std::string_view texto) {
    if (ValorNumero(Caja(hasta).Text()) >= ValorNumero(Caja(desde).Text())) return false;
    Mensaje(std::string(texto), Caja(desde), BoxIcon::kExclamation);
    Caja(desde).SetFocus();
    return true;
  };
  if (al_reves(kDeCentro, kACentro, "El código de Centro inicial no puede ser mayor que el final") ||
      al_reves(kDeSeccion, kASeccion, "El código de Sección inicial no puede ser mayor que el final")) {
    return false;
  }
  for (int indice = 0; indice <= static_cast<int>(kASeccion); ++indice) {
    if (!Trim(Text1(indice).Text()).empty()) continue;
    PonRangosDefecto();
    break;
  }
  return true;
}

// The listing.

void ListadoTrabajador::Imprime() {
  const struct Mientras {
    Form& pantalla;
    ~Mientras() { pantalla.SetPointer(MousePointer::kDefault); }
  } mientras{*this};
  SetPointer(MousePointer::kHourglass);
  if (!CompruebaRangos()) return;
  CondicionListado();
  GeneraListado();
  SetStatus({});
}

// The comparison with NULL is never true: who has no end of his employment does not count as employed.
void ListadoTrabajador::CondicionListado() {
  TextoCondicion.clear();
  if (Elegida(kVariables) && Elegida(kEnAlta)) {
    TextoCondicion +=
        "AND (TrabajadoresVar.Campo6 >= #" + FormatDate(Today(), "mm/dd/yyyy") + "# OR TrabajadoresVar.Campo6=NULL ) ";
  }
  const auto entre = [this](std::string_view columna, CampoListado desde, CampoListado hasta) {
    TextoCondicion += "AND TrabajadoresVar." + std::string(columna) + " between '" + SqlText(Codigo(desde)) +
                      "'  AND '" + SqlText(Codigo(hasta)) + "'  ";
  };
  entre("Campo49", kDeCentro, kACentro);
  if (Codigo(kDeSeccion) != kPrimerCodigo || Codigo(kASeccion) != kUltimoCodigo) {
    entre("Campo51", kDeSeccion, kASeccion);
  }
  TextoCondicion += Elegida(kPorCentros) ? " ORDER BY TrabajadoresVar.Campo49, TrabajadoresVar.Campo51"
                                         : " ORDER BY TrabajadoresVar.Campo51,TrabajadoresVar.Campo49";
  TextoCondicion += Elegida(kPorNombre) ? " ,TrabajadoresFijo.Campo1,TrabajadoresFijo.Campo0 "
                                        : " ,TrabajadoresFijo.Campo0,TrabajadoresFijo.Campo1 ";
}

void ListadoTrabajador::GeneraListado() {
  const bool fijos = Elegida(kFijos);
  MesaListado mesa(sesion_);
  sesion_.SqlTexto = std::string(fijos ? kConsultaFijos : kConsultaVariables) + TextoCondicion;
  ultimas_.clear();
  if (fijos) LeeUltimas();
  const auto filas = sesion_.BDEmpresa->OpenRecordset(sesion_.SqlTexto, RecordsetType::kForward);
  std::size_t leidas = 0;
  std::string anterior;
  for (; !filas->Eof(); filas->MoveNext()) {
    fijos ? AnadeFija(mesa, *filas) : AnadeVariable(mesa, *filas, anterior);
    Avanza(++leidas);
  }
  mesa.Termina();
  if (mesa.Lineas() == 0) return Mensaje(std::string(kSinLineas), BoxIcon::kExclamation);
  SetPointer(MousePointer::kDefault);
  VisualizaListado(sesion_, fijos ? kDescripcionFijos : kDescripcionVariables,
                   sesion_.DirDatos + "Nom" + sesion_.CodEmpresa.str() + ".mdb", "ListadosNom", this);
}

void ListadoTrabajador::Avanza(std::size_t leidas) {
  constexpr std::size_t kFilas = 5000;
  if (leidas % kFilas != 0) return;
  SetStatus("Preparando el listado: " + GroupThousands(std::to_string(leidas)) + " situaciones leídas");
  Host().DoEvents();
}

// Once for each worker, on his last situación.
void ListadoTrabajador::AnadeFija(MesaListado& mesa, Recordset& fila) {
  const std::string trabajador = TextoDe(fila, kNumero);
  if (!EsSituacionActual(trabajador, fila.Fields(kInicio).Get())) return;
  std::string domicilio = TextoDe(fila, kCalle);
  for (int parte = 1; parte <= static_cast<int>(std::size(kBlancos)); ++parte) {
    domicilio += std::string(kBlancos[parte - 1]) + TextoDe(fila, kCalle + parte);
  }
  mesa.Anade(
      {trabajador, Left(NombreDe(fila), kLargoTexto),
       TextoDe(fila, kProvinciaSS) + " " + TextoDe(fila, kProvinciaSS + 1) + " " + TextoDe(fila, kProvinciaSS + 2),
       TextoDe(fila, kIdentificacion), Left(domicilio, kLargoTexto), TextoDe(fila, kMunicipio),
       TextoDe(fila, kTelefono), TextoDe(fila, kFormaPago)});
}

// Number and name on the worker's first line.
void ListadoTrabajador::AnadeVariable(MesaListado& mesa, Recordset& fila, std::string& anterior) {
  const std::string trabajador = TextoDe(fila, kNumero);
  std::vector<Value> linea(2);
  if (trabajador != anterior) linea = {trabajador, Left(NombreDe(fila), kLargoTexto)};
  anterior = trabajador;
  for (int columna = kAlta; columna <= kUltimaVariable; ++columna) linea.emplace_back(TextoDe(fila, columna));
  mesa.Anade(linea);
}

// Together, since each question of its own is a way to the server and back.
void ListadoTrabajador::LeeUltimas() {
  const auto filas = sesion_.BDEmpresa->OpenRecordset("SELECT Campo0, Max(Campo3) FROM TRABAJADORESVAR GROUP BY Campo0",
                                                      RecordsetType::kForward);
  for (; !filas->Eof(); filas->MoveNext()) {
    ultimas_.emplace(TextoNoNulo(filas->Fields(0).Get()), filas->Fields(1).Get());
  }
}

bool ListadoTrabajador::EsSituacionActual(const std::string& trabajador, const Value& fecha) {
  const auto [leido, nuevo] = ultimas_.try_emplace(trabajador);
  Value& inicio = leido->second;
  if (nuevo) {
    const auto ultima = sesion_.BDEmpresa->OpenRecordset("SELECT Max(Campo3) FROM TRABAJADORESVAR WHERE Campo0 = '" +
                                                         SqlText(trabajador) + "' ");
    if (!ultima->Eof()) inicio = ultima->Fields(0).Get();
  }
  return !inicio.IsNull() && inicio == fecha;
}

}  // namespace zendara

// The withholding rate of the worker on the screen, and its regularisation in mid-year.
#include <initializer_list>

#include "common/busqueda.hpp"
#include "frame/bases_datos.hpp"
#include "frame/catalogo.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/format.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "values/formato_valor.hpp"
#include "values/valor_numero.hpp"
#include "withholding/calculo_sesion.hpp"
#include "workers/trabajadores.hpp"

namespace zendara {

using enum CampoTrabajador;
using Figura = CifraRegularizacion;

namespace {

constexpr int kLargoImporte = 10;
constexpr std::string_view kMascaraPesetas = "100 N";
constexpr std::string_view kMascaraOtraMoneda = "012 N";
constexpr std::string_view kMarcaPesetas = "P";

// Columns of Historico, by ordinal.
enum ColumnaHistorico {
  kRetribucion1 = 7,
  kRetencion1 = 8,
  kRetribucion2 = 9,
  kRetencion2 = 10,
  kRetencion3 = 11,
  kMoneda = 29,
};

// The figures of the frame that are kept, with their fields on the screen.
struct CifraGuardada {
  Figura cifra;
  CampoTrabajador campo;
};
constexpr CifraGuardada kCifras[] = {
    {Figura::kRetribuciones, CampoTrabajador::kRetribuciones},
    {Figura::kReduccion, CampoTrabajador::kReduccion},
    {Figura::kGastos, CampoTrabajador::kGastos},
    {Figura::kRetribucionesAcumuladas, CampoTrabajador::kRetribucionesAcumuladas},
    {Figura::kRetencionAcumulada, CampoTrabajador::kRetencionAcumulada},
};

double Divide(double dividendo, double divisor) {
  if (divisor == 0) throw RuntimeError(kDivisionByZero);
  return dividendo / divisor;
}

}  // namespace

std::string Trabajadores::TextoColumna(int ordinal) const {
  const CampoTrabajador campo = kNumero + ordinal;
  if (campo != kFechaNacimiento) return ficha_.Texto(campo);
  const Value fecha = ficha_.Valor(campo);
  return fecha.IsDate() ? FormatDate(fecha.AsDate(), "dd/mm/yyyy") : ficha_.Texto(campo);
}

std::string Trabajadores::TextoCifra(Figura cifra) const { return Cifra(cifra).Text(); }

std::optional<std::string> Trabajadores::TipoAceptado(bool regularizacion) {
  // A screen opened from here and closed again leaves nothing there.
  if (!sesion_.FormActivo) throw RuntimeError(kObjectNotSet);
  const CalculoSesion calculo = CalculaTipoIRPF(sesion_, *this, regularizacion);
  const std::string& tipo = calculo.desglose.tipo;
  const BoxAnswer respuesta = Boxes().Show({.text = "El Tipo Calculado es " + tipo + "\n ¿Quiere aplicarlo? ",
                                            .buttons = BoxButtons::kYesNo,
                                            .title = "Tipo de IRPF",
                                            .default_button = 2,
                                            .detail = calculo.Detalle()});
  return respuesta == BoxAnswer::kYes ? std::optional(tipo) : std::nullopt;
}

void Trabajadores::CalculaTipo() {
  const std::optional<std::string> tipo = TipoAceptado(false);
  if (!tipo) return;
  Recordset& situaciones = sesion_.Tabla(kTrabajadoresVar);
  if (situaciones.IsEmpty()) {
    Mensaje("Para aplicar el tipo calculado antes debe registrar el trabajador", BoxIcon::kInformation);
    return;
  }
  const std::vector<Value> claves = {TextoRecortado(kNumero), TextoRecortado(kSituacion)};
  if (!Busca(sesion_, kTrabajadoresVar, "Icampo0_1", claves)) return;
  Text1(kPorcentajeIRPF).SetText(*tipo);
  situaciones.Edit();
  situaciones.Fields(kTramoVar.ColumnaDe(kPorcentajeIRPF)).Set(*tipo);
  situaciones.Update();
  ficha_.Escrito(kPorcentajeIRPF);
}

void Trabajadores::ConectaRegularizacion() {
  Text2.On().got_focus = [this](int indice) { Text2(indice).SetBackColor(kWhite); };
  Text2.On().lost_focus = [this](int indice) {
    Text2(indice).SetBackColor(kGrey);
    if (indice == static_cast<int>(Figura::kRetencionAcumulada) && Regularizacion.Visible()) CalcularRegula.SetFocus();
  };
  for (const CifraGuardada& guardada : kCifras) AddBeside(Cifra(guardada.cifra), Regulariza);
  // Those that take no keys are locked.
  Text2.On().key_press = [this](int indice, int& caracter) { TeclaDeTexto(Text2(indice), caracter); };
}

void Trabajadores::MuestraRegularizacion() {
  Regularizacion.SetVisible(true);
  for (const CifraGuardada& guardada : kCifras) Cifra(guardada.cifra).SetText(Texto(guardada.campo));
  Cifra(Figura::kRetribucionesAcumuladas).SetText("");
  Cifra(Figura::kRetencionAcumulada).SetText("");
  Cifra(Figura::kRetribuciones).SetFocus();

  AbreFichero(sesion_, FileKind::kYear);
  sesion_.SqlTexto =
      "select * from Historico where campo0 < '4' and campo1 <= '12' and campo2= '" + SqlText(Texto(kNumero)) + "' ";
  sesion_.RsTrabajo = sesion_.BDEmpresa->OpenRecordset(sesion_.SqlTexto);
  for (; !sesion_.RsTrabajo->Eof(); sesion_.RsTrabajo->MoveNext()) SumaHistorico(*sesion_.RsTrabajo);
}

// The total so far is read without its decimals, and only the last amount of each sum is divided: payroll figures have
// always been gathered so.
void Trabajadores::SumaHistorico(Recordset& fila) {
  const auto importe = [&](int columna) { return ValorNumero(TextoNoNulo(fila.Fields(columna).Get())); };
  const bool pesetas = TextoNoNulo(fila.Fields(kMoneda).Get()) == kMarcaPesetas;
  const double divisor = pesetas ? 1 : CDbl(sesion_.CambioEuro.str());
  const auto suma = [&](Figura cifra, std::initializer_list<int> enteras, int dividida) {
    double total = Val(Cifra(cifra).Text());
    for (const int columna : enteras) total += importe(columna);
    total += Divide(importe(dividida), divisor);
    Cifra(cifra).SetText(FormatoValor(kLargoImporte, total, pesetas ? kMascaraPesetas : kMascaraOtraMoneda));
  };
  suma(Figura::kRetribucionesAcumuladas, {kRetribucion1}, kRetribucion2);
  suma(Figura::kRetencionAcumulada, {kRetencion1, kRetencion2}, kRetencion3);
}

void Trabajadores::CalculaRegularizacion() {
  if (const std::optional<std::string> tipo = TipoAceptado(true)) GrabaRegularizacion(*tipo);
  Regulariza.SetFocus();
  Regularizacion.SetVisible(false);
}

// Its figures are those of the worker for whom it was opened.
void Trabajadores::CierraRegularizacion() {
  if (!Regularizacion.Visible()) return;
  for (const auto& [indice, cifra] : Text2) cifra->SetText("");
  Regularizacion.SetVisible(false);
  if (Focus() && !Focus()->CanFocus()) Regulariza.SetFocus();
}

// On the rows where the two tables stand, which are those of the worker shown; on an emptied screen they may be
// another's, who must not get the figures.
void Trabajadores::GrabaRegularizacion(const std::string& tipo) {
  Recordset& fijo = sesion_.Tabla(kTrabajadoresFijo);
  Recordset& var = sesion_.Tabla(kTrabajadoresVar);
  const auto esta_en = [this](Recordset& tabla, int columna, CampoTrabajador campo) {
    return TextoNoNulo(tabla.Fields(columna).Get()) == TextoRecortado(campo);
  };
  if (!esta_en(fijo, 0, kNumero) || !esta_en(var, 0, kNumero) ||
      !esta_en(var, kTramoVar.ColumnaDe(kSituacion), kSituacion)) {
    throw RuntimeError(kNoCurrentRecord);
  }
  fijo.Edit();
  for (const CifraGuardada& guardada : kCifras) {
    fijo.Fields(kTramoFijo.ColumnaDe(guardada.campo)).Set(Cifra(guardada.cifra).Text());
  }
  fijo.Update();
  var.Edit();
  var.Fields(kTramoVar.ColumnaDe(kPorcentajeIRPF)).Set(tipo);
  var.Update();
  for (const auto& [cifra, campo] : kCifras) {
    Text1(campo).SetText(Cifra(cifra).Text());
    ficha_.Escrito(campo);
  }
  Text1(kPorcentajeIRPF).SetText(tipo);
  ficha_.Escrito(kPorcentajeIRPF);
  SavedBeside();
}

}  // namespace zendara

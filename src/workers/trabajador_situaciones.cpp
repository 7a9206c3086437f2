// The situaciones of the worker on the screen: a new one, one less, and whether the one shown may be saved.
#include <algorithm>

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
constexpr std::string_view kCopiaPedida = "copia de conceptos:";

// The table of a worker's situaciones: columns of TrabajadoresVar, by ordinal.
struct ColumnaSituacion {
  std::string_view titulo;
  int ordinal;
  int ancho;  // twips
  bool fecha;
};
constexpr ColumnaSituacion kTabla[kColumnasSituacion] = {
    {"Nº", 1, 600, false}, {"Descripción", 2, 1850, false}, {"Inicio", 3, 980, true}, {"Fin", 4, 980, true}};

}  // namespace

void Trabajadores::LeeSituaciones(Recordset& filas) {
  situaciones_.clear();
  for (; !filas.Eof(); filas.MoveNext()) {
    auto& fila = situaciones_.emplace_back();
    for (std::size_t i = 0; i < fila.size(); ++i) {
      const Value valor = filas.Fields(kTabla[i].ordinal).Get();
      fila[i] = Trim(TextoNoNulo(kTabla[i].fecha ? FormatDate(valor, "dd/mm/yy", sesion_.VentanaFechas) : valor));
    }
  }
  PonSituaciones();
}

void Trabajadores::PonSituaciones() {
  const int filas = static_cast<int>(situaciones_.size());
  Situaciones.Resize(filas + 1, kColumnasSituacion, 1, 0);
  for (int columna = 0; columna < kColumnasSituacion; ++columna) {
    const ColumnaSituacion& plan = kTabla[columna];
    Situaciones.ColumnAt(columna).width = plan.ancho;
    Situaciones.SetCell(0, columna, plan.titulo);
    for (int fila = 0; fila < filas; ++fila) {
      Situaciones.SetCell(fila + 1, columna,
                          situaciones_[static_cast<std::size_t>(fila)][static_cast<std::size_t>(columna)]);
    }
  }
  Situaciones.Mark(RowPicker::kNoRow);
  Situaciones.SetEnabled(filas > 0);
}

void Trabajadores::QuitaSituacion(const std::string& numero) {
  std::erase_if(situaciones_, [&](const auto& fila) { return fila[0] == numero; });
  PonSituaciones();
}

void Trabajadores::MarcaSituacion() {
  const auto mostrada = std::ranges::find(situaciones_, TextoRecortado(kSituacion), [](const auto& f) { return f[0]; });
  const bool esta = mostrada != situaciones_.end();
  Situaciones.Mark(esta ? static_cast<int>(mostrada - situaciones_.begin()) + 1 : RowPicker::kNoRow);
}

// The user's hand writes the number and leaves the field, so that its rules run.
void Trabajadores::EligeSituacion() {
  const std::string numero = Situaciones.Cell(Situaciones.Row(), 0);
  TextBox& campo = Text1(kSituacion);
  campo.SetFocus();
  if (!campo.HasFocus()) return;
  campo.Select(0, static_cast<int>(Len(campo.Text())));
  Paste(numero);
  if (campo.HasFocus() && Situaciones.CanFocus()) Situaciones.SetFocus();
}

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
  MarcaSituacion();
  ficha_.Vacia(kDescripcionSituacion, kFechaFin);
  RespuestaNueva = Boxes().Show(
      {.text = "¿Desea copiar los datos de la situación actual en la nueva situacion", .buttons = BoxButtons::kYesNo});
  if (RespuestaNueva == BoxAnswer::kNo) {
    ficha_.Limpia(kPrimeroVar, kUltimoTexto);
  } else {
    Text1(kFechaInicio).SetFocus();
  }
}

bool Trabajadores::EsSituacionNueva() const {
  return ficha_.Mostro(kNumero, TextoRecortado(kNumero)) && !ficha_.Mostro(kSituacion, TextoRecortado(kSituacion));
}

// The copy of concepts that saving is to make, and for which start an error ended it.
std::string Trabajadores::DraftNote() const {
  if (RespuestaNueva != BoxAnswer::kYes || !EsSituacionNueva()) return {};
  const auto& [trabajador, numero, inicio] = copia_.nueva;
  const bool empezada =
      copia_.empezada && trabajador == TextoRecortado(kNumero) && numero == TextoRecortado(kSituacion);
  return std::string(kCopiaPedida) + (empezada ? inicio : std::string());
}

void Trabajadores::RestoreNote(std::string_view note) {
  MarcaSituacion();
  RespuestaNueva.reset();
  copia_ = {};
  if (!EsSituacionNueva() || !note.starts_with(kCopiaPedida)) return;
  RespuestaNueva = BoxAnswer::kYes;
  const std::string_view inicio = note.substr(kCopiaPedida.size());
  if (inicio.empty()) return;
  copia_ = {.nueva = {TextoRecortado(kNumero), TextoRecortado(kSituacion), std::string(inicio)}, .empezada = true};
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
  QuitaSituacion(TextoRecortado(kSituacion));
  SetStatus("Borrada: situación " + TextoRecortado(kSituacion) + " de " + QuienEs(TextoRecortado(kNumero)));
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
    if (falta->campo) {
      Mensaje(falta->mensaje, Text1(*falta->campo), falta->icono);
      Text1(*falta->campo).SetFocus();
    } else {
      Mensaje(falta->mensaje, falta->icono);
    }
    return false;
  }
  return true;
}

}  // namespace zendara

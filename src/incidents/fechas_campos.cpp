// What entering and leaving a field of the screens with dates does, and their lists.
#include <vector>

#include "frame/bases_datos.hpp"
#include "frame/catalogo.hpp"
#include "incidents/incidencias_fechas.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/date.hpp"
#include "runtime/format.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "values/formato_fecha.hpp"
#include "values/valor_numero.hpp"

namespace zendara {
namespace {

using enum CampoFechas;

constexpr std::string_view kMascaraTrabajador = "00000;; ";

}  // namespace

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
  Formatea(kTrabajador, kMascaraTrabajador);
  const std::string numero = Texto(kTrabajador);
  if (Trim(CodigoAlEntrar) == Trim(numero)) return;
  CodigoAlEntrar = numero;
  if (sesion_.Tabla(kTrabajadoresFijo).IsEmpty()) return;
  if (LlamaTrabajador()) Poneregistro();
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
  if (filas.IsEmpty()) return AvisaSiExiste();
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
  const std::vector<std::string> actuales = {ConBarras(Texto(kInicio))};
  Elige(Text1(IndiceCampo(kInicio)), *diseno_fechas_.fechas, {Texto(kTrabajador)}, actuales,
        [this](const std::vector<std::string>& cortes) {
          const Date dia = CDate(cortes[0], sesion_.VentanaFechas);
          Recordset& fila = Lee("select * from " + std::string(diseno_fechas_.nombre_tabla) + " where campo0 = '" +
                                SqlText(Texto(kTrabajador)) + "'  and campo3 = #" + FormatDate(dia, "mm/dd/yy") + "# ");
          if (fila.IsEmpty()) return;
          MuestraFila(fila, diseno_fechas_.de_lista);
          // A field that refuses to be left has kept the focus.
          if (Text1(IndiceCampo(kInicio)).HasFocus()) ficha_.Edita(kInicio);
        });
}

}  // namespace zendara

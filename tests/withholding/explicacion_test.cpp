#include "withholding/explicacion.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "parametros.hpp"

namespace zendara {
namespace {

std::vector<std::string> Explica(const EntradasIRPF& e, const CondicionesIRPF& condiciones) {
  const DesgloseIRPF d = CalculaTipoIRPF(e, Parametros(), condiciones);
  std::vector<std::string> lines;
  for (const LineaExplicacion& linea : ExplicaTipoIRPF(d, e, Parametros(), condiciones)) {
    lines.push_back(linea.concepto + "|" + linea.importe + "|" + linea.detalle);
  }
  return lines;
}

TEST(ExplicaTipoIRPF, ShowsEveryStepThatCounts) {
  EntradasIRPF e;
  e.SituacionPerceptor = "P";
  e.SituacionFamiliar = "2";
  e.GradoMinusvalia = "1";
  e.CeutaMelilla = "S";
  e.FechaNacimiento = "01/05/30";
  e.RetribucionesAnuales = "2900000";
  e.GastosAnuales = "1000000.0";
  e.Anualidades = "1000";
  e.Hijos = {{{5, "S", "0"}, {20, "N", "0"}, {2, "N", "1"}}};
  e.Ascendientes[1] = {"3", "2"};
  EXPECT_THAT(
      Explica(e, {.ano = "01", .pesetas = true}),
      testing::ElementsAre(
          "Retribuciones anuales|2900000|dato del trabajador",
          "Rendimiento neto|1900000|retribuciones anuales − 1000000 de gastos anuales",
          "Reducción por rendimientos del trabajo|689911|500000 − (1900000 − 1350000) × 0,1923, multiplicado por 1,75 "
          "por minusvalía de grado 1",
          "Mínimo personal|850000|minusvalía de grado 1",
          "Mínimo familiar|1416666|hijos que cuentan: 3 (por entero vale 2): 3 × 200000 por el primer y segundo hijo, "
          "1 × 300000 por el tercero y siguientes, 2 × 25000 de 3 a 15 años, 1 × 50000 menores de 3 años, "
          "1 × 300000 con minusvalía de grado 1; ascendientes: 1, (100000 + 250000) / 3",
          "Anualidades a favor de los hijos|1000|dato del trabajador",
          "Deducción por pensionista|120000|cantidad fija del año",
          "Deducción por más de dos hijos|110000|cantidad fija del año",
          "Base de retención|0|sale negativa: cuenta como 0",
          "Tramo de la escala|0|tramo 1: 0 más el 18 % de lo que pase de 0", "Cuota según la escala|0|0 + 0 × 18 %",
          "Límite sin retención|2125000|dos o más hijos, situación familiar 2: 2025000 + 100000 por pensionista; las "
          "retribuciones lo superan",
          "Tope de la cuota|306250|35 % de lo que las retribuciones pasan de 2025000; la cuota no lo supera",
          "Cuota de retención|0|la cuota según la escala",
          "Tipo calculado|0|cuota de retención / retribuciones anuales × 100, sin redondear",
          "Tipo de Ceuta y Melilla|0|la mitad del tipo calculado", "Tipo de retención|0|en porcentaje"));
}

// Paid 1200000 with a contract of less than a year, but for what each case changes.
TEST(ExplicaTipoIRPF, ShowsWhatIsDifferentForEachWorker) {
  constexpr auto kPago = &EntradasIRPF::RetribucionesAnuales;
  constexpr auto kCobrado = &EntradasIRPF::RetribucionesAcumuladas;
  constexpr auto kRetenido = &EntradasIRPF::RetencionAcumulada;
  constexpr auto kPerceptor = &EntradasIRPF::SituacionPerceptor;
  const struct {
    std::vector<std::pair<std::string EntradasIRPF::*, const char*>> changes;
    const char* line;
  } cases[] = {
      {{{&EntradasIRPF::RentasIrregulares, "5000"}},
       "Rendimiento neto|1195000,00|retribuciones anuales − 5000 de rentas irregulares"},
      {{{kPago, "1350000"}}, "Reducción por rendimientos del trabajo|0|sin reducción para este rendimiento"},
      {{{kPago, "2000000"}}, "Reducción por rendimientos del trabajo|375000|375000 por rendimiento desde 2000000"},
      {{{&EntradasIRPF::GradoMinusvalia, "2"}},
       "Reducción por rendimientos del trabajo|1125000,00|500000 por rendimiento hasta 1340000, multiplicado por 2,25 "
       "por minusvalía de grado 2"},
      {{}, "Mínimo personal|650000|mayor de 65 años: cumple 66 en el año"},
      {{}, "Base de retención|50000,00|rendimiento neto menos la reducción, los mínimos y las deducciones anteriores"},
      {{}, "Límite sin retención|1280000|sin hijos, situación familiar 3: 1280000; las retribuciones no lo superan"},
      {{{kPerceptor, "D"}, {&EntradasIRPF::SituacionFamiliar, ""}},
       "Límite sin retención|200000,00|sin hijos, sin situación familiar: 0 + 200000 por desempleado; las "
       "retribuciones lo superan"},
      {{{kPago, "1300000"}}, "Cuota de retención|7000,00|el tope"},
      {{}, "Tipo calculado|0|sin retención: las retribuciones no superan el límite"},
      {{{kPago, "1300000"}, {kCobrado, "300000"}, {kRetenido, "2000,5"}},
       "Tipo calculado|0,49|(7000,00 − 2000,5 ya retenido) / (1300000 − 300000 ya cobrado) × 100, sin redondear"},
      {{{kPago, "1300000"}, {kCobrado, "1"}, {kRetenido, "9000"}},
       "Tipo calculado|0|(7000,00 − 9000 ya retenido) / (1300000 − 1 ya cobrado) × 100; sale negativo: cuenta como 0"},
      {{{kPago, "1300000"}, {kCobrado, "1300000"}}, "Tipo calculado|0|no queda retribución pendiente"},
      {{}, "Tipo mínimo|2|contrato inferior a un año"},
      {{}, "Tipo de retención|2|en porcentaje: el mínimo es mayor"},
  };
  for (const auto& c : cases) {
    EntradasIRPF e;
    e.TipoContrato = "I";
    e.SituacionFamiliar = "3";
    e.FechaNacimiento = "31/12/35";
    e.RetribucionesAnuales = "1200000";
    for (const auto& [figure, text] : c.changes) e.*figure = text;
    const bool regularised = !e.RetribucionesAcumuladas.empty();
    EXPECT_THAT(Explica(e, {.ano = "01", .pesetas = false, .regularizacion = regularised}), testing::Contains(c.line));
  }
}

}  // namespace
}  // namespace zendara

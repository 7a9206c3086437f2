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

TEST(ExplicaTipoIRPF, TellsEveryStepThatCounts) {
  EntradasIRPF e;
  e.SituacionPerceptor = "P";
  e.SituacionFamiliar = "2";
  e.GradoMinusvalia = "1";
  e.CeutaMelilla = "S";
  e.FechaNacimiento = "01/05/30";
  e.RetribucionesAnuales = "2900000";
  e.GastosAnuales = "1000000.0";
  e.Anualidades = "1000";
  e.Hijos[0] = {5, "S", "0"};
  e.Ascendientes[1] = {"3", "2"};
  EXPECT_THAT(
      Explica(e, {.ano = "01", .pesetas = true}),
      testing::ElementsAre(
          "Retribuciones anuales|2900000|dato del trabajador",
          "Rendimiento neto|1900000|retribuciones anuales − 1000000 de gastos anuales",
          "Reducción por rendimientos del trabajo|689911|500000 − (1900000 − 1350000) × 0,1923, multiplicado por 1,75 "
          "por minusvalía de grado 1",
          "Mínimo personal|850000|minusvalía de grado 1",
          "Mínimo familiar|566666|hijos que cuentan: 1 (por entero vale 2): 2 × 200000 por el primer y segundo hijo, "
          "2 × 25000 de 3 a 15 años; ascendientes: 1, (100000 + 250000) / 3",
          "Anualidades a favor de los hijos|1000|dato del trabajador",
          "Deducción por pensionista|120000|cantidad fija del año", "Base de retención|0|sale negativa: cuenta como 0",
          "Tramo de la escala|0|tramo 1: 0 más el 18 % de lo que pase de 0", "Cuota según la escala|0|0 + 0 × 18 %",
          "Límite sin retención|1600000|un hijo, situación familiar 2: 1500000 + 100000 por pensionista; las "
          "retribuciones lo superan",
          "Tope de la cuota|490000|35 % de lo que las retribuciones pasan de 1500000; la cuota no lo supera",
          "Cuota de retención|0|la cuota según la escala",
          "Tipo calculado|0|cuota de retención / retribuciones anuales × 100, sin redondear",
          "Tipo de Ceuta y Melilla|0|la mitad del tipo calculado", "Tipo de retención|0|en porcentaje"));
}

TEST(ExplicaTipoIRPF, TellsLimitRegularisationAndMinimumRate) {
  EntradasIRPF e;
  e.TipoContrato = "I";
  e.SituacionFamiliar = "3";
  e.RetribucionesAnuales = "1200000";
  const CondicionesIRPF plain{.ano = "01", .pesetas = false};
  EXPECT_THAT(Explica(e, plain),
              testing::IsSupersetOf({"Rendimiento neto|1200000,00|retribuciones anuales",
                                     "Mínimo familiar|0|hijos que cuentan: 0; ascendientes: 0",
                                     "Base de retención|150000,00|rendimiento neto menos la reducción, los mínimos y "
                                     "las deducciones anteriores",
                                     "Límite sin retención|1280000|sin hijos, situación familiar 3: 1280000; las "
                                     "retribuciones no lo superan",
                                     "Tipo calculado|0|sin retención: las retribuciones no superan el límite",
                                     "Tipo mínimo|2|contrato inferior a un año",
                                     "Tipo de retención|2|en porcentaje: el mínimo es mayor"}));

  e.RetribucionesAnuales = "1300000";
  e.RetribucionesAcumuladas = "300000";
  e.RetencionAcumulada = "2000,5";
  const CondicionesIRPF regularised{.ano = "01", .pesetas = false, .regularizacion = true};
  EXPECT_THAT(Explica(e, regularised),
              testing::IsSupersetOf({"Cuota de retención|7000,00|el tope",
                                     "Tipo calculado|0,49|(7000,00 − 2000,5 ya retenido) / (1300000 − 300000 ya "
                                     "cobrado) × 100, sin redondear"}));
  e.RetencionAcumulada = "9000";
  EXPECT_THAT(Explica(e, regularised), testing::Contains(testing::HasSubstr("sale negativo: cuenta como 0")));
}

}  // namespace
}  // namespace zendara

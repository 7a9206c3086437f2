// Where the calculation ends otherwise than with a figure, and the texts of its last steps.
#include "withholding/calculo_irpf.hpp"

#include <gtest/gtest.h>

#include "parametros.hpp"
#include "support/errors.hpp"

namespace zendara {
namespace {

EntradasIRPF Trabajador(const std::string& retribuciones) {
  EntradasIRPF e;
  e.SituacionPerceptor = "A";
  e.TipoContrato = "G";
  e.SituacionFamiliar = "3";
  e.GradoMinusvalia = "0";
  e.RetribucionesAnuales = retribuciones;
  return e;
}

DesgloseIRPF Calcula(const EntradasIRPF& e, const ParametrosIRPF& parametros = Parametros()) {
  return CalculaTipoIRPF(e, parametros, {.ano = "01"});
}

TEST(CalculaTipoIRPF, RaisesRunTimeErrors) {
  const auto error_of = [](const EntradasIRPF& e, const ParametrosIRPF& parametros) {
    return ErrorOf([&] { Calcula(e, parametros); });
  };
  ParametrosIRPF from_100 = Parametros();
  from_100[0] = 100;
  EntradasIRPF base_99 = Trabajador("10000000");
  base_99.Anualidades = "9074901";
  EXPECT_EQ(error_of(base_99, from_100), kItemNotFound);

  ParametrosIRPF steep = Parametros();
  steep[50] = 1e308;
  EXPECT_EQ(error_of(Trabajador("1500000"), steep), kOverflow);
  EXPECT_EQ(error_of(Trabajador("1E400"), Parametros()), kOverflow);

  EntradasIRPF no_date = Trabajador("1500000");
  no_date.FechaNacimiento = "abc";
  EXPECT_EQ(error_of(no_date, Parametros()), kTypeMismatch);
  EXPECT_EQ(ErrorOf([] { AnoFin("x1"); }), kTypeMismatch);
}

TEST(CalculaTipoIRPF, WithoutPayThereIsNoAmount) {
  const DesgloseIRPF d = Calcula(Trabajador(""));
  EXPECT_EQ(d.cuota_escala + "|" + d.tope + "|" + d.cuota_retencion + "|" + d.tipo, "|||0");
}

}  // namespace
}  // namespace zendara

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

TEST(Tipo, StaysWithinLimitCapAndMinimum) {
  const struct {
    const char *retribuciones, *perceptor, *contrato, *cuota, *tope, *retencion, *tipo;
  } cases[] = {
      // limit 1280000; the amounts are those of the scale all the same
      {"1280000", "A", "G", "41400", "", "41400", "0"},
      {"1280000", "A", "I", "41400", "", "41400", "2"},
      {"", "A", "G", "", "", "", "0"},
      {"", "A", "R", "", "", "", "18"},
      {"1280001", "A", "G", "41400", "0", "0", "0"},
      {"1300000", "A", "G", "45000", "7000", "7000", "0,53"},
      {"3000000", "A", "G", "461280", "602000", "461280", "15,37"},
      {"3000001", "A", "G", "461280", "", "461280", "15,37"},
      // pensioner: limit 1380000, the cap is measured from 1280000
      {"1380000", "P", "", "38838", "", "38838", "0"},
  };
  for (const auto& c : cases) {
    EntradasIRPF e = Trabajador(c.retribuciones);
    e.SituacionPerceptor = c.perceptor;
    e.TipoContrato = c.contrato;
    const DesgloseIRPF d = Calcula(e);
    EXPECT_EQ(d.cuota_escala, c.cuota) << c.retribuciones << c.perceptor;
    EXPECT_EQ(d.tope, c.tope) << c.retribuciones << c.perceptor;
    EXPECT_EQ(d.cuota_retencion, c.retencion) << c.retribuciones << c.perceptor;
    EXPECT_EQ(d.tipo, c.tipo) << c.retribuciones << c.perceptor << c.contrato;
  }
}

}  // namespace
}  // namespace zendara

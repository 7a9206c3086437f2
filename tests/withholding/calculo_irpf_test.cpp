#include "withholding/calculo_irpf.hpp"

#include <gtest/gtest.h>

#include "parametros.hpp"
#include "runtime/date.hpp"
#include "support/errors.hpp"

namespace zendara {
namespace {

constexpr bool kPesetas = true;
constexpr bool kDecimales = false;

EntradasIRPF Trabajador(const std::string& retribuciones) {
  EntradasIRPF e;
  e.SituacionPerceptor = "A";
  e.TipoContrato = "G";
  e.SituacionFamiliar = "3";
  e.GradoMinusvalia = "0";
  e.RetribucionesAnuales = retribuciones;
  return e;
}

DesgloseIRPF Calcula(const EntradasIRPF& e, bool pesetas = kPesetas, const ParametrosIRPF& parametros = Parametros()) {
  return CalculaTipoIRPF(e, parametros, {.ano = "01", .pesetas = pesetas});
}

// Net income less 375000 less 550000 less the annuities is the base.
TEST(Escala, TakesTheBracketOfTheBase) {
  const struct {
    const char *retribuciones, *anualidades, *base;
    int tramo;
    const char *cuota, *tipo;
  } cases[] = {
      {"10000000", "10000000", "0", 0, "", "0"},
      {"10000000", "9075000", "", 0, "", "0"},
      {"10000000", "8463000", "612000", 1, "110160", "1,10"},
      {"10000000", "6933001", "2141999", 1, "477360", "4,77"},
      {"10000000", "6932998", "2142002", 2, "477361", "4,77"},
      {"10000000", "2343001", "6731999", 3, "2003280", "20,03"},
      {"10000000", "", "9075000", 4, "3057630", "30,57"},
      // a base that equals the last limit finds no bracket
      {"20000000", "7855000", "11220000", -1, "", "0"},
      {"20000000", "", "19075000", 5, "7793280", "38,96"},
  };
  for (const auto& c : cases) {
    EntradasIRPF e = Trabajador(c.retribuciones);
    e.Anualidades = c.anualidades;
    const DesgloseIRPF d = Calcula(e);
    EXPECT_EQ(d.base_retencion, c.base);
    EXPECT_EQ(d.tramo, c.tramo) << c.base;
    EXPECT_EQ(d.cuota_escala, c.cuota) << c.base;
    EXPECT_EQ(d.tipo, c.tipo) << c.base;
  }
}

TEST(Escala, GoesOnPastABracketWithoutRate) {
  ParametrosIRPF exempt = Parametros();
  exempt[2] = 0;
  exempt[5] = 0;
  const auto tramo = [&](const char* retribuciones) {
    const DesgloseIRPF d = Calcula(Trabajador(retribuciones), kPesetas, exempt);
    return std::to_string(d.tramo) + " " + d.cuota_escala;
  };
  EXPECT_EQ(tramo("1500000"), "0 ");
  EXPECT_EQ(tramo("2000000"), "1 111120");
}

TEST(CalculaTipoIRPF, RaisesRunTimeErrors) {
  const auto error_of = [](const EntradasIRPF& e, const ParametrosIRPF& parametros) {
    return ErrorOf([&] { Calcula(e, kPesetas, parametros); });
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
}

TEST(Rendimiento, IsReducedByItsStretch) {
  const struct {
    const char *retribuciones, *irregulares, *gastos, *grado;
    bool pesetas;
    const char *rendimiento, *reduccion;
  } cases[] = {
      {"1350000", "", "", "0", kPesetas, "1350000", "500000"},
      {"1350003", "", "", "0", kDecimales, "1350003,00", "499999,42"},
      {"2000000", "", "", "0", kPesetas, "2000000", "375000"},
      {"2500000,5", "", "0,01", "0", kDecimales, "2500000,49", "375000"},
      {"100000", "", "300000", "0", kPesetas, "-200000", "500000"},
      {"1999999", "", "", "3", kDecimales, "1999999,00", "1031264,27"},
      {"", "", "", "0", kPesetas, "", "500000"},
      // more than ten characters lose the first ones
      {"12345678901", "", "", "0", kPesetas, "2345678901", "375000"},
      {"123456789", "", "", "0", kDecimales, "3456789,00", "375000"},
  };
  for (const auto& c : cases) {
    EntradasIRPF e = Trabajador(c.retribuciones);
    e.RentasIrregulares = c.irregulares;
    e.GastosAnuales = c.gastos;
    e.GradoMinusvalia = c.grado;
    const DesgloseIRPF d = Calcula(e, c.pesetas);
    EXPECT_EQ(d.rendimiento_neto, c.rendimiento);
    EXPECT_EQ(d.reduccion_trabajo, c.reduccion) << c.retribuciones;
  }
}

TEST(Rendimiento, HasNoReductionBetweenItsStretches) {
  ParametrosIRPF gap = Parametros();
  gap[46] = 1300000;
  for (const auto& [net, reduction] : {std::pair{"1300000", "500000"}, {"1320000", ""}, {"1350000", ""}}) {
    EXPECT_EQ(Calcula(Trabajador(net), kPesetas, gap).reduccion_trabajo, reduction);
  }
}

TEST(MinimoPersonal, ReplacesByAgeThenByGrade) {
  const struct {
    Value nacimiento;
    const char* grado;
    int edad;
    const char* minimo;
  } cases[] = {{Null{}, "0", -1, "550000"},
               {"", "", -1, "550000"},
               {"01/01/36", "0", 65, "550000"},
               {"31/12/35", "0", 66, "650000"},
               {*MakeDate(1895, 5, 1), "0", 106, "650000"},
               {"01/05/20", "0", 81, "650000"},  // nobody is born after the working year
               {"31/12/35", "3", 66, "1150000"}};
  for (const auto& c : cases) {
    EntradasIRPF e = Trabajador("2000000");
    e.FechaNacimiento = c.nacimiento;
    e.GradoMinusvalia = c.grado;
    const DesgloseIRPF d = Calcula(e);
    EXPECT_EQ(d.minimo_personal, c.minimo);
    EXPECT_EQ(d.edad, c.edad) << c.minimo;
  }
}

TEST(MinimoFamiliar, CountsChildrenByAgeWeightAndGrade) {
  const struct {
    std::vector<Hijo> hijos;
    const char *minimo, *limite, *deduccion;
  } cases[] = {
      {{{0, "N", "2"}}, "", "1280000", ""},  // born in the working year
      {{{25, "S", "0"}, {2001, "", ""}}, "", "1280000", ""},
      {{{24, "S", "0"}}, "400000", "1350000", ""},
      {{{5, "", "0"}}, "450000", "1350000", ""},
      {{{2, "N", "0"}, {3, "N", "0"}}, "475000", "1400000", ""},
      {{{15, "N", "0"}, {16, "S", "0"}}, "625000", "1400000", ""},
      {{{25, "S", "1"}}, "1000000", "1400000", ""},
      {{{25, "N", "2"}}, "800000", "1350000", ""},
      {{{10, "S", "2x"}}, "1650000", "1350000", ""},
      {{{9, "N", ""}, {8, "N", ""}, {40, "S", "1"}, {0, "N", ""}, {7, "N", ""}}, "1975000", "1400000", "110000"},
  };
  for (const auto& c : cases) {
    EntradasIRPF e = Trabajador("3000000");
    std::copy(c.hijos.begin(), c.hijos.end(), e.Hijos.begin());
    const DesgloseIRPF d = Calcula(e);
    EXPECT_EQ(d.minimo_familiar, c.minimo);
    EXPECT_EQ(d.limite, c.limite) << c.minimo;
    EXPECT_EQ(d.deduccion_familia_numerosa, c.deduccion) << c.minimo;
  }
}

TEST(MinimoFamiliar, SharesAscendantsRoundingEachPart) {
  for (const auto& [convivencia, pesetas, minimo] :
       {std::tuple{"3", kDecimales, "116666,66"}, {"6", kPesetas, "58334"}, {"", kPesetas, ""}}) {
    EntradasIRPF e = Trabajador("3000000");
    e.Ascendientes[0] = {convivencia, "2"};
    EXPECT_EQ(Calcula(e, pesetas).minimo_familiar, minimo);
  }
}

TEST(Limite, IsNothingWithoutFamilySituationButTheIncreaseOfTheReceiver) {
  for (const auto& [situacion, perceptor, limite] :
       {std::tuple{"", "A", ""}, {"4", "P", "100000"}, {"3", "", "1280000"}}) {
    EntradasIRPF e = Trabajador("9000000");
    e.SituacionFamiliar = situacion;
    e.SituacionPerceptor = perceptor;
    EXPECT_EQ(Calcula(e).limite, limite) << situacion;
  }
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

TEST(Tipo, IsHalvedForCeutaInTheMaskOfMoney) {
  EntradasIRPF e = Trabajador("4000000");
  e.Anualidades = "875000";
  for (const auto& [mark, rate] : {std::pair{"0", "12,34"}, {"1", "12,34"}, {"s", "12,34"}, {"S", "6"}}) {
    e.CeutaMelilla = mark;
    EXPECT_EQ(Calcula(e).tipo, rate) << mark;
  }
}

// The amount of the year is 461280.
TEST(Regularizacion, SpreadsWhatIsLeft) {
  const struct {
    const char *cobrado, *retenido, *contrato, *tipo;
  } cases[] = {{"", "", "G", "15,37"},
               {"1500000,5", "150000,25", "G", "20,75"},
               {"1500000", "461281", "G", "0"},
               {"1500000", "461281", "I", "2"},
               {"3000000", "100000", "G", "0"},
               {"3100000", "500000", "G", "38,72"},
               // a rate of more than five characters keeps the last five
               {"2700000", "", "G", "53,76"},
               {"2999999", "0", "G", "28000"}};
  for (const auto& c : cases) {
    EntradasIRPF e = Trabajador("3000000");
    e.RetribucionesAcumuladas = c.cobrado;
    e.RetencionAcumulada = c.retenido;
    e.TipoContrato = c.contrato;
    const CondicionesIRPF regularised{.ano = "01", .pesetas = true, .regularizacion = true};
    EXPECT_EQ(CalculaTipoIRPF(e, Parametros(), regularised).tipo, c.tipo) << c.cobrado << c.retenido;
  }
}

}  // namespace
}  // namespace zendara

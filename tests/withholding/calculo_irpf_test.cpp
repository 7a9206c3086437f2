#include "withholding/calculo_irpf.hpp"

#include <gtest/gtest.h>

#include <initializer_list>

#include "parametros.hpp"
#include "runtime/date.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr bool kPesetas = true;
constexpr bool kDecimales = false;

CondicionesIRPF Condiciones(bool pesetas, bool regularizacion = false) {
  return {.ano = "01", .pesetas = pesetas, .regularizacion = regularizacion};
}

EntradasIRPF Trabajador(const std::string& retribuciones) {
  EntradasIRPF e;
  e.SituacionPerceptor = "A";
  e.TipoContrato = "G";
  e.SituacionFamiliar = "3";
  e.GradoMinusvalia = "0";
  e.RetribucionesAnuales = retribuciones;
  return e;
}

DesgloseIRPF Calcula(const EntradasIRPF& e, bool pesetas = kPesetas) {
  return CalculaTipoIRPF(e, Parametros(), Condiciones(pesetas));
}

// Net income less 375000 less 550000 less the annuities is the base.
TEST(Escala, TakesTheBracketOfTheBase) {
  const struct {
    const char* retribuciones;
    const char* anualidades;
    const char* base;
    int tramo;
    const char* cuota;
    const char* tipo;
  } cases[] = {
      {"10000000", "10000000", "0", 0, "", "0"},
      {"10000000", "9075000", "", 0, "", "0"},
      {"10000000", "8463001", "611999", 0, "110160", "1,10"},
      {"10000000", "8463000", "612000", 1, "110160", "1,10"},
      {"10000000", "8462999", "612001", 1, "110160", "1,10"},
      {"10000000", "6933001", "2141999", 1, "477360", "4,77"},
      {"10000000", "6933000", "2142000", 2, "477360", "4,77"},
      {"10000000", "6932998", "2142002", 2, "477361", "4,77"},
      {"10000000", "4893001", "4181999", 2, "1054680", "10,54"},
      {"10000000", "4893000", "4182000", 3, "1054680", "10,54"},
      {"10000000", "2343001", "6731999", 3, "2003280", "20,03"},
      {"10000000", "2343000", "6732000", 4, "2003280", "20,03"},
      {"10000000", "", "9075000", 4, "3057630", "30,57"},
      {"20000000", "7855001", "11219999", 4, "4022880", "20,11"},
      // a base that equals the last limit finds no bracket
      {"20000000", "7855000", "11220000", -1, "", "0"},
      {"20000000", "7854998", "11220002", 5, "4022881", "20,11"},
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

TEST(Escala, RoundsEachFigureInItsCurrency) {
  EntradasIRPF e = Trabajador("9000000,00");
  e.Anualidades = "5932999,55";
  const DesgloseIRPF d = Calcula(e, kDecimales);
  EXPECT_EQ(d.base_retencion, "2142000,45");
  EXPECT_EQ(d.tramo_resto, "0,45");
  EXPECT_EQ(d.cuota_escala, "477360,13");  // 0,12735 becomes 0,13 before it is added
  EXPECT_EQ(d.tipo, "5,30");
}

TEST(Escala, GoesOnPastABracketWithoutRate) {
  ParametrosIRPF exempt = Parametros();
  exempt[2] = 0;
  exempt[5] = 0;
  const auto tramo = [&](const char* retribuciones) {
    const DesgloseIRPF d = CalculaTipoIRPF(Trabajador(retribuciones), exempt, Condiciones(kPesetas));
    return std::to_string(d.tramo) + " " + d.cuota_escala;
  };
  EXPECT_EQ(tramo("1500000"), "0 ");
  EXPECT_EQ(tramo("2000000"), "1 111120");
}

int ErrorOf(const EntradasIRPF& e, const ParametrosIRPF& parametros) {
  try {
    CalculaTipoIRPF(e, parametros, Condiciones(kPesetas));
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

TEST(CalculaTipoIRPF, RaisesRunTimeErrors) {
  ParametrosIRPF from_100 = Parametros();
  from_100[0] = 100;
  EntradasIRPF base_99 = Trabajador("10000000");
  base_99.Anualidades = "9074901";
  EXPECT_EQ(ErrorOf(base_99, from_100), kSubscriptOutOfRange);
  base_99.Anualidades = "9074900";
  EXPECT_EQ(ErrorOf(base_99, from_100), 0);

  ParametrosIRPF steep = Parametros();
  steep[50] = 1e308;
  EXPECT_EQ(ErrorOf(Trabajador("1500000"), steep), kOverflow);
  EXPECT_EQ(ErrorOf(Trabajador("1E400"), Parametros()), kOverflow);

  EntradasIRPF no_date = Trabajador("1500000");
  no_date.FechaNacimiento = "abc";
  EXPECT_EQ(ErrorOf(no_date, Parametros()), kTypeMismatch);
}

TEST(Rendimiento, IsReducedByItsStretch) {
  const struct {
    const char* retribuciones;
    const char* irregulares;
    const char* gastos;
    const char* grado;
    bool pesetas;
    const char* rendimiento;
    const char* reduccion;
  } cases[] = {
      {"1350000", "", "", "0", kPesetas, "1350000", "500000"},
      {"1350002", "", "", "0", kPesetas, "1350002", "500000"},
      {"1350003", "", "", "0", kPesetas, "1350003", "499999"},
      {"1350003", "", "", "0", kDecimales, "1350003,00", "499999,42"},
      {"1999999", "", "", "", kPesetas, "1999999", "375005"},
      {"1999999", "", "", "", kDecimales, "1999999,00", "375005,19"},
      {"2000000", "", "", "0", kPesetas, "2000000", "375000"},
      {"2500000", "300000", "250000", "0", kPesetas, "1950000", "384620"},
      {"2500000,5", "", "0,01", "0", kDecimales, "2500000,49", "375000"},
      {"100000", "", "300000", "0", kPesetas, "-200000", "500000"},
      {"1350000", "", "", "1", kPesetas, "1350000", "875000"},
      {"2000000", "", "", "2", kPesetas, "2000000", "843750"},
      {"1999999", "", "", "3", kPesetas, "1999999", "1031264"},
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
    EXPECT_EQ(CalculaTipoIRPF(Trabajador(net), gap, Condiciones(kPesetas)).reduccion_trabajo, reduction);
  }
}

TEST(MinimoPersonal, ReplacesByAgeThenByGrade) {
  const struct {
    Value nacimiento;
    const char* grado;
    int edad;
    const char* minimo;
  } cases[] = {
      {Null{}, "0", -1, "550000"},      {"", "", -1, "550000"},          {"31/12/36", "0", 65, "550000"},
      {"01/01/36", "0", 65, "550000"},  {"31/12/35", "0", 66, "650000"}, {*MakeDate(1920, 5, 1), "0", 81, "650000"},
      {"01/05/20", "0", -19, "550000"},  // two digits: 2020
      {"31/12/35", "1", 66, "850000"},  {Null{}, "2", -1, "850000"},     {"31/12/35", "3", 66, "1150000"}};
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
    // count, first two, later, 3 to 15, under 3, grade 1, grade 2, for the limit
    std::array<int, 8> cuentas;
    const char* minimo;
    const char* limite;
  } cases[] = {
      {{{0, "N", "2"}}, {0, 0, 0, 0, 0, 0, 0, 0}, "", "1280000"},  // born in the working year
      {{{25, "S", "0"}, {2001, "", ""}}, {0, 0, 0, 0, 0, 0, 0, 0}, "", "1280000"},
      {{{24, "S", "0"}}, {1, 2, 0, 0, 0, 0, 0, 1}, "400000", "1350000"},
      {{{5, "", "0"}}, {1, 2, 0, 2, 0, 0, 0, 1}, "450000", "1350000"},
      {{{2, "N", "0"}, {3, "N", "0"}}, {2, 2, 0, 1, 1, 0, 0, 2}, "475000", "1400000"},
      {{{15, "N", "0"}, {16, "S", "0"}}, {2, 3, 0, 1, 0, 0, 0, 2}, "625000", "1400000"},
      {{{25, "S", "1"}}, {1, 2, 0, 0, 0, 2, 0, 2}, "1000000", "1400000"},
      {{{25, "N", "2"}}, {1, 1, 0, 0, 0, 0, 1, 1}, "800000", "1350000"},
      {{{10, "N", "1"}}, {1, 1, 0, 1, 0, 1, 0, 1}, "525000", "1350000"},
      {{{10, "S", "2x"}}, {1, 2, 0, 2, 0, 0, 2, 1}, "1650000", "1350000"},
      {{{1, "N", "0"}, {5, "S", "0"}, {20, "N", "2"}}, {3, 3, 1, 2, 1, 0, 1, 3}, "1600000", "1400000"},
      {{{9, "N", ""}, {8, "N", ""}, {40, "S", "1"}, {0, "N", ""}, {7, "N", ""}},
       {4, 2, 3, 3, 0, 2, 0, 5},
       "1975000",
       "1400000"},
  };
  for (const auto& c : cases) {
    EntradasIRPF e = Trabajador("3000000");
    std::copy(c.hijos.begin(), c.hijos.end(), e.Hijos.begin());
    const DesgloseIRPF d = Calcula(e);
    EXPECT_EQ((std::array{d.cuenta_hijos, d.hijos_primeros, d.hijos_siguientes, d.hijos_escolares, d.hijos_menores,
                          d.hijos_minusvalia1, d.hijos_minusvalia2, d.hijos_limite}),
              c.cuentas)
        << c.minimo;
    EXPECT_EQ(d.minimo_familiar, c.minimo);
    EXPECT_EQ(d.limite, c.limite) << c.minimo;
    EXPECT_EQ(d.deduccion_familia_numerosa, c.cuentas[0] > 2 ? "110000" : "");
  }
}

TEST(MinimoFamiliar, SharesAscendantsRoundingEachPart) {
  const struct {
    std::vector<Ascendiente> ascendientes;
    bool pesetas;
    const char* minimo;
  } cases[] = {{{{"1", "0"}}, kPesetas, "100000"},     {{{"3", "0"}}, kPesetas, "33333"},
               {{{"3", "0"}}, kDecimales, "33333,33"}, {{{"2", "1"}, {"1", ""}}, kPesetas, "225000"},
               {{{"3", "2"}}, kPesetas, "116666"},     {{{"6", "2"}}, kPesetas, "58334"},
               {{{"6", "2"}}, kDecimales, "58333,34"}, {{{"", "1"}, {"0", "2"}}, kPesetas, ""}};
  for (const auto& c : cases) {
    EntradasIRPF e = Trabajador("3000000");
    std::copy(c.ascendientes.begin(), c.ascendientes.end(), e.Ascendientes.begin());
    EXPECT_EQ(Calcula(e, c.pesetas).minimo_familiar, c.minimo);
  }
}

TEST(Limite, GoesByFamilySituationChildrenAndReceiver) {
  const struct {
    const char* situacion;
    int hijos;
    const char* perceptor;
    const char* limite;
  } cases[] = {{"1", 0, "A", "1250000"}, {"2", 0, "A", "1265000"}, {"3", 0, "", "1280000"},  {"1", 1, "A", "1650000"},
               {"2", 1, "A", "1500000"}, {"3", 1, "P", "1450000"}, {"1", 2, "A", "1800000"}, {"2", 2, "D", "2225000"},
               {"3", 2, "A", "1400000"}, {"2", 3, "A", "2025000"}, {"", 1, "A", ""},         {"4", 2, "P", "100000"}};
  for (const auto& c : cases) {
    EntradasIRPF e = Trabajador("9000000");
    e.SituacionFamiliar = c.situacion;
    e.SituacionPerceptor = c.perceptor;
    for (int i = 0; i < c.hijos; ++i) e.Hijos[static_cast<std::size_t>(i)] = {12, "N", "0"};
    EXPECT_EQ(Calcula(e).limite, c.limite) << c.situacion << c.hijos << c.perceptor;
  }
}

TEST(Tipo, StaysWithinLimitCapAndMinimum) {
  const struct {
    const char* retribuciones;
    const char* perceptor;
    const char* contrato;
    const char* cuota;  // of the scale
    const char* tope;
    const char* retencion;
    const char* tipo;
  } cases[] = {
      // limit 1280000; the amounts are those of the scale all the same
      {"1280000", "A", "G", "41400", "", "41400", "0"},
      {"1280000", "A", "I", "41400", "", "41400", "2"},
      {"1280000", "A", "R", "41400", "", "41400", "18"},
      {"", "A", "G", "", "", "", "0"},
      {"", "A", "R", "", "", "", "18"},
      {"1280001", "A", "G", "41400", "0", "0", "0"},
      {"1280002", "A", "G", "41400", "1", "1", "0"},
      {"1300000", "A", "G", "45000", "7000", "7000", "0,53"},
      {"1300000", "A", "I", "45000", "7000", "7000", "2"},
      {"1400000", "A", "I", "64731", "42000", "42000", "3"},
      {"1362404", "A", "I", "56662", "28841", "28841", "2,11"},
      {"3000000", "A", "G", "461280", "602000", "461280", "15,37"},
      {"3000000", "A", "R", "461280", "602000", "461280", "18"},
      {"3000001", "A", "G", "461280", "", "461280", "15,37"},
      {"4600000", "A", "R", "911199", "", "911199", "19,80"},
      // pensioner: limit 1380000, the cap is measured from 1280000
      {"1380000", "P", "", "38838", "", "38838", "0"},
      {"1400000", "P", "", "43131", "42000", "42000", "3"},
      {"1480001", "D", "", "44100", "70000", "44100", "2,97"},
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

TEST(Tipo, IsCutNotRounded) {
  EntradasIRPF e = Trabajador("4000000");
  for (const auto& [annuity, rate] :
       {std::pair{"0", "18,53"}, {"640000", "14"}, {"1255335", "10"}, {"1255336", "9,99"}}) {
    e.Anualidades = annuity;
    EXPECT_EQ(Calcula(e).tipo, rate) << Calcula(e).cuota_retencion;
  }
}

TEST(Tipo, IsHalvedForCeutaInTheMaskOfMoney) {
  EntradasIRPF e = Trabajador("4000000");
  e.Anualidades = "875000";
  for (const auto& [mark, pesetas, rate] : {std::tuple{"0", kPesetas, "12,34"},
                                            {"1", kPesetas, "12,34"},
                                            {"s", kPesetas, "12,34"},
                                            {"S", kPesetas, "6"},
                                            {"S", kDecimales, "6,17"}}) {
    e.CeutaMelilla = mark;
    EXPECT_EQ(Calcula(e, pesetas).tipo, rate) << mark;
  }
  e.Anualidades = "9000000";
  EXPECT_EQ(Calcula(e).tipo, "0");
  e.TipoContrato = "I";
  EXPECT_EQ(Calcula(e).tipo, "2");
}

// The amount of the year is 461280.
TEST(Regularizacion, SpreadsWhatIsLeft) {
  const struct {
    const char* cobrado;
    const char* retenido;
    const char* contrato;
    const char* tipo;
  } cases[] = {{"", "", "G", "15,37"},
               {"1500000", "150000", "G", "20,75"},
               {"1500000,5", "150000,25", "G", "20,75"},
               {"1500000", "461280", "G", "0"},
               {"1500000", "461281", "G", "0"},
               {"1500000", "461281", "I", "2"},
               {"3000000", "100000", "G", "0"},
               {"3000000", "100000", "I", "2"},
               {"3100000", "500000", "G", "38,72"},
               // a rate of more than five characters keeps the last five
               {"2700000", "", "G", "53,76"},
               {"2538720", "", "G", "100"},
               {"2999999", "0", "G", "28000"}};
  for (const auto& c : cases) {
    EntradasIRPF e = Trabajador("3000000");
    e.RetribucionesAcumuladas = c.cobrado;
    e.RetencionAcumulada = c.retenido;
    e.TipoContrato = c.contrato;
    EXPECT_EQ(CalculaTipoIRPF(e, Parametros(), Condiciones(kPesetas, true)).tipo, c.tipo) << c.cobrado << c.retenido;
    EXPECT_EQ(Calcula(e).tipo, "15,37") << "the plain rate reads no accumulated figures";
  }
}

}  // namespace
}  // namespace zendara

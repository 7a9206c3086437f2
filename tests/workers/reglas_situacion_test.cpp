// Intervals of situaciones and dates of contracts, against what may and may not be saved.
#include "workers/reglas_situacion.hpp"

#include <gtest/gtest.h>

namespace zendara {
namespace {

// What they say in full, and where the focus goes, is told by the scenarios.
TEST(ReglasSituacion, IntervalsMayNotOverlapAndBoundsCount) {
  constexpr const char* kLaNueva = "No se puede registrar la nueva";
  constexpr const char* kUnaNueva = "No se puede registrar una nueva";
  constexpr const char* kInicio = "La fecha de inicio";
  constexpr const char* kFin = "La fecha de fin";
  constexpr const char* kAbarca = "El intervalo";
  const struct {
    IntervaloSituacion nueva;
    IntervaloSituacion otra;
    const char* mensaje;  // how it begins; nullptr: may be saved
  } casos[] = {
      // An open row: nothing may start after it, nor reach it.
      {{"9", "01/05/01", ""}, {"7", "30/04/01", ""}, kLaNueva},
      {{"9", "01/05/01", "31/05/01"}, {"7", "31/05/01", ""}, kUnaNueva},
      {{"9", "01/05/01", "30/05/01"}, {"7", "31/05/01", ""}, nullptr},
      {{"9", "01/05/01", ""}, {"7", "31/05/01", ""}, nullptr},
      // The same start, or its own number, is not compared.
      {{"9", "01/05/01", ""}, {"7", "01/05/01", ""}, nullptr},
      {{"7", "01/05/01", ""}, {"7", "01/04/01", ""}, nullptr},
      // A closed row, from the first to the last day.
      {{"9", "01/04/01", ""}, {"7", "01/03/01", "01/04/01"}, kInicio},
      {{"9", "02/04/01", ""}, {"7", "01/03/01", "01/04/01"}, nullptr},
      {{"9", "15/02/01", "01/03/01"}, {"7", "01/03/01", "01/04/01"}, kFin},
      {{"9", "15/02/01", "28/02/01"}, {"7", "01/03/01", "01/04/01"}, nullptr},
      {{"9", "15/02/01", "02/04/01"}, {"7", "01/03/01", "01/04/01"}, kAbarca},
      // An open new one is not compared with a closed one that begins later.
      {{"9", "15/02/01", ""}, {"7", "01/03/01", "01/04/01"}, nullptr},
      // Years of two digits: 99 comes before 00.
      {{"9", "31/12/99", "01/01/00"}, {"7", "01/01/00", "31/12/00"}, kFin},
      {{"9", "01/12/99", "31/12/99"}, {"7", "01/01/00", "31/12/00"}, nullptr},
  };
  for (const auto& [nueva, otra, mensaje] : casos) {
    SCOPED_TRACE(nueva.inicio + "-" + nueva.fin + " beside " + otra.inicio + "-" + otra.fin);
    const auto falta = ComparaIntervalos(nueva, otra, {});
    ASSERT_EQ(falta.has_value(), mensaje != nullptr);
    EXPECT_TRUE(!falta || falta->mensaje.starts_with(mensaje)) << falta->mensaje;
  }
}

TEST(ReglasSituacion, DatesOfContractsAreAChain) {
  using enum FaltaContratos;
  const struct {
    FechasContratos fechas;
    FaltaContratos falta;
  } casos[] = {
      {{}, kNinguna},
      {{"01/01/01", "31/01/01", "01/02/01", "28/02/01", "01/03/01", "31/03/01"}, kNinguna},
      {{"01/01/01", "", "01/02/01"}, kAnteriorAbierto},
      {{"", "31/01/01"}, kAnteriorAbierto},
      {{"01/01/01", "01/01/01"}, kSolapados},
      {{"01/01/01", "31/01/01", "31/01/01"}, kSolapados},
      {{"01/01/01", "31/01/01", "01/02/01", "28/02/01", "01/03/01", "28/02/01"}, kSolapados},
      // The last one is not looked at while those before it are missing.
      {{"", "", "", "", "", "31/03/01"}, kNinguna},
      {{"01/01/01", "31/01/01", "01/02/01", "", "", "31/03/01"}, kNinguna},
  };
  for (const auto& caso : casos)
    EXPECT_EQ(CompruebaFechasContratos(caso.fechas, {}), caso.falta) << "case " << &caso - casos;
}

}  // namespace
}  // namespace zendara

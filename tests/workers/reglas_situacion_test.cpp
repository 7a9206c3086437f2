// Intervals of situaciones and dates of contracts, against what may and may not be saved.
#include "workers/reglas_situacion.hpp"

#include <gtest/gtest.h>

namespace zendara {
namespace {

// The scenarios play most of them; here are the days beside the bounds, and what they do not reach.
TEST(ReglasSituacion, IntervalsMayNotOverlapAndBoundsCount) {
  const struct {
    IntervaloSituacion nueva;
    IntervaloSituacion otra;
    const char* mensaje;  // how it begins; empty: may be saved
  } casos[] = {
      // An open row: nothing may reach it.
      {{"9", "01/05/01", "31/05/01"}, {"7", "31/05/01", ""}, "No se puede registrar una nueva"},
      {{"9", "01/05/01", "30/05/01"}, {"7", "31/05/01", ""}, ""},
      {{"9", "01/05/01", ""}, {"7", "31/05/01", ""}, ""},
      // The same start, or its own number, is not compared.
      {{"9", "01/05/01", ""}, {"7", "01/05/01", ""}, ""},
      {{"7", "01/05/01", ""}, {"7", "01/04/01", ""}, ""},
      // Before and after a closed row.
      {{"9", "02/04/01", ""}, {"7", "01/03/01", "01/04/01"}, ""},
      {{"9", "15/02/01", "28/02/01"}, {"7", "01/03/01", "01/04/01"}, ""},
      // An open new one is not compared with a closed one that begins later.
      {{"9", "15/02/01", ""}, {"7", "01/03/01", "01/04/01"}, ""},
      // Years of two digits: 99 comes before 00.
      {{"9", "31/12/99", "01/01/00"}, {"7", "01/01/00", "31/12/00"}, "La fecha de fin"},
      {{"9", "01/12/99", "31/12/99"}, {"7", "01/01/00", "31/12/00"}, ""},
  };
  for (const auto& [nueva, otra, mensaje] : casos) {
    const auto falta = ComparaIntervalos(nueva, otra, {});
    EXPECT_EQ(falta.has_value(), *mensaje != '\0') << nueva.inicio << " beside " << otra.inicio;
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
      {{"", "31/01/01"}, kAnteriorAbierto},
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

// Intervals of situaciones and dates of contracts, against what may and may not be saved.
#include "workers/reglas_situacion.hpp"

#include <gtest/gtest.h>

#include "workers/campos_trabajador.hpp"

namespace zendara {
namespace {

TEST(ReglasSituacion, IntervalsMayNotOverlapAndBoundsCount) {
  constexpr const char* kLaNueva = "No se puede registrar la nueva situacion, la situación 007 no esta finalizada";
  constexpr const char* kUnaNueva = "No se puede registrar una nueva situacion, la situación 007 no esta finalizada";
  constexpr const char* kInicio = "La fecha de inicio";
  constexpr const char* kFin = "La fecha de fin";
  constexpr const char* kAbarca = "El intervalo";
  const struct {
    IntervaloSituacion nueva;  // number 009 unless it says another
    IntervaloSituacion otra;   // number 007
    const char* mensaje;       // how it begins; nullptr: may be saved
    int campo;
  } casos[] = {
      // An open row: nothing may start after it, nor reach it.
      {{"", "01/05/01", ""}, {"", "30/04/01", ""}, kLaNueva, kSinCampo},
      {{"", "01/05/01", "31/05/01"}, {"", "30/04/01", ""}, kLaNueva, kSinCampo},
      {{"", "01/05/01", "31/05/01"}, {"", "31/05/01", ""}, kUnaNueva, kSinCampo},
      {{"", "01/05/01", "30/05/01"}, {"", "31/05/01", ""}, nullptr, 0},
      {{"", "01/05/01", ""}, {"", "31/05/01", ""}, nullptr, 0},
      // The same start, or its own number, is not compared.
      {{"", "01/05/01", ""}, {"", "01/05/01", ""}, nullptr, 0},
      {{"007", "01/05/01", ""}, {"", "01/04/01", ""}, nullptr, 0},
      // A closed row, from the first to the last day.
      {{"", "01/04/01", ""}, {"", "01/03/01", "01/04/01"}, kInicio, campo::kFechaInicio},
      {{"", "02/04/01", ""}, {"", "01/03/01", "01/04/01"}, nullptr, 0},
      {{"", "15/02/01", "01/03/01"}, {"", "01/03/01", "01/04/01"}, kFin, campo::kFechaFin},
      {{"", "15/02/01", "28/02/01"}, {"", "01/03/01", "01/04/01"}, nullptr, 0},
      {{"", "15/02/01", "02/04/01"}, {"", "01/03/01", "01/04/01"}, kAbarca, campo::kFechaInicio},
      // An open new one is not compared with a closed one that begins later.
      {{"", "15/02/01", ""}, {"", "01/03/01", "01/04/01"}, nullptr, 0},
      // Years of two digits: 99 comes before 00.
      {{"", "31/12/99", "01/01/00"}, {"", "01/01/00", "31/12/00"}, kFin, campo::kFechaFin},
      {{"", "01/12/99", "31/12/99"}, {"", "01/01/00", "31/12/00"}, nullptr, 0},
  };
  for (auto caso : casos) {
    if (caso.nueva.numero.empty()) caso.nueva.numero = "009";
    caso.otra.numero = "007";
    SCOPED_TRACE(caso.nueva.inicio + "-" + caso.nueva.fin + " beside " + caso.otra.inicio + "-" + caso.otra.fin);
    const auto falta = ComparaIntervalos(caso.nueva, caso.otra);
    ASSERT_EQ(falta.has_value(), caso.mensaje != nullptr);
    if (!falta) continue;
    EXPECT_TRUE(falta->mensaje.starts_with(caso.mensaje)) << falta->mensaje;
    EXPECT_NE(falta->mensaje.find(" 007"), std::string::npos);
    EXPECT_EQ(falta->campo, caso.campo);
    EXPECT_EQ(falta->icono, caso.campo == kSinCampo ? BoxIcon::kInformation : BoxIcon::kExclamation);
  }
}

TEST(ReglasSituacion, DatesOfContractsAreAChain) {
  using enum FaltaContratos;
  const struct {
    FechasContratos fechas;
    FaltaContratos falta;
  } casos[] = {
      {{}, kNinguna},
      {{"01/01/01"}, kNinguna},
      {{"01/01/01", "31/01/01", "01/02/01"}, kNinguna},
      {{"01/01/01", "31/01/01", "01/02/01", "28/02/01", "01/03/01", "31/03/01"}, kNinguna},
      {{"01/01/01", "", "01/02/01"}, kAnteriorAbierto},
      {{"", "31/01/01"}, kAnteriorAbierto},
      {{"01/01/01", "31/01/01", "", "", "01/03/01"}, kAnteriorAbierto},
      {{"01/01/01", "01/01/01"}, kSolapados},
      {{"01/01/01", "31/01/01", "31/01/01"}, kSolapados},
      {{"01/01/01", "31/01/01", "01/02/01", "28/02/01", "01/03/01", "28/02/01"}, kSolapados},
      // The last one is not looked at while those before it are missing.
      {{"", "", "", "", "", "31/03/01"}, kNinguna},
      {{"01/01/01", "31/01/01", "01/02/01", "", "", "31/03/01"}, kNinguna},
  };
  for (const auto& caso : casos) {
    std::string cadena;
    for (const std::string& fecha : caso.fechas) cadena += fecha + " ";
    EXPECT_EQ(CompruebaFechasContratos(caso.fechas), caso.falta) << cadena;
  }
}

}  // namespace
}  // namespace zendara

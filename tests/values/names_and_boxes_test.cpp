#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "support/fake_dialogs.hpp"
#include "values/comprobar_cuenta.hpp"
#include "values/identificaciones.hpp"
#include "values/muestra_error.hpp"
#include "values/nombres.hpp"

namespace zendara {
namespace {

TEST(LetraCorrecta, KnowsEveryFormOfNumber) {
  for (const char* right :
       {"12345678Z", "12.345.678-z", "1R", "K1234567L", "X1234567L", "X01234567L", "Y1234567X", "Z1234567R"}) {
    EXPECT_TRUE(LetraCorrecta(right)) << right;
  }
  for (const char* wrong : {"", "Z", "XL", "12345678", "12345678A", "123456789B", "Y1234567L", "PA000022", "Ñ"}) {
    EXPECT_FALSE(LetraCorrecta(wrong)) << wrong;
  }
}

TEST(NombreCompleto, FitsTheFieldByItsSecondSurnameAndInitials) {
  const struct {
    const char* parts[3];
    const char* name;
  } cases[] = {
      {{"García", "Núñez", "Ana"}, "García Núñez, Ana"},
      {{"", "", " "}, ""},
      {{"", "", "Ana"}, " , Ana"},
      // 36 characters fit, 37 do not; ñ is one
      {{"Fernández-Villa", "Rodríguez", "María Elena"}, "Fernández-Villa Rodríguez, María Elena"},
      {{"Fernández-Villa", "Rodríguez", "María Helena"}, "Fernández-Villa Rodríguez, M. H."},
      // a second initial, if a letter follows the first blank and that does not stand at 8
      {{"Fernández-Villa", "Rodríguez", "Maximilianas"}, "Fernández-Villa Rodríguez, M. "},
      {{"Fernández-Villa", "Rodríguez", "Antonio José"}, "Fernández-Villa Rodríguez, A. "},
      {{"Fernández-Villa", "Rodríguez", "Luis Álvarado"}, "Fernández-Villa Rodríguez, L. Á."},
      {{"Fernández-Villa", "Rodríguez", "Luis (el alto)"}, "Fernández-Villa Rodríguez, L. "},
      // surnames of 36 together stay, of 37 lose the second
      {{"Aguirregomezcorta", "Ibarrengoitiaechea", "Ana"}, "Aguirregomezcorta Ibarrengoitiaechea, A. "},
      {{"Aguirregomezcorta", "Ibarrengoitiaechea-B", "Ana"}, "Aguirregomezcorta Iba., Ana"},
  };
  for (const auto& c : cases) {
    std::string first = c.parts[0], second = c.parts[1], given = c.parts[2];
    EXPECT_EQ(NombreCompleto(first, second, given), c.name);
  }
  // The caller's texts are trimmed.
  std::string first = " García ", second = "Núñez   ", given = "Ana  ";
  NombreCompleto(first, second, given);
  EXPECT_EQ(first + "|" + second + "|" + given, "García|Núñez|Ana");
}

TEST(NombreMes, IsEmptyOutsideTheYear) {
  EXPECT_EQ(NombreMes(1) + NombreMes(9) + NombreMes(12), "EneroSeptiembreDiciembre");
  EXPECT_EQ(NombreMes(0) + NombreMes(13) + NombreMes(-1), "");
}

TEST(MuestraError, ShowsNumberAndTextAndLogsWhatTheStoreSaidInOneLine) {
  std::ostringstream log;
  std::streambuf* const standard_error = std::cerr.rdbuf(log.rdbuf());
  FakeDialogs dialogs;
  MuestraError(94, dialogs);
  MuestraError(RuntimeError(3015, {"Icampo9"}, "no such index:\nIcampo9"), dialogs);
  std::cerr.rdbuf(standard_error);
  EXPECT_EQ(log.str(), "zendara: error 3015: no such index: Icampo9\n");
  const std::vector<std::string> boxes = {"94  Uso no válido de Null",
                                          "3015  'Icampo9' no es un índice de esta tabla."};
  EXPECT_EQ(dialogs.boxes, boxes);
  EXPECT_EQ(dialogs.last_box.icon, BoxIcon::kNone);
}

TEST(ComprobarCuenta, ComputesTheControlDigits) {
  const struct {
    const char* parts[4];
    int digits;
    bool shown;
  } cases[] = {
      {{"1234", "5678", "06", "1234567890"}, 6, false},
      {{"1234", "5678", "6", "1234567890"}, 6, true},
      {{"2100", "0418", "45", "0200051332"}, 45, false},
      {{"0000", "0000", "01", "6000000000"}, 5, true},
      // a sum of 1 (weight 1 at the first place) leaves 10, which becomes 1
      {{"0000", "0000", "01", "1000000000"}, 1, false},
      // what is no digit counts 0, and keeps its place
      {{"ñ234", "5678", "06", "1234567890"}, 46, true},
      {{"", "", "00", ""}, 0, false},
      {{"12345", "5678", "", "1"}, 51, true},
  };
  for (const auto& c : cases) {
    FakeDialogs dialogs;
    EXPECT_EQ(ComprobarCuenta(c.parts[0], c.parts[1], c.parts[2], c.parts[3], dialogs), c.digits) << c.parts[2];
    EXPECT_EQ(dialogs.boxes, std::vector<std::string>(c.shown ? 1 : 0, "EL NÚMERO DE CUENTA ES INCORRECTO"));
    EXPECT_EQ(dialogs.last_box.icon, BoxIcon::kNone);
  }
}

}  // namespace
}  // namespace zendara

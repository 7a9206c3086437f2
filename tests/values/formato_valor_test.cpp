#include "values/formato_valor.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "support/errors.hpp"
#include "values/valor_numero.hpp"

namespace zendara {
namespace {

TEST(ValorNumero, ReadsTheLeadingNumberWithTheFirstCommaAsPoint) {
  const struct {
    const char* text;
    double number;
  } cases[] = {{"12,5", 12.5}, {"12.5", 12.5},   {"1,2,3", 1.2}, {"1.234,5", 1.234}, {"", 0},
               {"abc", 0},     {"-7,25", -7.25}, {" 7 kg", 7},   {",5", 0.5},        {"1,5E2", 150}};
  for (const auto& c : cases) EXPECT_EQ(ValorNumero(c.text), c.number) << c.text;
}

TEST(TextoNoNulo, GivesTheTextOfAnyColumn) {
  EXPECT_EQ(TextoNoNulo(Null{}), "");
  EXPECT_EQ(TextoNoNulo("ñandú"), "ñandú");
  EXPECT_EQ(TextoNoNulo(0.5), "0,5");
  EXPECT_EQ(TextoNoNulo(Date{36923}), "01/02/01");
}

TEST(FormatoValor, FollowsItsMask) {
  const struct {
    int width;
    double value;
    const char *mask, *text;
  } cases[] = {
      // clang-format off
      // money of either currency, rates
      {10, 1234.567, "112 N", "1234,57"}, {10, 0, "112 N", ""}, {10, 0, "112 S", "0,00"}, {10, 0, "002 S", "0"},
      {10, 7, "112 N", "7,00"}, {10, 7, "100 N", "7"}, {10, 2.5, "100 N", "3"}, {10, 2.49, "100 N", "2"},
      {10, 12.349, "012 N", "12,34"}, {5, 12.999, "002 N", "12,99"}, {5, 12, "002 N", "12"},
      {10, 999.995, "112 N", "1000,00"},
      // 0.49 of a unit; a digit that is none keeps no decimals
      {10, 2.5, "200 N", "2"}, {10, 2.51, "200 N", "3"}, {10, 1.005, "212 N", "1,00"}, {10, 1.0051, "212 N", "1,01"},
      {10, 1.5, "00x N", "1"},
      // the sum is seen through 15 digits: 1.005 lies below its text
      {10, 1.005, "112 N", "1,01"}, {16, 1234567890.12499999, "112 N", "1234567890,13"},
      // zero after the cut
      {10, 0.004, "112 N", ""}, {10, 0.004, "112 S", "0,00"},
      // numbers whose text has an exponent
      {10, 1.0 / 30, "112 N", "0,03"}, {20, 1.0 / 3000, "009 N", "0,000333333"},
      {20, 2.5e-10, "009 S", "0,000000000"}, {10, 1e-16, "112 N", ""}, {10, 1e-16, "002 S", "0,00"},
      {10, 1.5e-300, "002 N", ""}, {25, 1e15, "112 N", "1000000000000000,00"},
      {25, 123456789012345678.0, "002 N", "123456789012346000,00"}, {10, 1e300, "100 N", "0000000000"},
      // the addition goes upwards below zero as well
      {10, -1.5, "112 N", "-1,49"}, {10, -0.5, "002 N", "-0,50"}, {10, -0.5, "100 N", ""},
      // width and padding
      {5, 123.45, "002 N", "23,45"}, {10, 12345678901.0, "100 N", "2345678901"}, {8, 12.5, "0020N", "00012,50"},
      {4, 0, "0020N", "0000"}, {30, 1, "000*S", "*************************1"}, {0, 5, "000 S", ""},
      // clang-format on
  };
  for (const auto& c : cases) EXPECT_EQ(FormatoValor(c.width, c.value, c.mask), c.text) << c.value << " " << c.mask;
}

TEST(FormatoValor, TakesTextsAndRefusesWhatItCannotFormat) {
  EXPECT_EQ(FormatoValor(10, "1234,567", "112 N"), "1234,57");
  EXPECT_EQ(ErrorOf([] { FormatoValor(10, std::numeric_limits<double>::infinity(), "112 N"); }), kOverflow);
  EXPECT_EQ(ErrorOf([] { FormatoValor(10, 1, "112"); }), kInvalidCall);
  EXPECT_EQ(ErrorOf([] { FormatoValor(-1, 1, "112 N"); }), kInvalidCall);
}

}  // namespace
}  // namespace zendara

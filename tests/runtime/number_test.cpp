#include "runtime/number.hpp"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <random>
#include <string>

#include "support/errors.hpp"

namespace zendara {
namespace {

TEST(NumberText, FormsOfANumber) {
  struct {
    double number;
    const char *str, *cstr;
  } rows[] = {
      // clang-format off
      {0, " 0", "0"},     {-0.0, " 0", "0"},  {100, " 100", "100"},         {1.5, " 1.5", "1,5"},
      {-1234.25, "-1234.25", "-1234,25"},     {0.5, " .5", "0,5"},          {-0.5, "-.5", "-0,5"},
      {0.1 + 0.2, " .3", "0,3"},    {1.0 / 3, " .333333333333333", "0,333333333333333"},
      {1.0 / 30, " 3.33333333333333E-02", "3,33333333333333E-02"},
      {0.012345678901234, " .012345678901234", "0,012345678901234"},
      {0.0123456789012345, " 1.23456789012345E-02", "1,23456789012345E-02"},          {1E-5, " .00001", "0,00001"},
      {1E-15, " .000000000000001", "0,000000000000001"},          {1E-16, " 1E-16", "1E-16"},
      {999999999999999, " 999999999999999", "999999999999999"},   {-1E15, "-1E+15", "-1E+15"},
      {123456789012345678.0, " 1.23456789012346E+17", "1,23456789012346E+17"},
      {100000000000000.5, " 100000000000001", "100000000000001"},
      {-100000000000002.5, "-100000000000003", "-100000000000003"},
      {1000000000000.135, " 1000000000000.14", "1000000000000,14"},
      {0.3333333333333335, " .333333333333333", "0,333333333333333"},       {999999999999999.5, " 1E+15", "1E+15"},
      {0.99999999999999978, " 1", "1"},
      {std::numeric_limits<double>::denorm_min(), " 4.94065645841247E-324", "4,94065645841247E-324"},
      // clang-format on
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Str(row.number), row.str);
    EXPECT_EQ(CStr(row.number), row.cstr);
  }
  EXPECT_EQ(ErrorOf([] { CStr(std::numeric_limits<double>::infinity()); }), kOverflow);
  EXPECT_EQ(ErrorOf([] { Str(std::nan("")); }), kOverflow);
}

TEST(NumberText, ValuesOfEveryKind) {
  EXPECT_EQ(CStr(Value("a")), "a");
  EXPECT_EQ(CStr(Value(Date{36923.75})), "01/02/01");
  EXPECT_EQ(ErrorOf([] { CStr(Value()); }), kInvalidUseOfNull);
  EXPECT_EQ(CDbl(Value(Date{36923.75})), 36923.75);
  EXPECT_EQ(ErrorOf([] { CDbl(Value()); }), kInvalidUseOfNull);
  EXPECT_TRUE(IsNumeric(Value(1)));
  EXPECT_FALSE(IsNumeric(Value()));
  EXPECT_FALSE(IsNumeric(Value(Date{1})));
}

struct Reading {
  const char* text;
  double number;
  int error = 0;
};

TEST(NumberText, Val) {
  const Reading rows[] = {
      // clang-format off
      {"", 0},    {"abc", 0}, {"-", 0},   {".", 0},   {"E5", 0},  {"12,5", 12},     {" 1 2 3 ", 123},
      {"1\t2\n3 x", 123},     {"12.5", 12.5},   {".5", 0.5},      {"5.", 5},  {"1E2", 100},     {"1D2", 100},
      {"1e-2", 0.01},   {"1 E + 2", 100}, {"1E", 1},  {"1E+", 1}, {"1.2.3", 1.2},   {"- 7", -7},      {"+7", 7},
      {"--7", 0}, {"7-", 7},  {"00042", 42},    {"&H1F", 31},     {"&hffff", -1},   {"&H8000", -32768},
      {"&H10000", 65536},     {"&HFFFFFFFF", -1},     {"&O17", 15},     {"&O18", 1},      {"&H", 0},  {"&G1", 0},
      {"5%", 5},  {"1E-400", 0},    {"0E999", 0},     {"1E99999999999999999999", 0, kOverflow}, {"1E400", 0, kOverflow},
      {"-1E309", 0, kOverflow},     {"&H1FFFFFFFF", 0, kOverflow},      {"5.5%", 0, kTypeMismatch},
      {"5.5 &", 0, kTypeMismatch},  {"9007199254740993", 9007199254740992.0}, {"0.1", 0.1},     {"4.35", 4.35},
      {"33333.3333333333333333333333333", 33333.333333333336},
      {"1.7976931348623157E308", 1.7976931348623157e308},
      // clang-format on
  };
  for (const Reading& row : rows) {
    double number = 0;
    EXPECT_EQ(ErrorOf([&] { number = Val(row.text); }), row.error) << row.text;
    EXPECT_EQ(number, row.number) << row.text;
  }
}

TEST(NumberText, CDbl) {
  const Reading rows[] = {
      // clang-format off
      {"1,5", 1.5},     {"1.5", 15},      {"1.234,5", 1234.5},    {"12.3.4", 1234}, {"166,386", 166.386},
      {"166.386", 166386},    {" 7 ", 7}, {"7-", -7}, {"- 7", -7},      {"+7", 7},  {"(7)", -7},      {"( 7 )", -7},
      {"1,5E2", 150},   {"1,5d-2", 0.015},      {",5", 0.5},      {"5,", 5},  {"100 €", 100},   {"€-100,5", -100.5},
      {"1.000 Pts", 1000},    {"(5 pts)", -5},  {"&H1F", 31},     {" &HFFFF ", -1}, {"1E400", 0, kOverflow},
      {"1E-400", 0},
      // clang-format on
  };
  for (const Reading& row : rows) {
    double number = 0;
    EXPECT_EQ(ErrorOf([&] { number = CDbl(row.text); }), row.error) << row.text;
    EXPECT_EQ(number, row.number) << row.text;
    EXPECT_EQ(IsNumeric(row.text), row.error == 0) << row.text;
  }
  for (const char* text : {"",    "   ", "abc", "1,2,3", "12abc", "1,5.5", ".",    ",",   "-", "(7",       "7)", "-(7)",
                           "-7-", "1 2", "1E",  "1E2,5", "&H",    "&H1G",  "-&H1", "€€5", "€", "01/02/03", "7%"}) {
    EXPECT_EQ(ErrorOf([&] { CDbl(text); }), kTypeMismatch) << text;
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
}

// What was typed with up to 15 digits comes back from the number to the digit, and a text once shown stays as it is.
TEST(NumberText, TextAndNumberRoundTrip) {
  std::mt19937_64 random(20010203);
  for (int i = 0; i < 20000; ++i) {
    const auto mantissa = static_cast<double>(random() % 1'000'000'000'000'000);
    const double typed = mantissa / std::pow(10.0, static_cast<double>(random() % 16)) * (i % 2 == 0 ? 1 : -1);
    ASSERT_EQ(CDbl(CStr(typed)), typed) << CStr(typed);
    ASSERT_EQ(Val(Str(typed)), typed) << Str(typed);

    const double computed = typed / static_cast<double>(1 + random() % 1000);
    const std::string shown = CStr(computed);
    ASSERT_EQ(CStr(CDbl(shown)), shown);
    char all_digits[32];
    *std::to_chars(std::begin(all_digits), std::end(all_digits), computed).ptr = '\0';
    ASSERT_EQ(Val(all_digits), computed) << all_digits;
    ASSERT_LE(std::abs(CDbl(shown) - computed), std::abs(computed) * 5.1e-15) << shown;
  }
}

TEST(Rounding, TiesGoToEvenAndBoundsHold) {
  struct {
    double number;
    int whole;
  } rows[] = {{0.5, 0}, {1.5, 2}, {2.5, 2}, {-1.5, -2}, {-2.5, -2}, {2.51, 3}, {32767.49, 32767}, {-32768.5, -32768}};
  for (const auto& row : rows) {
    EXPECT_EQ(CInt(row.number), row.whole) << row.number;
    EXPECT_EQ(CLng(row.number), row.whole) << row.number;
  }
  for (const double outside : {32767.5, -32768.51, 1e300, std::nan("")}) {
    EXPECT_EQ(ErrorOf([&] { CInt(outside); }), kOverflow) << outside;
  }
  EXPECT_EQ(CLng(2147483647.49), 2147483647);
  EXPECT_EQ(CLng(-2147483648.5), -2147483647 - 1);
  EXPECT_EQ(ErrorOf([] { CLng(2147483647.5); }), kOverflow);
  EXPECT_EQ(Int(-1.5), -2);
  EXPECT_EQ(Fix(-1.5), -1);
}

}  // namespace
}  // namespace zendara

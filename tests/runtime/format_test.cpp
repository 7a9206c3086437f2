#include "runtime/format.hpp"

#include <gtest/gtest.h>

#include <string>

#include "support/errors.hpp"

namespace zendara {
namespace {

TEST(Format, ThousandsOfAPlainNumberStandApart) {
  const std::pair<const char*, const char*> rows[] = {
      {"", ""},
      {"7", "7"},
      {"999", "999"},
      {"1000", "1.000"},
      {"2500000", "2.500.000"},
      {"2500000,50", "2.500.000,50"},
      {"-100000", "-100.000"},
      {"-100", "-100"},
      {"2,500000", "2,500000"},
      {",5", ",5"},
      {"1234,", "1.234,"},
      // What is no plain number stays.
      {"2.500.000", "2.500.000"},
      {"1000,5,5", "1000,5,5"},
      {"1000 ", "1000 "},
      {"12E10", "12E10"},
      {"--1000", "--1000"},
      {"mañana", "mañana"},
  };
  for (const auto& [number, shown] : rows) EXPECT_EQ(GroupThousands(number), shown);
}

TEST(Format, Numbers) {
  struct {
    Value value;
    const char *mask, *text;
  } rows[] = {
      // clang-format off
      {7, "00000;; ", "00007"},           {0, "00000;; ", " "},   {-1, "00000;; ", "-00001"},
      {7, "000;;", "007"},    {0, "000;;", "000"},    {-1, "000;;", "-001"},  {7, "000;", "007"},
      {0, "000;", "000"},     {-1, "000;", "-001"},   {0, "000;; ", " "},     {-1, "000;; ", "-001"},
      {7, "00;; ", "07"},     {0, "00;; ", " "},      {0, "00000", "00000"},  {7, "00", "07"},        {-1, "00", "-01"},
      {123, "00", "123"},     {-123, "0;000", "123"}, {12345, "00-00", "123-45"},         {0.4, "00;; ", " "},
      {-0.4, "00", "00"},     {0.5, "00", "01"},      {-2.5, "00", "-03"},    {1e20, "00", "100000000000000000000"},
      {1200, "0", "1200"},    {"7", "00", "07"},      {"1,5", "00", "02"},    {"2,5", "00", "03"},
      {"1.5", "00", "15"},    {"7a", "00", "7a"},     {"1E400", "00", "1E400"},           {"", "00", ""},
      {1.5, "", "1,5"},
      // clang-format on
  };
  for (const auto& row : rows) EXPECT_EQ(FormatText(row.value, row.mask), row.text) << row.mask;
  EXPECT_TRUE(Format(Null{}, "00").IsNull());
  EXPECT_EQ(ErrorOf([] { FormatText(Null{}, "00"); }), kInvalidUseOfNull);
}

TEST(Format, Dates) {
  const Date date{36955};
  struct {
    Value value;
    const char *mask, *text;
  } rows[] = {
      // clang-format off
      {date, "dd/mm/yy", "05/03/01"},     {date, "DD/MM/YY", "05/03/01"},     {date, "mm/dd/yy", "03/05/01"},
      {date, "dd/MM/yyyy", "05/03/2001"}, {date, "mm/dd/yyyy", "03/05/2001"}, {date, "d-m", "5-3"},
      {Date{36955.75}, "dd/mm/yy", "05/03/01"},       {36955, "dd/mm/yy", "05/03/01"},
      {"5/3/1", "dd/mm/yy", "05/03/01"},  {"29/02/01", "dd/mm/yy", "01/02/29"},
      {"010203", "dd/mm/yy", "07/12/27"}, {"abc", "dd/mm/yy", "abc"},         {"9999999", "dd/mm/yy", "9999999"},
      {"", "dd/mm/yy", ""},
      // clang-format on
  };
  for (const auto& row : rows) EXPECT_EQ(FormatDate(row.value, row.mask, {}), Value(row.text)) << row.mask;
  EXPECT_TRUE(FormatDate(Null{}, "dd/mm/yy", {}).IsNull());
  EXPECT_EQ(ErrorOf([] { FormatDate(1e300, "dd/mm/yy", {}); }), kOverflow);
}

}  // namespace
}  // namespace zendara

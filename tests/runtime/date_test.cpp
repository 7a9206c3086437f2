#include "runtime/date.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>

#include "runtime/format.hpp"
#include "support/errors.hpp"

namespace zendara {
namespace {

constexpr int kFirstSerial = -657434;
constexpr int kLastSerial = 2958465;

std::string Full(const std::optional<Date>& date) { return date ? FormatDate(*date, "dd/mm/yyyy") : "no date"; }

constexpr YearWindow kYears;

TEST(Dates, ReadsTexts) {
  struct {
    const char *text, *date;
    bool strict;  // in the order day, month, year
  } rows[] = {
      // clang-format off
      {"01/02/03", "01/02/2003", true},     {"1/2/3", "01/02/2003", true},        {"29/02/00", "29/02/2000", true},
      {"29/02/01", "01/02/2029", false},    {"31/04/01", "01/04/1931", false},    {"30/02/05", "05/02/1930", false},
      {"10/20/3", "20/10/2003", false},     {"40/20/3", "20/03/1940", false},     {"12/13/01", "13/12/2001", false},
      {"00/01/02", "02/01/2000", false},    {"  01/02/2003 ", "01/02/2003", true},
      {"2003/02/01", "01/02/2003", false},  {"1-2-3", "01/02/2003", true},        {"1  2 3", "01/02/2003", true},
      {"1 / 2 -3", "01/02/2003", true},     {"01/02/29", "01/02/2029", true},     {"01/02/30", "01/02/1930", true},
      {"01/02/100", "01/02/0100", true},    {"31/12/9999", "31/12/9999", true},   {"257/1/1", "01/01/0257", false},
      {"30/02", "01/02/1930", false},       {"10/2003", "01/10/2003", false},
      // clang-format on
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Full(ReadDate(row.text, kYears)), row.date) << row.text;
    EXPECT_EQ(Full(ReadDateStrict(row.text, kYears)), row.strict ? row.date : "no date") << row.text;
    EXPECT_TRUE(IsDate(row.text, kYears)) << row.text;
  }
  for (const char* text : {"29/02/2001", "13/13/13", "31/11/99", "00/00/00", "10/00/05", "29/02/1900", "12/34/", "//",
                           "  /  /  ", "", "5", "010203", "1/2/3/4", "1//2", "1/2/3x", "-1/2/3", "1/2/20003"}) {
    EXPECT_EQ(Full(ReadDate(text, kYears)), "no date") << text;
    EXPECT_EQ(Full(ReadDateStrict(text, kYears)), "no date") << text;
    EXPECT_FALSE(IsDate(text, kYears)) << text;
  }
}

TEST(Dates, EveryDayIsReadBack) {
  EXPECT_EQ(PartsOf(Date{kFirstSerial}), (DateParts{100, 1, 1}));
  for (int serial = kFirstSerial; serial <= kLastSerial; serial += serial < 20000 || serial > 50000 ? 29 : 1) {
    const Date date{static_cast<double>(serial)};
    const DateParts parts = PartsOf(date);
    ASSERT_EQ(MakeDate(parts.year, parts.month, parts.day), date);
    ASSERT_EQ(ReadDateStrict(FormatDate(date, "d-m-yyyy"), kYears), date);
    if (parts.year >= 1930 && parts.year <= 2029) {
      ASSERT_EQ(ReadDate(ShortDate(date), kYears), date) << serial;
    }
  }
  EXPECT_EQ(PartsOf(Date{kLastSerial}), (DateParts{9999, 12, 31}));
}

TEST(Dates, TheTimeOfDayStaysWithItsDay) {
  EXPECT_EQ(PartsOf(Date{36923.99}), (DateParts{2001, 2, 1}));
  EXPECT_EQ(PartsOf(Date{-1.25}), (DateParts{1899, 12, 29}));
  EXPECT_EQ(ShortDate(Date{36923.99}), "01/02/01");
  EXPECT_EQ(DateDiffDays(Date{36923.99}, Date{36924.01}, kYears), Value(1));
  EXPECT_EQ(DateDiffDays(Date{36924.01}, "01/02/01", kYears), Value(-1));
}

TEST(Dates, OutOfRange) {
  EXPECT_FALSE(MakeDate(99, 12, 31) || MakeDate(10000, 1, 1) || MakeDate(2001, 13, 1) || MakeDate(2001, -1, 1) ||
               MakeDate(2001, 257, 1) || MakeDate(2001, 1, 257) || MakeDate(2001, 1, 0));
  for (const double serial : {kFirstSerial - 1.0, kLastSerial + 1.0, 1e300, std::nan("")}) {
    EXPECT_EQ(ErrorOf([&] { CDate(serial, kYears); }), kOverflow) << serial;
    EXPECT_EQ(ErrorOf([&] { PartsOf(Date{serial}); }), kOverflow) << serial;
  }
}

TEST(Dates, CDateReadsSerialsAndTexts) {
  EXPECT_EQ(ReadDateStrict("10/02", kYears), MakeDate(PartsOf(Today()).year, 2, 10)) << "two numbers";
  EXPECT_EQ(ReadDate("02/13", kYears), MakeDate(PartsOf(Today()).year, 2, 13));
  EXPECT_EQ(CDate(36923, kYears), Date{36923});
  EXPECT_EQ(Full(CDate("010203", kYears)), "07/12/1927");
  EXPECT_EQ(CDate("1.000,5", kYears), Date{1000.5});
  for (const char* text : {"", "abc", "29/02/2001", "9999999"}) {
    EXPECT_EQ(ErrorOf([&] { CDate(text, kYears); }), kTypeMismatch) << text;
  }
  EXPECT_EQ(ErrorOf([] { CDate(Null{}, kYears); }), kInvalidUseOfNull);
  EXPECT_FALSE(IsDate(Null{}, kYears));
  EXPECT_FALSE(IsDate(36923, kYears));
  EXPECT_TRUE(IsDate(Date{0}, kYears));

  EXPECT_EQ(Year("31/12/99", kYears), Value(1999));
  EXPECT_EQ(Year(Null{}, kYears), Value());
  EXPECT_EQ(DateDiffDays(Null{}, "1/1/1", kYears), Value());
  EXPECT_EQ(DateDiffDays("1/1/1", Null{}, kYears), Value());
  EXPECT_EQ(ErrorOf([] { Year("abc", kYears); }), kTypeMismatch);
}

TEST(Dates, TheWindowsFollowTheWorkingYear) {
  struct {
    int working_year, dates, births;  // last years
  } rows[] = {{80, 2029, 1980}, {99, 2029, 1999}, {0, 2029, 2000}, {10, 2029, 2010},
              {11, 2030, 2011}, {26, 2045, 2026}, {79, 2098, 2079}};
  for (const auto& row : rows) {
    EXPECT_EQ(WindowOfDates(row.working_year).last, row.dates) << row.working_year;
    EXPECT_EQ(WindowOfBirths(row.working_year).last, row.births) << row.working_year;
  }
  for (const YearWindow window : {YearWindow{1999}, YearWindow{2000}, YearWindow{2045}}) {
    for (int year = window.last - 99; year <= window.last; ++year) ASSERT_EQ(FullYear(year % 100, window), year);
  }
  EXPECT_EQ(FullYear(100, {2045}), 100);
}

// A leap day shows which century a year was taken for.
TEST(Dates, EveryReaderTakesItsWindow) {
  constexpr YearWindow kBirths{1999};
  EXPECT_EQ(Full(ReadDateStrict("29/02/00", kYears)), "29/02/2000");
  EXPECT_EQ(Full(ReadDateStrict("29/02/00", kBirths)), "no date");
  EXPECT_EQ(Full(ReadDate("01/02/25", kBirths)), "01/02/1925");
  EXPECT_EQ(Full(CDate("01/02/25", kBirths)), "01/02/1925");
  EXPECT_EQ(Year("01/02/25", kBirths), Value(1925));
  EXPECT_EQ(DateDiffDays("01/02/25", Date{36923}, kBirths), Value(76 * 365 + 19));
  EXPECT_EQ(FormatDate("01/02/25", "dd/mm/yyyy", kBirths), Value("01/02/1925"));
}

}  // namespace
}  // namespace zendara

// Dates: reading, parts, differences.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "zendara/value.hpp"

namespace zendara {

struct DateParts {
  int year = 0;  // 100 to 9999
  int month = 0;
  int day = 0;

  friend bool operator==(const DateParts&, const DateParts&) = default;
};

// A working year of two digits in full: 80 to 99 are 1980 to 1999, 0 to 79 are 2000 to 2079.
int FullWorkingYear(int working_year);
// The windows of a working year of two digits. For dates in general: ends in 2029, or 19 years after the working year
// when that is later.
YearWindow WindowOfDates(int working_year);
// For dates of birth: ends with the working year.
YearWindow WindowOfBirths(int working_year);
// The year of a date: one of two digits in full, any other is itself.
int FullYear(int year, YearWindow window);

// Nothing when there is no such day or it is out of range.
std::optional<Date> MakeDate(int year, int month, int day);
// Error 6 outside of the range, here and wherever a date is taken apart.
DateParts PartsOf(Date date);

// The permissive reading of texts: the first order of day/month/year, year/month/day, month/day/year, year/day/month
// that gives a real date wins. Separators "/", "-" or blanks. Two parts are day/month or month/day of the current year,
// else year/month or month/year from its first day. Nothing if no date.
std::optional<Date> ReadDate(std::string_view text, YearWindow window);
// Day, month, year only, otherwise as above: 29/02/01 is no date here.
std::optional<Date> ReadDateStrict(std::string_view text, YearWindow window);
// As ReadDate, then as a plain number that is a serial.
std::optional<Date> ReadDateOrSerial(std::string_view text, YearWindow window);

bool IsDate(const Value& value, YearWindow window);
// A date as it is; a number is a serial; a text as in ReadDateOrSerial, otherwise error 13. Null is error 94, a number
// out of the range error 6.
Date CDate(const Value& value, YearWindow window);

// Null in gives Null out; otherwise through CDate.
Value Year(const Value& value, YearWindow window);
// Whole days of `b` less those of `a`, negative when `b` is earlier. Null in gives Null out.
Value DateDiffDays(const Value& a, const Value& b, YearWindow window);

// "dd/mm/yy", the short form in which a date becomes a text.
std::string ShortDate(Date date);
// Today, without the time of day.
Date Today();

}  // namespace zendara

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

// The window of a hundred years that two-digit years fall in. It ends in 2029, or 19 years after the working year when
// that is later. The session sets it at entry; before that it ends in 2029.
// `working_year` has two digits: 80 to 99 are 1980 to 1999, 0 to 79 are 2000 to 2079.
void SetWorkingYear(int working_year);
// Year of a two-digit number in that window.
int FullYear(int two_digits);

// Nothing when there is no such day or it is out of range.
std::optional<Date> MakeDate(int year, int month, int day);
// Error 6 outside of the range, here and wherever a date is taken apart.
DateParts PartsOf(Date date);

// The permissive reading of texts: the first order of day/month/year, year/month/day, month/day/year, year/day/month
// that gives a real date wins. Separators "/", "-" or blanks. Two parts are day/month or month/day of the current year,
// else year/month or month/year from its first day. Nothing if no date.
std::optional<Date> ReadDate(std::string_view text);
// Day, month, year only, otherwise as above: 29/02/01 is no date here.
std::optional<Date> ReadDateStrict(std::string_view text);

bool IsDate(const Value& value);
// A date as it is; a number is a serial; a text as in ReadDate, then as a plain number that is a serial; otherwise
// error 13. Null is error 94, a number out of the range error 6.
Date CDate(const Value& value);

// Null in gives Null out; otherwise through CDate.
Value Year(const Value& value);
// Whole days of `b` less those of `a`, negative when `b` is earlier. Null in gives Null out.
Value DateDiffDays(const Value& a, const Value& b);

// "dd/mm/yy", the short form in which a date becomes a text.
std::string ShortDate(Date date);
// Today, without the time of day.
Date Today();

}  // namespace zendara

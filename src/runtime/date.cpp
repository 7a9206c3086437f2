#include "runtime/date.hpp"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

#include "runtime/characters.hpp"
#include "runtime/number.hpp"
#include "runtime/surroundings.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr sys_days kEpoch = std::chrono::year{1899} / std::chrono::December / 30;

constexpr int SerialOf(year_month_day day) { return static_cast<int>((sys_days{day} - kEpoch).count()); }
constexpr int kFirstSerial = SerialOf(std::chrono::year{kFirstYear} / std::chrono::January / 1);
constexpr int kLastSerial = SerialOf(std::chrono::year{kLastYear} / std::chrono::December / 31);

bool InRange(double serial) { return serial > kFirstSerial - 1 && serial < kLastSerial + 1; }

// Before the epoch the fraction counts away from it, but stays the time of the day that the whole part names.
int WholeDays(Date date) {
  if (!InRange(date.serial)) throw RuntimeError(kOverflow);
  return static_cast<int>(std::trunc(date.serial));
}

// --- Reading ---

struct Parts {
  std::array<int, 3> numbers{};
  std::size_t count = 0;
};

// Two or three numbers of up to four digits, "/", "-" or blanks between them.
std::optional<Parts> Split(std::string_view text) {
  constexpr std::size_t kMostDigits = 4;
  std::size_t at = 0;
  const auto skip_blanks = [&] {
    const std::size_t before = at;
    while (at < text.size() && text[at] == ' ') ++at;
    return at != before;
  };

  Parts parts;
  skip_blanks();
  for (;;) {
    const std::size_t start = at;
    int number = 0;
    for (; at < text.size() && IsDigit(text[at]) && at - start < kMostDigits; ++at)
      number = number * 10 + (text[at] - '0');
    if (at == start || parts.count == parts.numbers.size()) return std::nullopt;
    parts.numbers[parts.count++] = number;

    const bool blank = skip_blanks();
    if (at == text.size()) break;
    if (text[at] == '/' || text[at] == '-') {
      ++at;
      skip_blanks();
    } else if (!blank) {
      return std::nullopt;
    }
  }
  if (parts.count < 2) return std::nullopt;
  return parts;
}

// Where day, month and year stand among the numbers of a text; kNone where the text does not have them.
struct Order {
  std::size_t year, month, day;
};
constexpr std::size_t kNone = 3;
constexpr Order kThreeNumbers[] = {{2, 1, 0}, {0, 1, 2}, {2, 0, 1}, {0, 2, 1}};
constexpr Order kTwoNumbers[] = {{kNone, 1, 0}, {kNone, 0, 1}, {0, 1, kNone}, {1, 0, kNone}};

std::optional<Date> FromOrder(const Parts& parts, const Order& order, YearWindow window) {
  const int month = parts.numbers[order.month];
  const int day = order.day == kNone ? 1 : parts.numbers[order.day];
  if (order.year == kNone) return MakeDate(PartsOf(Today()).year, month, day);
  return MakeDate(FullYear(parts.numbers[order.year], window), month, day);
}

}  // namespace

int FullWorkingYear(int working_year) { return working_year < 80 ? 2000 + working_year : 1900 + working_year; }

YearWindow WindowOfDates(int working_year) {
  constexpr int kYearsAhead = 19;
  return {.last = std::max(YearWindow{}.last, FullWorkingYear(working_year) + kYearsAhead)};
}

YearWindow WindowOfBirths(int working_year) { return {.last = FullWorkingYear(working_year)}; }

int FullYear(int year, YearWindow window) {
  if (year > 99) return year;
  const int full = window.last - window.last % 100 + year;
  return full > window.last ? full - 100 : full;
}

std::optional<Date> MakeDate(int year, int month, int day) {
  // The calendar types wrap what does not fit them, so they see no number but a plausible one.
  if (year < kFirstYear || year > kLastYear || month < 1 || month > 12 || day < 1 || day > 31) return std::nullopt;
  const year_month_day date{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                            std::chrono::day{static_cast<unsigned>(day)}};
  if (!date.ok()) return std::nullopt;
  return Date{static_cast<double>(SerialOf(date))};
}

DateParts PartsOf(Date date) {
  const year_month_day day{kEpoch + days{WholeDays(date)}};
  return {int{day.year()}, static_cast<int>(unsigned{day.month()}), static_cast<int>(unsigned{day.day()})};
}

std::optional<Date> ReadDate(std::string_view text, YearWindow window) {
  const std::optional<Parts> parts = Split(text);
  if (!parts) return std::nullopt;
  for (const Order& order : parts->count == 3 ? kThreeNumbers : kTwoNumbers) {
    if (const std::optional<Date> date = FromOrder(*parts, order, window)) return date;
  }
  return std::nullopt;
}

std::optional<Date> ReadDateStrict(std::string_view text, YearWindow window) {
  const std::optional<Parts> parts = Split(text);
  if (!parts) return std::nullopt;
  return FromOrder(*parts, parts->count == 3 ? kThreeNumbers[0] : kTwoNumbers[0], window);
}

std::optional<Date> ReadDateOrSerial(std::string_view text, YearWindow window) {
  if (const std::optional<Date> date = ReadDate(text, window)) return date;
  double serial = 0;
  if (ReadNumber(text, serial) != 0 || !InRange(serial)) return std::nullopt;
  return Date{serial};
}

bool IsDate(const Value& value, YearWindow window) {
  return value.IsDate() || (value.IsText() && ReadDate(value.Text(), window));
}

Date CDate(const Value& value, YearWindow window) {
  if (value.IsDate()) return value.AsDate();
  if (value.IsNull()) throw RuntimeError(kInvalidUseOfNull);
  if (value.IsNumber()) {
    if (!InRange(value.Number())) throw RuntimeError(kOverflow);
    return Date{value.Number()};
  }
  if (const std::optional<Date> date = ReadDateOrSerial(value.Text(), window)) return *date;
  throw RuntimeError(kTypeMismatch);
}

Value Year(const Value& value, YearWindow window) {
  if (value.IsNull()) return Null{};
  return PartsOf(CDate(value, window)).year;
}

Value DateDiffDays(const Value& a, const Value& b, YearWindow window) {
  if (a.IsNull() || b.IsNull()) return Null{};
  return WholeDays(CDate(b, window)) - WholeDays(CDate(a, window));
}

std::string ShortDate(Date date) {
  const DateParts parts = PartsOf(date);
  const auto digit = [](int number) { return static_cast<char>('0' + number % 10); };
  return {digit(parts.day / 10),  digit(parts.day), '/', digit(parts.month / 10), digit(parts.month), '/',
          digit(parts.year / 10), digit(parts.year)};
}

Date Today() { return {std::floor(Now().serial)}; }

}  // namespace zendara

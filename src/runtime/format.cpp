#include "runtime/format.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "runtime/characters.hpp"
#include "runtime/date.hpp"
#include "runtime/digits.hpp"
#include "runtime/number.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr bool IsDateLetter(char c) { return FoldCase(c) == 'd' || FoldCase(c) == 'm' || FoldCase(c) == 'y'; }

void AppendNumber(std::string& text, int number, std::size_t width) {
  const std::string digits = std::to_string(number);
  text.append(width > digits.size() ? width - digits.size() : 0, '0').append(digits);
}

// The digits of a whole number; those beyond the significant ones are zeros, 0 has none.
std::string WholeDigits(const Digits& digits) {
  std::string text(digits.view());
  if (text == "0") return {};
  return text.append(static_cast<std::size_t>(digits.exponent + 1 - digits.count), '0');
}

std::string FormatSection(std::string_view section, std::string digits) {
  const auto places = static_cast<std::size_t>(std::ranges::count(section, '0'));
  if (digits.size() < places) digits.insert(0, places - digits.size(), '0');

  std::string text;
  std::size_t used = 0;
  for (const char c : section) {
    if (c != '0') {
      text += c;
      continue;
    }
    const std::size_t taken = used == 0 ? digits.size() - places + 1 : 1;  // the first place takes what is over
    text.append(digits, used, taken);
    used += taken;
  }
  return text;
}

std::string FormatNumber(double number, std::string_view mask) {
  std::array<std::string_view, 3> sections;
  for (std::string_view& section : sections) {
    const std::size_t end = std::min(mask.find(';'), mask.size());
    section = mask.substr(0, end);
    mask.remove_prefix(std::min(end + 1, mask.size()));
  }

  // The rounded number chooses the section, so that nothing shows as minus zero.
  const Digits digits = SignificantDigits(std::round(number));
  const std::string whole = WholeDigits(digits);
  const std::string_view own = digits.negative ? sections[1] : whole.empty() ? sections[2] : sections[0];
  if (!own.empty()) return FormatSection(own, whole);
  return (digits.negative ? "-" : "") + FormatSection(sections[0], whole);
}

}  // namespace

Value Format(const Value& value, std::string_view mask) {
  if (value.IsNull()) return Null{};
  if (mask.empty()) return CStr(value);
  if (!value.IsText()) return FormatNumber(CDbl(value), mask);
  double number = 0;
  return ReadNumber(value.Text(), number) == 0 ? Value(FormatNumber(number, mask)) : value;
}

std::string GroupThousands(std::string_view number) {
  const std::size_t begin = number.starts_with('-') ? 1 : 0;
  const std::size_t comma = std::min(number.find(','), number.size());
  const auto digits = [&](std::size_t from, std::size_t to) {
    return std::all_of(number.begin() + static_cast<std::ptrdiff_t>(from),
                       number.begin() + static_cast<std::ptrdiff_t>(to), [](char c) { return IsDigit(c); });
  };
  std::string grouped(number);
  if (!digits(begin, comma) || (comma < number.size() && !digits(comma + 1, number.size()))) return grouped;
  for (std::size_t at = comma; at > begin + 3;) grouped.insert(at -= 3, 1, '.');
  return grouped;
}

std::string FormatText(const Value& value, std::string_view mask) { return CStr(Format(value, mask)); }

std::string FormatDate(Date date, std::string_view mask) {
  const DateParts parts = PartsOf(date);
  std::string text;
  for (std::size_t at = 0; at < mask.size();) {
    const char letter = FoldCase(mask[at]);
    if (!IsDateLetter(letter)) {
      text += mask[at++];
      continue;
    }
    std::size_t run = 0;
    for (; at < mask.size() && FoldCase(mask[at]) == letter; ++at) ++run;
    if (letter == 'y') {
      run > 2 ? AppendNumber(text, parts.year, 4) : AppendNumber(text, parts.year % 100, 2);
    } else {
      AppendNumber(text, letter == 'd' ? parts.day : parts.month, run);
    }
  }
  return text;
}

Value FormatDate(const Value& value, std::string_view mask, YearWindow window) {
  if (value.IsNull()) return Null{};
  const std::optional<Date> date = value.IsText() ? ReadDateOrSerial(value.Text(), window) : CDate(value, window);
  return date ? Value(FormatDate(*date, mask)) : value;
}

}  // namespace zendara

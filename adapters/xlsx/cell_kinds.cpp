#include "adapters/xlsx/cell_kinds.hpp"

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>

#include "runtime/date.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

constexpr std::size_t kDigits = 15;  // that a spreadsheet keeps
constexpr double kFirstSerial = 61;  // some have a 29/02/1900

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool AreDigits(std::string_view text) { return !text.empty() && std::ranges::all_of(text, IsDigit); }

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
  return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

int NumberOf(std::string_view digits) {
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

bool LeadsWithZero(std::string_view text) { return text.size() > 1 && text[0] == '0' && IsDigit(text[1]); }

}  // namespace

std::optional<PlainNumber> ReadPlainNumber(std::string_view cell) {
  const std::string_view text = WithoutBlanks(cell);
  const bool below_zero = text.starts_with('-');
  const std::string_view plain = text.substr(below_zero ? 1 : 0);
  const std::size_t comma = plain.find(',');
  const std::string_view whole = plain.substr(0, comma);
  const std::string_view decimals = comma == std::string_view::npos ? std::string_view() : plain.substr(comma + 1);
  if (!AreDigits(whole) || LeadsWithZero(whole) || whole.size() + decimals.size() > kDigits) return std::nullopt;
  if (comma != std::string_view::npos && !AreDigits(decimals)) return std::nullopt;

  const std::string digits = std::string(whole) + '.' + std::string(decimals);
  PlainNumber number{0, static_cast<int>(decimals.size())};
  std::from_chars(digits.data(), digits.data() + digits.size(), number.value);
  if (below_zero && number.value == 0) return std::nullopt;
  if (below_zero) number.value = -number.value;
  return number;
}

std::optional<PlainDate> ReadPlainDate(std::string_view cell, YearWindow years) {
  const std::string_view text = WithoutBlanks(cell);
  if ((text.size() != 8 && text.size() != 10) || text[2] != '/' || text[5] != '/') return std::nullopt;
  const std::string_view day = text.substr(0, 2);
  const std::string_view month = text.substr(3, 2);
  const std::string_view year = text.substr(6);
  if (!AreDigits(day) || !AreDigits(month) || !AreDigits(year)) return std::nullopt;
  const bool full_year = year.size() == 4;
  const auto date =
      MakeDate(full_year ? NumberOf(year) : FullYear(NumberOf(year), years), NumberOf(month), NumberOf(day));
  if (!date || date->serial < kFirstSerial) return std::nullopt;
  return PlainDate{date->serial, full_year};
}

void ColumnKind::TakeIn(std::string_view text) {
  const std::string_view cell = WithoutBlanks(text);
  if (cell.empty()) return;
  filled_ = true;
  width_ = std::max(width_, Len(cell));
  dates_ = dates_ && ReadPlainDate(cell, years_);
  numbers_ = numbers_ && !(LeadsWithZero(cell) && AreDigits(cell));
}

CellKind ColumnKind::Kind() const {
  if (filled_ && dates_) return CellKind::kDate;
  return numbers_ ? CellKind::kNumber : CellKind::kText;
}

}  // namespace zendara

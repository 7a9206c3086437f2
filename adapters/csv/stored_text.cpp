#include "adapters/csv/stored_text.hpp"

#include <array>
#include <charconv>
#include <cmath>

#include "runtime/iso_date.hpp"

namespace zendara {
namespace {

std::string NumberText(double number) {
  std::array<char, 32> buffer;
  return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr};
}

std::optional<double> ReadNumber(std::string_view text) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number)) return std::nullopt;
  return number;
}

}  // namespace

void AppendStored(const Value& value, std::string& row) {
  if (value.IsText()) {
    AppendCsvText(value.Text(), row);
  } else if (value.IsNumber()) {
    row += NumberText(value.Number());
  } else if (value.IsDate()) {
    row += IsoDate(value.AsDate());
  }
}

std::optional<Value> ReadStored(const CsvField& field, ColumnType type) {
  if (field.IsNull()) return Value();
  switch (type) {
    case ColumnType::kText:
      return Value(field.text);
    case ColumnType::kNumber:
      if (const auto number = ReadNumber(field.text)) return Value(*number);
      return std::nullopt;
    case ColumnType::kDate:
      if (const auto date = ReadIsoDate(field.text)) return Value(*date);
      return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace zendara

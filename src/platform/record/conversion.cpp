#include "platform/record/conversion.hpp"

#include "runtime/date.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr double kFirstSerial = -657434;  // 01/01/100
constexpr double kEndSerial = 2958466;    // the day after 31/12/9999

Value ToText(const Value& value, const ColumnDef& column) {
  std::string text = CStr(value);
  const auto width = static_cast<std::size_t>(column.width);
  // A text has at most as many characters as bytes, so most need no counting.
  if (width > 0 && text.size() > width && Len(text) > width) throw RuntimeError(kTextTooLong);
  return Value(std::move(text));
}

Value ToNumber(const Value& value) {
  if (value.IsNumber()) return value;
  if (value.IsDate()) return Value(value.AsDate().serial);
  try {
    return Value(CDbl(value.Text()));
  } catch (const RuntimeError& error) {
    throw RuntimeError(kDataConversion, {}, error.what());
  }
}

Value ToDate(const Value& value, YearWindow window) {
  if (value.IsDate()) return value;
  if (value.IsNumber() && value.Number() >= kFirstSerial && value.Number() < kEndSerial) {
    return Value(Date{value.Number()});
  }
  if (value.IsText()) {
    if (const auto date = ReadDate(value.Text(), window)) return Value(*date);
  }
  throw RuntimeError(kDataConversion);
}

}  // namespace

Value ConvertForColumn(const Value& value, const ColumnDef& column, YearWindow window) {
  if (value.IsNull()) return value;
  switch (column.type) {
    case ColumnType::kText:
      return ToText(value, column);
    case ColumnType::kNumber:
      return ToNumber(value);
    case ColumnType::kDate:
      return ToDate(value, window);
  }
  throw RuntimeError(kDataConversion);
}

}  // namespace zendara

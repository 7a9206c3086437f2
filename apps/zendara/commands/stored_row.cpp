#include "apps/zendara/commands/stored_row.hpp"

#include <cmath>

#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

std::string TextFault(const std::string& text, int width) {
  if (!IsUtf8(text)) return InQuotes(text) + " is no UTF-8";
  const std::size_t length = Len(text);
  if (width == 0 || length <= static_cast<std::size_t>(width)) return {};
  return InQuotes(text) + " has " + std::to_string(length) + " characters, more than " + std::to_string(width);
}

std::string FaultOf(const Value& value, const ColumnDef& column) {
  if (value.IsNull()) return {};
  switch (column.type) {
    case ColumnType::kText:
      return value.IsText() ? TextFault(value.Text(), column.width) : "";
    case ColumnType::kNumber:
      if (!value.IsNumber()) return InQuotes(CStr(value)) + " is no number";
      return std::isfinite(value.Number()) ? "" : "infinity is no number";
    case ColumnType::kDate:
      return value.IsDate() ? "" : InQuotes(CStr(value)) + " is no date";
  }
  return {};
}

}  // namespace

StoredCell ReadCell(Recordset& rows, int ordinal) {
  Value value;
  try {
    value = rows.Fields(ordinal).Get();
  } catch (const RuntimeError& error) {
    if (error.number() != kDataConversion) throw;
    value = error.detail();
  }
  std::string fault = FaultOf(value, rows.Columns()[static_cast<std::size_t>(ordinal)]);
  return {std::move(value), std::move(fault)};
}

std::string NameOfRow(Recordset& rows, const TableDef& table, std::int64_t number) {
  const IndexDef* primary = table.Primary();
  if (!primary) return "row " + std::to_string(number);
  std::string name = "key";
  for (const int column : primary->columns) {
    const Value key = ReadCell(rows, column).value;
    name += " " + (key.IsNull() ? "Null" : Printable(CStr(key)));
  }
  return name;
}

std::string Printable(std::string_view text) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  const bool utf8 = IsUtf8(text);
  std::string printed;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || (byte >= 0x80 && !utf8)) {
      printed.append("\\x") += kHex[byte >> 4U];
      printed += kHex[byte & 0xFU];
    } else {
      printed += c;
    }
  }
  return printed;
}

std::string InQuotes(std::string_view text) { return "\"" + Printable(text) + "\""; }

}  // namespace zendara

#include "apps/zendara/commands/advice_tables.hpp"

#include "apps/zendara/commands/stored_row.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"

namespace zendara {

std::string KeyOf(std::string_view text) { return LCase(text); }

std::string KeyOf(Texts texts) {
  std::string key;
  for (const std::string& text : texts) key += KeyOf(text) + '\n';
  return key;
}

std::string TextAt(Recordset& row, int ordinal) {
  const Value value = ReadCell(row, ordinal).value;
  return value.IsNull() ? std::string() : Printable(RTrim(CStr(value)));
}

std::string Joined(Texts texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() || text.empty() ? "" : " ") + text;
  return joined;
}

}  // namespace zendara

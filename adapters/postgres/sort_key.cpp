#include "adapters/postgres/sort_key.hpp"

#include <bit>
#include <cstdint>

#include "adapters/postgres/wire.hpp"

namespace zendara::postgres {

void AppendSortKey(const Value& value, const SpanishOrder& order, std::string& bytes) {
  if (value.IsNull()) return;
  if (value.IsText()) return order.AppendKey(value.Text(), bytes);
  const double number = value.IsDate() ? static_cast<double>(MomentOf(value.AsDate())) : value.Number();
  // Zero has one key. The order of doubles is that of their bits, but for the sign: of negative ones it is the reverse.
  auto bits = std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number);
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
  bits = (bits & kSign) ? ~bits : bits | kSign;
  for (int shift = 56; shift >= 0; shift -= 8) bytes += static_cast<char>(bits >> shift & 0xFF);
}

std::string SortKey(const Value& value, const SpanishOrder& order) {
  std::string bytes;
  AppendSortKey(value, order, bytes);
  return bytes;
}

}  // namespace zendara::postgres

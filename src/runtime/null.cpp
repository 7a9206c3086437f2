#include "runtime/null.hpp"

#include "runtime/number.hpp"

namespace zendara {
namespace {

// `compare` sees two texts or two numbers.
template <typename Compare>
Truth Compared(const Value& a, const Value& b, Compare compare) {
  if (a.IsNull() || b.IsNull()) return Truth::kNull;
  const bool holds = a.IsText() && b.IsText() ? compare(a.Text(), b.Text()) : compare(CDbl(a), CDbl(b));
  return holds ? Truth::kTrue : Truth::kFalse;
}

}  // namespace

Truth Equal(const Value& a, const Value& b) {
  return Compared(a, b, [](const auto& x, const auto& y) { return x == y; });
}

Truth Less(const Value& a, const Value& b) {
  return Compared(a, b, [](const auto& x, const auto& y) { return x < y; });
}

Truth Not(Truth truth) {
  if (truth == Truth::kNull) return Truth::kNull;
  return truth == Truth::kTrue ? Truth::kFalse : Truth::kTrue;
}

Value Join(const Value& a, const Value& b) {
  if (a.IsNull() && b.IsNull()) return Null{};
  std::string text = a.IsNull() ? std::string() : TextOf(a);
  if (!b.IsNull()) text += TextOf(b);
  return text;
}

std::string TextOf(const Value& value) { return CStr(value); }

}  // namespace zendara

// Null in comparisons: three-valued, and If takes Null as False.
#pragma once

#include <string>

#include "zendara/value.hpp"

namespace zendara {

enum class Truth { kFalse, kTrue, kNull };

// Text with text is binary and case-sensitive; a text beside a number or date is converted by CDbl (error 13 if it
// cannot). Null on either side gives Null.
Truth Equal(const Value& a, const Value& b);
Truth Less(const Value& a, const Value& b);
Truth Not(Truth truth);
inline bool If(Truth truth) { return truth == Truth::kTrue; }

// The operator `&`: Null counts as empty, Null & Null is Null.
Value Join(const Value& a, const Value& b);
// The text of a value for a text variable or control; Null is error 94.
std::string TextOf(const Value& value);

}  // namespace zendara

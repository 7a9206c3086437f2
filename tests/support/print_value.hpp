// Values in the messages of tests.
#pragma once

#include <ostream>

#include "runtime/date.hpp"
#include "runtime/number.hpp"
#include "zendara/value.hpp"

namespace zendara {

inline void PrintTo(const Value& value, std::ostream* out) {
  if (value.IsNull()) {
    *out << "Null";
  } else if (value.IsText()) {
    *out << '"' << value.Text() << '"';
  } else if (value.IsNumber()) {
    *out << CStr(value.Number());
  } else {
    const DateParts date = PartsOf(value.AsDate());
    *out << date.year << '-' << date.month << '-' << date.day;
  }
}

}  // namespace zendara

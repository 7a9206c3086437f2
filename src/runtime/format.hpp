// The `Format` masks that the system uses: dates and whole numbers with sections.
#pragma once

#include <string>
#include <string_view>

#include "zendara/value.hpp"

namespace zendara {

// Numeric masks are made of 0, blanks and up to three sections (positive; negative; zero): a number or a text that
// reads as one by CDbl is rounded half away from zero and formatted, another text comes back unchanged. The rounded
// number chooses the section; an empty section is the first, with "-" for negatives. Without a mask, as CStr.
// Null gives Null.
Value Format(const Value& value, std::string_view mask);
// The same where a text is needed: Null is error 94.
std::string FormatText(const Value& value, std::string_view mask);

// A plain number, digits with or without a sign before and a comma and decimals behind them, with a point between its
// thousands: "2.500.000,50". Any other text comes back unchanged.
std::string GroupThousands(std::string_view number);

// Date masks are made of d/dd, m/mm, yy/yyyy in any case and separators.
std::string FormatDate(Date date, std::string_view mask);
// A date, a number (serial) or a text that CDate reads is formatted, another text comes back unchanged, the empty text
// is empty, Null gives Null.
Value FormatDate(const Value& value, std::string_view mask, YearWindow window);

}  // namespace zendara

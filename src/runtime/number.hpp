// Numbers and their texts, independent of the machine's locale.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "zendara/value.hpp"

namespace zendara {

// Texts of every kind go the same way as std::string_view.
template <typename T>
concept TextLike = std::convertible_to<const T&, std::string_view>;

// Number to text with 15 significant digits: blank before zero and positive numbers, decimal point, no zero before it.
// What is not finite is error 6.
std::string Str(double number);
// The implicit conversion: no blank, decimal comma, zero before it.
std::string CStr(double number);
// Text, number (as above) or date (dd/mm/yy) to text; Null is error 94.
std::string CStr(const Value& value);

// The longest number at the start of the text, blanks skipped anywhere, decimal point only, exponent E or D, &H and &O
// as 16- or 32-bit integers; 0 if there is none. Error 6 on overflow, 13 on the mark of an integer type (% or &) after
// a point or an exponent, such as "5.5%".
double Val(std::string_view text);
// Implicit conversion with the decimal comma; thousands points are ignored at any place before it. A sign before or
// after or brackets, "€" or "Pts", an exponent; &H and &O. Error 13 if the text is no number, 6 on overflow.
double CDbl(std::string_view text);
// The same reading without exceptions: 0 and `number` set, or the number of the error.
int ReadNumber(std::string_view text, double& number);
// Number or date (its serial) as it is, text as above, Null error 94.
double CDbl(const Value& value);
template <TextLike T>
double CDbl(const T& text) {
  return CDbl(std::string_view(text));
}
// True exactly when CDbl of the text succeeds; Null and dates are no numbers.
bool IsNumeric(std::string_view text);
bool IsNumeric(const Value& value);
template <TextLike T>
bool IsNumeric(const T& text) {
  return IsNumeric(std::string_view(text));
}

// Ties to even; outside of 16 or 32 bits error 6.
std::int16_t CInt(double number);
std::int32_t CLng(double number);
// Int goes down, Fix towards 0.
double Int(double number);
double Fix(double number);

}  // namespace zendara

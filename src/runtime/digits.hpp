// The decimal digits of a number, as all its texts show them.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace zendara {

inline constexpr int kSignificantDigits = 15;

// A number as d.ddd... times 10^exponent, of so many significant digits at most.
struct Digits {
  bool negative = false;
  int exponent = 0;
  int count = 1;                // from 1; no zero at the end, but zero itself is the one digit 0
  std::array<char, 24> text{};  // the digits; what follows them means nothing

  std::string_view view() const { return {text.data(), static_cast<std::size_t>(count)}; }
};

// Rounded half away from zero on the exact value; zero is never negative. Error 6 for what is not finite.
Digits SignificantDigits(double number);

}  // namespace zendara

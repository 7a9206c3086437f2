#include "runtime/digits.hpp"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr double kIntegerLimit = 1e15;

void DropZeros(Digits& digits) {
  while (digits.count > 1 && digits.text[static_cast<std::size_t>(digits.count) - 1] == '0') --digits.count;
}

// Takes "d.ddde+xx" apart.
Digits FromScientific(const char* begin, const char* end) {
  Digits digits;
  const char* mark = end;
  while (*--mark != 'e') {
  }
  const char* power = mark[1] == '+' ? mark + 2 : mark + 1;
  std::from_chars(power, end, digits.exponent);

  digits.text[0] = begin[0];
  digits.count = 1;
  for (const char* c = begin + 2; c < mark && digits.count < kSignificantDigits + 2; ++c) {
    digits.text[static_cast<std::size_t>(digits.count++)] = *c;
  }
  return digits;
}

// To 15 digits; the 16th alone decides, so the digits must not have been rounded to end in 5 there.
void Round(Digits& digits) {
  if (digits.count <= kSignificantDigits) return;
  const bool up = digits.text[kSignificantDigits] >= '5';
  digits.count = kSignificantDigits;
  if (up) {
    std::size_t i = kSignificantDigits;
    while (i > 0 && digits.text[i - 1] == '9') digits.text[--i] = '0';
    if (i > 0) {
      ++digits.text[i - 1];
    } else {
      digits.text[0] = '1';
      ++digits.exponent;
    }
  }
  DropZeros(digits);
}

Digits Exact(double magnitude) {
  std::array<char, 800> buffer;  // no double has more than 767 significant digits
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::scientific, 766).ptr;
  return FromScientific(buffer.data(), end);
}

}  // namespace

Digits SignificantDigits(double number) {
  if (!std::isfinite(number)) throw RuntimeError(kOverflow);
  const double magnitude = std::abs(number);
  Digits digits;

  if (magnitude < kIntegerLimit && magnitude == std::trunc(magnitude)) {
    const auto end = std::to_chars(digits.text.data(), digits.text.data() + digits.text.size(),
                                   static_cast<std::uint64_t>(magnitude))
                         .ptr;
    digits.count = static_cast<int>(end - digits.text.data());
    digits.exponent = digits.count - 1;
    DropZeros(digits);
  } else if (magnitude < std::numeric_limits<double>::min()) {
    digits = Exact(magnitude);  // so few bits that the shortest text is far from the value
    Round(digits);
  } else {
    std::array<char, 32> buffer;
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::scientific).ptr;
    digits = FromScientific(buffer.data(), end);
    // The shortest text is the nearest of its length. It lies on the same side of a half as the value itself, unless
    // it is the half.
    if (digits.count == kSignificantDigits + 1 && digits.text[kSignificantDigits] == '5') digits = Exact(magnitude);
    Round(digits);
  }
  digits.negative = number < 0;
  return digits;
}

}  // namespace zendara

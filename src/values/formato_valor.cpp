#include "values/formato_valor.hpp"

#include <algorithm>
#include <array>

#include "runtime/characters.hpp"
#include "runtime/digits.hpp"
#include "values/valor_numero.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr std::size_t kMaskLength = 5;
constexpr std::size_t kPadding = 25;

constexpr std::array kHalfUnit = {0.50,      0.050,      0.0050,      0.00050,      0.000050,
                                  0.0000050, 0.00000050, 0.000000050, 0.0000000050, 0.00000000050};
constexpr std::array kNearlyHalfUnit = {0.49,      0.049,      0.0049,      0.00049,      0.000049,
                                        0.0000049, 0.00000049, 0.000000049, 0.0000000049, 0.00000000049};

struct Mask {
  double rounding;
  bool fill_decimals;
  int decimals;
  char padding;
  bool show_zero;
};

Mask ReadMask(std::string_view mask) {
  if (mask.size() != kMaskLength) throw RuntimeError(kInvalidCall);
  const int decimals = IsDigit(mask[2]) ? mask[2] - '0' : 0;
  const auto row = static_cast<std::size_t>(decimals);
  return {.rounding = mask[0] == '1'   ? kHalfUnit[row]
                      : mask[0] == '2' ? kNearlyHalfUnit[row]
                                       : 0,
          .fill_decimals = mask[1] == '1',
          .decimals = decimals,
          .padding = mask[3],
          .show_zero = mask[4] == 'S'};
}

// Whether the number's text has a point: a fraction, or an exponent form of more than one digit. The exponent form is
// that of numbers from 1E+15 and of fractions that take more than 15 decimals.
bool HasPoint(const Digits& digits) {
  constexpr int kLargestPlainExponent = 14;
  constexpr int kMostDecimals = 15;
  const int fraction_digits = digits.count - digits.exponent - 1;
  const bool plain = digits.exponent < 0 ? fraction_digits <= kMostDecimals : digits.exponent <= kLargestPlainExponent;
  return plain ? fraction_digits > 0 : digits.count > 1;
}

// The padding and the number behind it; no double has more than 309 digits before its point.
class Line {
 public:
  explicit Line(char padding) : size_(kPadding) { std::fill_n(text_.begin(), kPadding, padding); }

  void Put(char c) {
    if (c >= '1' && c <= '9') zero_ = false;
    text_[size_++] = c;
  }
  // The digit at 10^`power`.
  void PutDigit(const Digits& digits, int power) {
    const int place = digits.exponent - power;
    Put(place >= 0 && place < digits.count ? digits.text[static_cast<std::size_t>(place)] : '0');
  }
  bool Zero() const { return zero_; }
  void DropNumber() { size_ = kPadding; }
  std::string_view text() const { return {text_.data(), size_}; }

 private:
  std::array<char, 384> text_;
  std::size_t size_;
  bool zero_ = true;
};

}  // namespace

std::string FormatoValor(int width, double value, std::string_view mask_text) {
  const Mask mask = ReadMask(mask_text);
  if (width < 0) throw RuntimeError(kInvalidCall);

  Digits digits = SignificantDigits(value);
  const bool point = HasPoint(digits);
  // The sum is seen through 15 digits again: a half that lies just below its text still goes up.
  if (point && mask.rounding != 0) digits = SignificantDigits(value + mask.rounding);

  Line line(mask.padding);
  if (digits.negative) line.Put('-');
  for (int power = std::max(digits.exponent, 0); power >= 0; --power) line.PutDigit(digits, power);
  const bool decimals = point || mask.fill_decimals || digits.exponent < 0;
  if (decimals && mask.decimals > 0) {
    line.Put(',');
    for (int power = -1; power >= -mask.decimals; --power) line.PutDigit(digits, power);
  }
  if (line.Zero() && !mask.show_zero) line.DropNumber();

  std::string_view text = line.text();
  text.remove_prefix(text.size() - std::min(text.size(), static_cast<std::size_t>(width)));
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return std::string(text);
}

std::string FormatoValor(int width, std::string_view value, std::string_view mask) {
  return FormatoValor(width, ValorNumero(value), mask);
}

}  // namespace zendara

#include "runtime/number.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "runtime/characters.hpp"
#include "runtime/date.hpp"
#include "runtime/digits.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// --- Number to text ---

constexpr std::size_t kLongestNumber = 32;  // sign, digits, 14 zeros or an exponent, mark: 23 at most

class Writer {
 public:
  void Add(char c) { text_[size_++] = c; }
  void Add(std::string_view part) {
    std::copy(part.begin(), part.end(), text_.begin() + static_cast<std::ptrdiff_t>(size_));
    size_ += part.size();
  }
  void Zeros(int count) {
    for (; count > 0; --count) Add('0');
  }
  std::string str() const { return std::string(text_.data(), size_); }

 private:
  std::array<char, kLongestNumber> text_;
  std::size_t size_ = 0;
};

void WriteExponentForm(Writer& out, const Digits& digits, char mark) {
  out.Add(digits.text[0]);
  if (digits.count > 1) {
    out.Add(mark);
    out.Add(digits.view().substr(1));
  }
  out.Add('E');
  out.Add(digits.exponent < 0 ? '-' : '+');
  const int exponent = std::abs(digits.exponent);
  if (exponent < 10) out.Add('0');
  std::array<char, 4> power;
  const auto end = std::to_chars(power.data(), power.data() + power.size(), exponent).ptr;
  out.Add(std::string_view(power.data(), static_cast<std::size_t>(end - power.data())));
}

void WriteMagnitude(Writer& out, const Digits& digits, char mark, bool zero_before_mark) {
  const int exponent = digits.exponent;
  const std::string_view text = digits.view();
  if (exponent >= kSignificantDigits || (exponent < 0 && digits.count - exponent - 1 > kSignificantDigits)) {
    WriteExponentForm(out, digits, mark);
  } else if (exponent < 0) {
    if (zero_before_mark) out.Add('0');
    out.Add(mark);
    out.Zeros(-exponent - 1);
    out.Add(text);
  } else {
    const int before_mark = exponent + 1;
    out.Add(text.substr(0, static_cast<std::size_t>(before_mark)));
    out.Zeros(before_mark - digits.count);
    if (digits.count > before_mark) {
      out.Add(mark);
      out.Add(text.substr(static_cast<std::size_t>(before_mark)));
    }
  }
}

// --- Text to number ---

constexpr bool IsExponentLetter(char c) { return c == 'E' || c == 'e' || c == 'D' || c == 'd'; }
constexpr char Capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// A decimal number as its digits come in.
class Decimal {
 public:
  void AddDigit(char digit, bool after_mark) {
    if (mantissa_ < kFull) {
      mantissa_ = mantissa_ * 10 + static_cast<std::uint64_t>(digit - '0');
    } else {
      more_ += digit;
    }
    if (after_mark) --exponent_;
    any_ = true;
  }
  void AddExponent(long long exponent) { exponent_ += exponent; }

  bool any() const { return any_; }

  // 0 and `number` set, or 6.
  int Magnitude(double& number) const {
    constexpr std::array<double, 23> kPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                                1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    constexpr std::uint64_t kExact = std::uint64_t{1} << 53;
    const long long power = exponent_ < 0 ? -exponent_ : exponent_;
    if (mantissa_ <= kExact && power < static_cast<long long>(kPowers.size())) {
      // Both are exact doubles, so the one operation rounds correctly.
      const double scale = kPowers[static_cast<std::size_t>(power)];
      number = exponent_ < 0 ? static_cast<double>(mantissa_) / scale : static_cast<double>(mantissa_) * scale;
      return 0;
    }
    number = 0;
    if (mantissa_ == 0) return 0;
    const std::string digits = std::to_string(mantissa_) + more_;
    const std::string text = digits + 'e' + std::to_string(exponent_);
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    // Out of range is said of what is too small as well; that is 0.
    const bool large = static_cast<long long>(digits.size()) + exponent_ > 0;
    if (std::isinf(number) || (read.ec == std::errc::result_out_of_range && large)) return kOverflow;
    if (read.ec == std::errc::result_out_of_range) number = 0;
    return 0;
  }

 private:
  static constexpr std::uint64_t kFull = 1'000'000'000'000'000'000;

  std::uint64_t mantissa_ = 0;
  std::string more_;  // digits beyond those that the mantissa holds
  long long exponent_ = 0;
  bool any_ = false;
};

// Reads along a text. With `skips_blanks`, blanks, tabs and line feeds are not there at all.
class Reader {
 public:
  Reader(std::string_view text, bool skips_blanks) : text_(text), skips_blanks_(skips_blanks) { Settle(); }

  bool AtEnd() const { return at_ == text_.size(); }
  // The character here, 0 at the end.
  char Here() const { return AtEnd() ? '\0' : text_[at_]; }
  void Next() {
    ++at_;
    Settle();
  }
  bool Take(char c) {
    if (AtEnd() || text_[at_] != c) return false;
    Next();
    return true;
  }
  bool TakeText(std::string_view capitals) {
    const std::string_view part = text_.substr(at_, capitals.size());
    if (!std::ranges::equal(part, capitals, {}, Capital)) return false;
    at_ += capitals.size();
    Settle();
    return true;
  }

  std::size_t position() const { return at_; }
  void Return(std::size_t position) { at_ = position; }

 private:
  void Settle() {
    while (skips_blanks_ && at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t' || text_[at_] == '\n')) {
      ++at_;
    }
  }

  std::string_view text_;
  bool skips_blanks_;
  std::size_t at_ = 0;
};

// An exponent, if a whole one stands here. One of more digits than any number has stays as large as it is needed to
// be out of range.
bool TakeExponent(Reader& reader, Decimal& decimal) {
  constexpr long long kEnough = 1'000'000'000;
  const std::size_t before = reader.position();
  if (!IsExponentLetter(reader.Here())) return false;
  reader.Next();
  const bool negative = reader.Here() == '-';
  if (negative || reader.Here() == '+') reader.Next();
  if (!IsDigit(reader.Here())) {
    reader.Return(before);
    return false;
  }
  long long exponent = 0;
  for (; IsDigit(reader.Here()); reader.Next()) {
    exponent = std::min(exponent * 10 + (reader.Here() - '0'), kEnough);
  }
  decimal.AddExponent(negative ? -exponent : exponent);
  return true;
}

// Most texts of the stored tables are these: nothing, or a few digits.
std::optional<double> PlainDigits(std::string_view text) {
  constexpr std::size_t kExact = 15;  // every whole number of so many digits is a double
  if (text.size() > kExact) return std::nullopt;
  std::int64_t number = 0;
  for (const char c : text) {
    if (!IsDigit(c)) return std::nullopt;
    number = number * 10 + (c - '0');
  }
  return static_cast<double>(number);
}

// &H and &O: up to 16 bits read as a 16-bit integer, up to 32 as one of 32 bits. 0 and `number` set, or 6; nothing if
// no such number stands here.
std::optional<int> TakeRadix(Reader& reader, double& number) {
  if (reader.Here() != '&') return std::nullopt;
  const std::size_t before = reader.position();
  reader.Next();
  const char letter = Capital(reader.Here());
  const int bits = letter == 'H' ? 4 : letter == 'O' ? 3 : 0;
  std::uint64_t value = 0;
  bool any = false;
  if (bits != 0) {
    reader.Next();
    for (;; reader.Next()) {
      const char c = Capital(reader.Here());
      const int digit = IsDigit(c) ? c - '0' : c >= 'A' && c <= 'F' ? c - 'A' + 10 : 16;
      if (digit >= 1 << bits) break;
      value = value << bits | static_cast<std::uint64_t>(digit);
      if (value > std::numeric_limits<std::uint32_t>::max()) return kOverflow;
      any = true;
    }
  }
  if (!any) {
    reader.Return(before);
    return std::nullopt;
  }
  number = value <= std::numeric_limits<std::uint16_t>::max() ? static_cast<std::int16_t>(value)
                                                              : static_cast<std::int32_t>(value);
  return 0;
}

// The signs, brackets and currency that may stand around a number, each once.
class Surroundings {
 public:
  // Blanks, a sign, an opening bracket, a currency sign in any order.
  void TakeBefore(Reader& reader) {
    while (reader.Take(' ') || TakeSign(reader) || TakeOpening(reader) || TakeCurrency(reader)) {
    }
  }
  void TakeAfter(Reader& reader) {
    while (reader.Take(' ') || TakeSign(reader) || TakeClosing(reader) || TakeCurrency(reader)) {
    }
  }
  bool whole() const { return !open_; }
  bool plain() const { return !sign_ && !currency_; }
  bool negative() const { return negative_; }

 private:
  bool TakeSign(Reader& reader) {
    if (sign_ || (reader.Here() != '-' && reader.Here() != '+')) return false;
    negative_ = reader.Here() == '-';
    reader.Next();
    return sign_ = true;
  }
  // Brackets stand for a sign.
  bool TakeOpening(Reader& reader) { return !sign_ && reader.Take('(') && (sign_ = negative_ = open_ = true); }
  bool TakeClosing(Reader& reader) {
    if (!open_ || !reader.Take(')')) return false;
    open_ = false;
    return true;
  }
  bool TakeCurrency(Reader& reader) {
    return !currency_ && (reader.TakeText("€") || reader.TakeText("PTS")) && (currency_ = true);
  }

  bool sign_ = false;
  bool negative_ = false;
  bool open_ = false;
  bool currency_ = false;
};

template <typename Integer>
Integer ToInteger(double number) {
  const double rounded = std::nearbyint(number);  // the default rounding mode, ties to even
  if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max())) {
    throw RuntimeError(kOverflow);
  }
  return static_cast<Integer>(rounded);
}

}  // namespace

std::string Str(double number) {
  const Digits digits = SignificantDigits(number);
  Writer out;
  out.Add(digits.negative ? '-' : ' ');
  WriteMagnitude(out, digits, '.', false);
  return out.str();
}

std::string CStr(double number) {
  const Digits digits = SignificantDigits(number);
  Writer out;
  if (digits.negative) out.Add('-');
  WriteMagnitude(out, digits, ',', true);
  return out.str();
}

std::string CStr(const Value& value) {
  if (value.IsText()) return value.Text();
  if (value.IsNumber()) return CStr(value.Number());
  if (value.IsDate()) return ShortDate(value.AsDate());
  throw RuntimeError(kInvalidUseOfNull);
}

double Val(std::string_view text) {
  if (const auto plain = PlainDigits(text)) return *plain;
  Reader reader(text, true);
  double number = 0;
  if (const std::optional<int> error = TakeRadix(reader, number)) {
    if (*error != 0) throw RuntimeError(*error);
    return number;
  }

  const bool negative = reader.Here() == '-';
  if (negative || reader.Here() == '+') reader.Next();
  Decimal decimal;
  for (; IsDigit(reader.Here()); reader.Next()) decimal.AddDigit(reader.Here(), false);
  bool whole = true;
  if (reader.Take('.')) {
    whole = false;
    for (; IsDigit(reader.Here()); reader.Next()) decimal.AddDigit(reader.Here(), true);
  }
  if (!decimal.any()) return 0;
  if (TakeExponent(reader, decimal)) whole = false;

  // The marks of the integer types do not go with a point or an exponent.
  if (!whole && (reader.Here() == '%' || reader.Here() == '&')) throw RuntimeError(kTypeMismatch);
  if (const int error = decimal.Magnitude(number)) throw RuntimeError(error);
  return negative ? -number : number;
}

int ReadNumber(std::string_view text, double& number) {
  Reader reader(text, false);
  Surroundings around;
  around.TakeBefore(reader);
  if (around.plain()) {
    if (const std::optional<int> error = TakeRadix(reader, number)) {
      while (reader.Take(' ')) {
      }
      return reader.AtEnd() ? *error : kTypeMismatch;
    }
  }

  Decimal decimal;
  for (; IsDigit(reader.Here()) || reader.Here() == '.'; reader.Next()) {
    if (reader.Here() != '.') decimal.AddDigit(reader.Here(), false);
  }
  if (reader.Take(',')) {
    for (; IsDigit(reader.Here()); reader.Next()) decimal.AddDigit(reader.Here(), true);
  }
  if (!decimal.any()) return kTypeMismatch;
  TakeExponent(reader, decimal);
  around.TakeAfter(reader);
  if (!reader.AtEnd() || !around.whole()) return kTypeMismatch;

  if (const int error = decimal.Magnitude(number)) return error;
  if (around.negative()) number = -number;
  return 0;
}

double CDbl(std::string_view text) {
  double number = 0;
  if (const int error = ReadNumber(text, number)) throw RuntimeError(error);
  return number;
}

double CDbl(const Value& value) {
  if (value.IsText()) return CDbl(std::string_view(value.Text()));
  if (value.IsNumber()) return value.Number();
  if (value.IsDate()) return value.AsDate().serial;
  throw RuntimeError(kInvalidUseOfNull);
}

bool IsNumeric(std::string_view text) {
  double number = 0;
  return ReadNumber(text, number) == 0;
}

bool IsNumeric(const Value& value) {
  return value.IsNumber() || (value.IsText() && IsNumeric(std::string_view(value.Text())));
}

std::int16_t CInt(double number) { return ToInteger<std::int16_t>(number); }
std::int32_t CLng(double number) { return ToInteger<std::int32_t>(number); }
double Int(double number) { return std::floor(number); }
double Fix(double number) { return std::trunc(number); }

}  // namespace zendara

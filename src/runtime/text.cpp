#include "runtime/text.hpp"

#include <algorithm>

#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr unsigned Byte(char c) { return static_cast<unsigned char>(c); }
constexpr bool IsContinuation(char c) { return (Byte(c) & 0xC0) == 0x80; }

bool IsAscii(std::string_view text) {
  unsigned seen = 0;
  for (const char c : text) seen |= Byte(c);
  return seen < 0x80;
}

// Bytes of the first character of a text that is not empty; 1 for a byte that starts no well-formed sequence.
std::size_t FirstLength(std::string_view text) {
  const unsigned lead = Byte(text[0]);
  if (lead < 0x80) return 1;
  if (text.size() < 2 || !IsContinuation(text[1])) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;

  // Overlong forms, surrogates and what lies beyond U+10FFFF show in the second byte.
  const unsigned second = Byte(text[1]);
  if (text.size() < 3 || !IsContinuation(text[2])) return 1;
  if (lead >= 0xE0 && lead <= 0xEF) {
    return (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second >= 0xA0) ? 1 : 3;
  }
  if (text.size() < 4 || !IsContinuation(text[3])) return 1;
  if (lead >= 0xF0 && lead <= 0xF4) {
    return (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second >= 0x90) ? 1 : 4;
  }
  return 1;
}

struct Prefix {
  std::size_t bytes = 0;
  std::size_t characters = 0;
};

constexpr int kReplacementCharacter = 0xFFFD;

// The first `wanted` characters, or all there are.
Prefix FirstCharacters(std::string_view text, std::size_t wanted) {
  if (IsAscii(text.substr(0, wanted))) {
    const std::size_t size = std::min(wanted, text.size());
    return {size, size};
  }
  Prefix prefix;
  while (prefix.characters < wanted && prefix.bytes < text.size()) {
    prefix.bytes += FirstLength(text.substr(prefix.bytes));
    ++prefix.characters;
  }
  return prefix;
}

std::size_t Count(int length) {
  if (length < 0) throw RuntimeError(kInvalidCall);
  return static_cast<std::size_t>(length);
}

std::string_view From(std::string_view text, int start) {
  if (start < 1) throw RuntimeError(kInvalidCall);
  return text.substr(FirstCharacters(text, static_cast<std::size_t>(start) - 1).bytes);
}

// Latin-1 has its small letters 32 above the capitals. Latin Extended-A alternates capital and small letter; in two
// runs the capital is the odd one. Letters whose other case lies outside of both blocks stay as they are.
constexpr bool IsLatin1Capital(unsigned c) { return c >= 0xC0 && c <= 0xDE && c != 0xD7; }
constexpr bool HasEvenCapital(unsigned c) {
  return (c >= 0x100 && c <= 0x12F) || (c >= 0x132 && c <= 0x137) || (c >= 0x14A && c <= 0x177);
}
constexpr bool HasOddCapital(unsigned c) { return (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E); }
constexpr unsigned kCapitalYDiaeresis = 0x178;
constexpr unsigned kSmallYDiaeresis = 0xFF;

constexpr unsigned UpperOf(unsigned c) {
  if (c < 0x80) return c >= 'a' && c <= 'z' ? c - 0x20 : c;
  if (c >= 0xE0 && IsLatin1Capital(c - 0x20)) return c - 0x20;
  if (c == kSmallYDiaeresis) return kCapitalYDiaeresis;
  if (HasEvenCapital(c)) return c & ~1u;
  if (HasOddCapital(c)) return c - (c % 2 == 0 ? 1 : 0);
  return c;
}

constexpr unsigned LowerOf(unsigned c) {
  if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 0x20 : c;
  if (IsLatin1Capital(c)) return c + 0x20;
  if (c == kCapitalYDiaeresis) return kSmallYDiaeresis;
  if (HasEvenCapital(c)) return c | 1u;
  if (HasOddCapital(c)) return c + c % 2;
  return c;
}

// Both cases of every letter that changes take the same number of bytes, so the text is changed in place.
template <typename Change>
std::string ChangeCase(std::string_view text, Change change) {
  std::string result(text);
  for (std::size_t i = 0; i < result.size(); ++i) {
    const unsigned lead = Byte(result[i]);
    if (lead < 0x80) {
      result[i] = static_cast<char>(change(lead));
    } else if (lead >= 0xC3 && lead <= 0xC5 && i + 1 < result.size() && IsContinuation(result[i + 1])) {
      const unsigned changed = change((lead & 0x1F) << 6 | (Byte(result[i + 1]) & 0x3F));
      result[i] = static_cast<char>(0xC0 | changed >> 6);
      result[++i] = static_cast<char>(0x80 | (changed & 0x3F));
    }
  }
  return result;
}

std::string_view WithoutLeft(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}
std::string_view WithoutRight(std::string_view text) { return text.substr(0, text.find_last_not_of(' ') + 1); }

}  // namespace

bool IsUtf8(std::string_view text) {
  if (IsAscii(text)) return true;
  while (!text.empty()) {
    const std::size_t length = FirstLength(text);
    if (length == 1 && Byte(text[0]) >= 0x80) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::size_t Len(std::string_view text) { return FirstCharacters(text, text.size()).characters; }

std::string Left(std::string_view text, int length) {
  return std::string(text.substr(0, FirstCharacters(text, Count(length)).bytes));
}

std::string Right(std::string_view text, int length) {
  const std::size_t wanted = Count(length);
  const std::size_t all = Len(text);
  return std::string(wanted >= all ? text : text.substr(FirstCharacters(text, all - wanted).bytes));
}

std::string Mid(std::string_view text, int start) { return std::string(From(text, start)); }

std::string Mid(std::string_view text, int start, int length) { return Left(From(text, start), length); }

int InStr(std::string_view text, std::string_view part) {
  const std::size_t found = text.find(part);
  return found == std::string_view::npos ? 0 : static_cast<int>(Len(text.substr(0, found))) + 1;
}

std::size_t BytesOf(std::string_view text, std::size_t characters) { return FirstCharacters(text, characters).bytes; }

std::string_view TakeCharacter(std::string_view& text) {
  const std::string_view character = text.substr(0, FirstLength(text));
  text.remove_prefix(character.size());
  return character;
}

int CodePoint(std::string_view character) {
  if (character.empty()) return 0;
  const auto bits = [&](std::size_t i, unsigned mask) { return static_cast<int>(Byte(character[i]) & mask); };
  switch (FirstLength(character)) {
    case 2:
      return bits(0, 0x1F) << 6 | bits(1, 0x3F);
    case 3:
      return bits(0, 0x0F) << 12 | bits(1, 0x3F) << 6 | bits(2, 0x3F);
    case 4:
      return bits(0, 0x07) << 18 | bits(1, 0x3F) << 12 | bits(2, 0x3F) << 6 | bits(3, 0x3F);
    default:
      return Byte(character[0]) < 0x80 ? character[0] : kReplacementCharacter;
  }
}

std::string Utf8(int code_point) {
  const auto byte = [](int value) { return static_cast<char>(value); };
  if (code_point < 0x80) return {byte(code_point)};
  const char last = byte(0x80 | (code_point & 0x3F));
  if (code_point < 0x800) return {byte(0xC0 | code_point >> 6), last};
  const char third = byte(0x80 | (code_point >> 6 & 0x3F));
  if (code_point < 0x10000) return {byte(0xE0 | code_point >> 12), third, last};
  return {byte(0xF0 | code_point >> 18), byte(0x80 | (code_point >> 12 & 0x3F)), third, last};
}

std::string Trim(std::string_view text) { return std::string(WithoutLeft(WithoutRight(text))); }
std::string LTrim(std::string_view text) { return std::string(WithoutLeft(text)); }
std::string RTrim(std::string_view text) { return std::string(WithoutRight(text)); }

std::string UCase(std::string_view text) { return ChangeCase(text, UpperOf); }
std::string LCase(std::string_view text) { return ChangeCase(text, LowerOf); }

std::string Repeat(char c, int count) { return std::string(Count(count), c); }

std::string Fit(std::string_view text, std::size_t width) {
  const Prefix kept = FirstCharacters(text, width);
  std::string result;
  result.reserve(kept.bytes + width - kept.characters);
  return result.append(text.substr(0, kept.bytes)).append(width - kept.characters, ' ');
}

}  // namespace zendara

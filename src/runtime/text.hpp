// Text functions that count characters of UTF-8, positions from 1.
// A byte that is no UTF-8 counts as one character, so that a damaged text never fails.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zendara {

// Whether all of it is UTF-8: no overlong forms, no surrogates, nothing past U+10FFFF.
bool IsUtf8(std::string_view text);
std::size_t Len(std::string_view text);
// Error 5 on a negative length; a length beyond the text gives the whole.
std::string Left(std::string_view text, int length);
std::string Right(std::string_view text, int length);
// Error 5 on start < 1 or a negative length; a start beyond the text gives the empty text.
std::string Mid(std::string_view text, int start);
std::string Mid(std::string_view text, int start, int length);
// 1-based position of `part` in `text`, 0 if it is not there; an empty `part` is at 1. Case counts.
int InStr(std::string_view text, std::string_view part);

// Bytes of the first `characters` characters, or of all there are.
std::size_t BytesOf(std::string_view text, std::size_t characters);
// Takes the first character off a text that is not empty.
std::string_view TakeCharacter(std::string_view& text);
// Number of a character; that of the replacement character for a byte that is no UTF-8, 0 for the empty text.
int CodePoint(std::string_view character);
std::string Utf8(int code_point);

// Blanks (character 32) only; tabs and line feeds stay.
std::string Trim(std::string_view text);
std::string LTrim(std::string_view text);
std::string RTrim(std::string_view text);

// Accented Latin letters and ñ change case as well.
std::string UCase(std::string_view text);
std::string LCase(std::string_view text);

// `count` times the character `c`; error 5 on a negative count.
std::string Repeat(char c, int count);
// Cut on the right to `width` characters, or padded there with blanks.
std::string Fit(std::string_view text, std::size_t width);

// A field of N characters: a longer text is cut on the right, a shorter one padded with blanks.
// It compares with its padding. Before any assignment it holds N blanks.
template <std::size_t N>
class FixedText {
 public:
  FixedText() : text_(N, ' ') {}
  FixedText(std::string_view text) : text_(Fit(text, N)) {}
  FixedText& operator=(std::string_view text) {
    text_ = Fit(text, N);
    return *this;
  }

  const std::string& str() const { return text_; }
  operator const std::string&() const { return text_; }
  friend bool operator==(const FixedText& a, std::string_view b) { return a.text_ == b; }

 private:
  std::string text_;
};

}  // namespace zendara

#include "runtime/text.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "support/errors.hpp"

namespace zendara {
namespace {

TEST(Text, CutsCountCharacters) {
  const std::string text = "Peña €𝄞x";
  EXPECT_EQ(Len(text), 8u);
  EXPECT_EQ(Left(text, 3), "Peñ");
  EXPECT_EQ(Left(text, 99), text);
  EXPECT_EQ(Right(text, 3), "€𝄞x");
  EXPECT_EQ(Right(text, 99), text);
  EXPECT_EQ(Mid(text, 3, 2), "ña");
  EXPECT_EQ(Mid(text, 7), "𝄞x");
  EXPECT_EQ(Mid(text, 8, 99), "x");
  EXPECT_EQ(Mid(text, 9), "");
  EXPECT_EQ(Mid("abc", 2147483647, 2147483647), "");
  EXPECT_EQ(Fit(text, 4), "Peña");
  EXPECT_EQ(Fit("ñ", 3), "ñ  ");
  EXPECT_EQ(BytesOf(text, 6), 9u);
  EXPECT_EQ(CodePoint("𝄞") + CodePoint("€") + CodePoint("ñ"), 0x1D11E + 0x20AC + 0xF1);
  EXPECT_EQ(InStr(text, "x"), 8);
  EXPECT_EQ(InStr(text, "X"), 0);
  EXPECT_EQ(InStr(text, ""), 1);
}

TEST(Text, BadLengthsAreRefused) {
  const std::function<void()> calls[] = {[] { Left("a", -1); }, [] { Right("a", -1); }, [] { Mid("a", 0); },
                                         [] { Mid("a", 1, -1); }, [] { Repeat('0', -1); }};
  for (const auto& call : calls) EXPECT_EQ(ErrorOf(call), kInvalidCall);
}

// Each byte that belongs to no well-formed character counts as one, and cutting a text anywhere loses nothing.
TEST(Text, DamagedTextsAreCutWithoutLoss) {
  struct {
    std::string text;
    std::size_t characters;
  } rows[] = {
      // clang-format off
      {"\xF1o", 2},   {"\xC3", 1},    {"a\xC3(", 3},  {"\xC0\xAF", 2},        {"\xE0\x80\x80", 3},
      {"\xED\xA0\x80", 3},    {"\xE2\x82", 2},        {"\xF4\x90\x80\x80", 4},        {"\xF0\x8F\xBF\xBF", 4},
      {"\xF5\x80\x80\x80", 4},        {"\xE2\xC3\xB1", 2},    {"\xF0\x9D\x84", 3},    {"\x80ñ\xFF", 3},
      {"\xF4\x8F\xBF\xBF", 1},        {"\xEF\xBF\xBD", 1},    {"\xC2\x80", 1},
      // clang-format on
  };
  for (const auto& [text, characters] : rows) {
    ASSERT_EQ(Len(text), characters) << testing::PrintToString(text);
    for (int i = 0; i <= static_cast<int>(characters); ++i) {
      EXPECT_EQ(Left(text, i) + Mid(text, i + 1), text);
      EXPECT_EQ(Right(text, static_cast<int>(characters) - i), Mid(text, i + 1));
      EXPECT_EQ(Len(Left(text, i)), static_cast<std::size_t>(i));
    }
    EXPECT_EQ(Fit(text, characters + 2), text + "  ");
    std::string walked;
    for (std::string_view rest = text; !rest.empty();) {
      const std::string character(TakeCharacter(rest));
      walked += character;
      EXPECT_EQ(Len(character), 1u);
      const bool damaged = character.size() == 1 && character[0] < 0;
      EXPECT_EQ(Utf8(CodePoint(character)), damaged ? "\xEF\xBF\xBD" : character);
    }
    EXPECT_EQ(walked, text);
  }
}

TEST(Text, TrimTakesBlanksOnly) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(LTrim("  a ") + "|" + RTrim("  a "), "a |  a");
  EXPECT_EQ(Trim("   ") + LTrim("   ") + RTrim("   ") + Trim(""), "");
  EXPECT_EQ(Trim(" \ta\n "), "\ta\n");
}

TEST(Text, CaseOfAccentedLetters) {
  const std::string small = "aáàäâzñçüœšžÿłńżþø09-€";
  const std::string capital = "AÁÀÄÂZÑÇÜŒŠŽŸŁŃŻÞØ09-€";
  EXPECT_EQ(UCase(small), capital);
  EXPECT_EQ(LCase(capital), small);
  // No letter of its own in the other case, or one of another length.
  const std::string fixed = "×÷ßıİĸŉſªº¿\xC3(\xC3";
  EXPECT_EQ(UCase(fixed), fixed);
  EXPECT_EQ(LCase(fixed), fixed);
}

TEST(FixedText, HoldsItsWidth) {
  FixedText<5> text;
  EXPECT_EQ(text.str(), "     ");
  text = "ab";
  EXPECT_TRUE(text == "ab   ");
  EXPECT_FALSE(text == "ab");
  text = "ñandúes";
  EXPECT_TRUE(text == "ñandú");
}

}  // namespace
}  // namespace zendara

// Widths: the sum of the letters against Pango's layout.
#include "adapters/cairo/pango_text.hpp"

#include <gtest/gtest.h>

#include <random>

#include "runtime/text.hpp"

namespace zendara {
namespace {

// Kerning pairs, ligatures, signs that combine or are not to be seen, other directions, other scripts, no UTF-8.
constexpr const char* kTexts[] = {
    "",           " ",          "AVATAR To. LT Ty",   "efecto ﬁn office", "1.234,56 €",
    "«¿Núñez?»…", "n\u0303o",   "a\u200Bb\u00ADc",    "\u05E9\u05DC 12",  "x\u0627\u0644y",
    "中文 a",     "\xFF\xC3 x", "tab\tline\ncontrol", "\U0001F600",       "Ω β Ж ½"};

TEST(PangoMeasureTest, ThePlainWayAndTheFullOneAgree) {
  const PangoMeasure measure;
  std::mt19937 random(7);
  const std::string letters = "AVTLWYPFabcfijlostvwy.,;:-/0123456789 ÁÉÍÑÜáéíñüçªº€«»";
  for (const print::Font font : {print::Font{8, false}, print::Font{9, true}, print::Font{13, true}}) {
    for (const char* text : kTexts) EXPECT_EQ(measure.Width(text, font), measure.LaidOutWidth(text, font)) << text;
    for (int i = 0; i < 500; ++i) {
      std::string text;
      for (int length = static_cast<int>(random() % 30); length >= 0; --length) {
        text += Mid(letters, static_cast<int>(random() % Len(letters)) + 1, 1);
      }
      ASSERT_EQ(measure.Width(text, font), measure.LaidOutWidth(text, font)) << text;
    }
  }
  // No pair of letters is moved together.
  const print::Font large{40, false};
  EXPECT_NEAR(measure.Width("AV", large), measure.Width("A", large) + measure.Width("V", large), 1);
}

}  // namespace
}  // namespace zendara

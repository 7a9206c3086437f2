#include "print/text_lines.hpp"

#include <gtest/gtest.h>

#include "print/fixed_measure.hpp"

namespace zendara::print {
namespace {

TEST(Wrap, BreaksAtBlanksAndLosesNothing) {
  const struct {
    std::string text;
    int characters;
    std::vector<std::string> lines;
  } cases[] = {
      {"", 5, {""}},
      {"   ", 5, {""}},
      {"uno dos", 7, {"uno dos"}},
      {"  uno  dos ", 8, {"uno  dos"}},
      {"uno dos tres", 7, {"uno dos", "tres"}},
      {"uno\n\ndos tres", 99, {"uno", "", "dos tres"}},
      {"uno\tdos\r\ntres", 7, {"uno dos", "tres"}},
      {"más el 24 % de", 9, {"más el", "24 % de"}},
      {"110 + 12 × 24 %", 12, {"110 +", "12 × 24 %"}},
      {"ñandúes", 3, {"ñan", "dúe", "s"}},
      {"a ñandúes b", 5, {"a", "ñandú", "es b"}},
      {"1 × 2 %", 3, {"1 ×", " 2 ", "%"}},
      {"aa\u0301a", 2, {"a", "a\u0301", "a"}},
      {"x", 0, {"x"}},
  };
  const FixedMeasure measure;
  const Font font = {10, false};
  for (const auto& [text, characters, lines] : cases) {
    EXPECT_EQ(Wrap(text, measure.Width(std::string(static_cast<std::size_t>(characters), 'x'), font), font, measure),
              lines)
        << text;
  }
}

}  // namespace
}  // namespace zendara::print

// Widths of a typewriter.
#pragma once

#include <cstddef>
#include <string_view>

#include "print/page.hpp"
#include "runtime/text.hpp"

namespace zendara::print {

struct FixedMeasure : TextMeasure {
  int Width(std::string_view text, const Font& font) const override {
    return static_cast<int>(Len(text)) * font.size * (font.bold ? 12 : 11);
  }
  int Ascent(const Font& font) const override { return font.size * 19; }
  int LineHeight(const Font& font) const override { return font.size * 24; }
};

}  // namespace zendara::print

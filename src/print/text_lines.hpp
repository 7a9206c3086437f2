// Texts as lines of a given width.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "print/page.hpp"

namespace zendara::print {

// Marks across the page; those that stand below each other in it count from its top.
struct Line {
  int height = 0;
  std::vector<Mark> marks;
};

enum class Side { kLeft, kCenter, kRight };

// Where a text goes, and how.
struct TextPlace {
  int x = 0;
  int width = 0;
  Font font;
  Tone tone = Tone::kNormal;
  Side side = Side::kLeft;
};

// Broken at blanks and line feeds, never beside a sign of multiplication or before one of percent, so that a figure
// stays whole. A word that is too wide by itself is broken where the width ends; no character is lost. At least one
// line.
std::vector<std::string> Wrap(std::string_view text, int width, const Font& font, const TextMeasure& measure);
std::vector<Line> LinesOf(std::string_view text, const TextPlace& place, const TextMeasure& measure);

// The width that the text takes unbroken, and that of its widest word.
int FullWidth(std::string_view text, const Font& font, const TextMeasure& measure);
int WordWidth(std::string_view text, const Font& font, const TextMeasure& measure);

// Puts lines beside those that are there, from the first on.
void PutBeside(std::vector<Line>& lines, const std::vector<Line>& more);
int HeightOf(const std::vector<Line>& lines);

}  // namespace zendara::print

// Pages as what stands where on them, without a toolkit: the one model that every renderer draws and none lays out
// anew.
//
// Lengths are twips, 1,440 to the inch; places count from the upper left corner of the paper.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zendara::print {

struct Font {
  int size = 9;  // points
  bool bold = false;
};

// kQuiet: what only leads the eye to the rest.
enum class Tone { kNormal, kQuiet };

// One line of text.
struct TextRun {
  int x = 0;
  int baseline = 0;
  Font font;
  std::string text;
  Tone tone = Tone::kNormal;
};

// A hairline across.
struct Rule {
  int x = 0;
  int y = 0;
  int width = 0;
};

using Mark = std::variant<TextRun, Rule>;

// In reading order: who copies or searches the text finds it so.
struct Page {
  std::vector<Mark> marks;
};

// A4 upright with margins of 20 mm.
struct Paper {
  int width = 11906;
  int height = 16838;
  int margin = 1134;
};

struct Document {
  std::string title;
  std::string created;  // yyyy-mm-ddThh:mm:ss, of the machine's clock
  Paper paper;
  std::vector<Page> pages;
};

// What laying out needs of a renderer.
class TextMeasure {
 public:
  virtual ~TextMeasure() = default;
  virtual int Width(std::string_view text, const Font& font) const = 0;
  // From the top of a line to its baseline, and to the top of the next line.
  virtual int Ascent(const Font& font) const = 0;
  virtual int LineHeight(const Font& font) const = 0;
};

}  // namespace zendara::print

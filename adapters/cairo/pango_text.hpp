// Text by Pango, the same for every surface: neither the resolution nor hinting moves a letter, and no letter another.
#pragma once

#include <pango/pangocairo.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "print/page.hpp"

namespace zendara {

// Bytes that are no UTF-8 as the sign for that: neither library takes them.
std::string Readable(std::string_view text);

// Releases what GLib counts.
struct Unref {
  void operator()(void* object) const { g_object_unref(object); }
};
template <typename T>
using GObjectPointer = std::unique_ptr<T, Unref>;

// Most texts are letters one beside the other: their glyphs and advances are kept by font, and the width is the sum of
// these. Whatever else there is (signs that combine, scripts from right to left, letters that the font lacks) Pango
// lays out.
class PangoMeasure : public print::TextMeasure {
 public:
  PangoMeasure();
  ~PangoMeasure() override;
  PangoMeasure(const PangoMeasure&) = delete;
  PangoMeasure& operator=(const PangoMeasure&) = delete;

  int Width(std::string_view text, const print::Font& font) const override;
  int Ascent(const print::Font& font) const override;
  int LineHeight(const print::Font& font) const override;

  // On the baseline at that point, in points.
  void Draw(cairo_t& cairo, double x, double y, std::string_view text, const print::Font& font) const;

  // As Pango has it, also where the sum would do.
  int LaidOutWidth(std::string_view text, const print::Font& font) const;

 private:
  struct Glyph;
  struct LoadedFont;

  LoadedFont& Loaded(const print::Font& font) const;
  // Of the first character, which is taken off; nullptr if Pango has to see the text.
  const Glyph* TakeGlyph(LoadedFont& font, std::string_view& text) const;
  Glyph Find(const LoadedFont& font, int code_point) const;
  PangoLayoutLine* LayOut(std::string_view text, const LoadedFont& font) const;

  GObjectPointer<PangoFontMap> fonts_;
  GObjectPointer<PangoContext> context_;
  GObjectPointer<PangoLayout> layout_;  // for one text after the other
  mutable std::vector<std::unique_ptr<LoadedFont>> loaded_;
  mutable LoadedFont* last_ = nullptr;
};

}  // namespace zendara

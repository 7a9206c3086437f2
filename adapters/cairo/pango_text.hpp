// Text by Pango, the same for every surface: neither the resolution nor hinting moves a letter.
#pragma once

#include <pango/pangocairo.h>

#include <memory>
#include <string>
#include <string_view>

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

class PangoMeasure : public print::TextMeasure {
 public:
  PangoMeasure();
  ~PangoMeasure() override = default;
  PangoMeasure(const PangoMeasure&) = delete;
  PangoMeasure& operator=(const PangoMeasure&) = delete;

  int Width(std::string_view text, const print::Font& font) const override;
  int Ascent(const print::Font& font) const override;
  int LineHeight(const print::Font& font) const override;

  // On the baseline at the current point, in points.
  void Draw(cairo_t& cairo, std::string_view text, const print::Font& font) const;

 private:
  struct Metrics {
    int ascent = 0;
    int height = 0;
  };

  void SetText(std::string_view text, const print::Font& font) const;
  Metrics MetricsOf(const print::Font& font) const;

  GObjectPointer<PangoFontMap> fonts_;
  GObjectPointer<PangoContext> context_;
  GObjectPointer<PangoLayout> layout_;  // for one text after the other
};

}  // namespace zendara

#include "adapters/cairo/pango_text.hpp"

#include <cairo.h>

#include <new>

#include "runtime/text.hpp"

namespace zendara {
namespace {

constexpr const char* kFamily = "DejaVu Sans";
constexpr int kTwipsPerPoint = 20;

// Rounded up, so that nothing is wider than it is said to be.
int Twips(int units) { return (units * kTwipsPerPoint + PANGO_SCALE - 1) / PANGO_SCALE; }

struct FreeDescription {
  void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
};
using Description = std::unique_ptr<PangoFontDescription, FreeDescription>;

// A size in points of the paper, whatever the resolution of a screen.
Description DescriptionOf(const print::Font& font) {
  Description description(pango_font_description_new());
  pango_font_description_set_family_static(description.get(), kFamily);
  pango_font_description_set_absolute_size(description.get(), font.size * PANGO_SCALE);
  pango_font_description_set_weight(description.get(), font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  return description;
}

}  // namespace

std::string Readable(std::string_view text) {
  if (IsUtf8(text)) return std::string(text);
  std::string readable;
  while (!text.empty()) readable += Utf8(CodePoint(TakeCharacter(text)));
  return readable;
}

PangoMeasure::PangoMeasure()
    : fonts_(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT)),
      context_(fonts_ ? pango_font_map_create_context(fonts_.get()) : throw std::bad_alloc()),
      layout_(pango_layout_new(context_.get())) {
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  pango_cairo_context_set_font_options(context_.get(), options);
  cairo_font_options_destroy(options);
  pango_context_set_round_glyph_positions(context_.get(), FALSE);
  pango_context_set_language(context_.get(), pango_language_from_string("es"));
  pango_layout_set_single_paragraph_mode(layout_.get(), TRUE);
  pango_layout_set_auto_dir(layout_.get(), FALSE);
  // Letter by letter, so that a text is found by its letters.
  PangoAttrList* attributes = pango_attr_list_new();
  pango_attr_list_insert(attributes, pango_attr_font_features_new("liga=0, clig=0"));
  pango_layout_set_attributes(layout_.get(), attributes);
  pango_attr_list_unref(attributes);
}

void PangoMeasure::SetText(std::string_view text, const print::Font& font) const {
  pango_layout_set_font_description(layout_.get(), DescriptionOf(font).get());
  const std::string readable = Readable(text);
  pango_layout_set_text(layout_.get(), readable.data(), static_cast<int>(readable.size()));
}

int PangoMeasure::Width(std::string_view text, const print::Font& font) const {
  SetText(text, font);
  PangoRectangle extents;
  pango_layout_line_get_extents(pango_layout_get_line_readonly(layout_.get(), 0), nullptr, &extents);
  return Twips(extents.width);
}

PangoMeasure::Metrics PangoMeasure::MetricsOf(const print::Font& font) const {
  PangoFontMetrics* metrics = pango_context_get_metrics(context_.get(), DescriptionOf(font).get(), nullptr);
  const int ascent = pango_font_metrics_get_ascent(metrics);
  const Metrics found = {Twips(ascent), Twips(ascent + pango_font_metrics_get_descent(metrics))};
  pango_font_metrics_unref(metrics);
  return found;
}

int PangoMeasure::Ascent(const print::Font& font) const { return MetricsOf(font).ascent; }

int PangoMeasure::LineHeight(const print::Font& font) const { return MetricsOf(font).height; }

void PangoMeasure::Draw(cairo_t& cairo, std::string_view text, const print::Font& font) const {
  SetText(text, font);
  pango_cairo_show_layout_line(&cairo, pango_layout_get_line_readonly(layout_.get(), 0));
}

}  // namespace zendara

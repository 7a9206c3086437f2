#include "adapters/cairo/pango_text.hpp"

#include <cairo.h>

#include <algorithm>
#include <iterator>
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

// Latin letters and signs that stand for themselves wherever they are. Neither controls nor what is not to be seen.
struct Range {
  int first;
  int last;
};
constexpr Range kAlone[] = {{0x20, 0x7E},     {0xA1, 0xAC},     {0xAE, 0x24F},
                            {0x2012, 0x2027}, {0x2030, 0x2038}, {0x20A0, 0x20BF}};
constexpr int kAloneEnd = 0x20C0;

bool StandsAlone(int code_point) {
  return std::ranges::any_of(kAlone, [&](const Range& r) { return r.first <= code_point && code_point <= r.last; });
}

}  // namespace

struct PangoMeasure::Glyph {
  enum class State : unsigned char { kUnknown, kAlone, kForPango };
  State state = State::kUnknown;
  unsigned long index = 0;
  int advance = 0;  // in Pango's units
};

struct PangoMeasure::LoadedFont {
  print::Font font;
  Description description;
  PangoFont* face = nullptr;  // of the font map
  cairo_scaled_font_t* scaled = nullptr;
  int ascent = 0;
  int height = 0;
  std::vector<Glyph> glyphs;  // by code point
};

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
  // Letter by letter: a text is found by its letters, and is as wide as they are.
  PangoAttrList* attributes = pango_attr_list_new();
  pango_attr_list_insert(attributes, pango_attr_font_features_new("liga=0, clig=0, kern=0"));
  pango_layout_set_attributes(layout_.get(), attributes);
  pango_attr_list_unref(attributes);
}

PangoMeasure::~PangoMeasure() {
  for (const auto& font : loaded_) g_object_unref(font->face);
}

PangoMeasure::LoadedFont& PangoMeasure::Loaded(const print::Font& font) const {
  const auto is_it = [&](const LoadedFont& loaded) {
    return loaded.font.size == font.size && loaded.font.bold == font.bold;
  };
  if (last_ && is_it(*last_)) return *last_;
  const auto found = std::ranges::find_if(loaded_, [&](const auto& loaded) { return is_it(*loaded); });
  if (found != loaded_.end()) return *(last_ = found->get());
  auto loaded =
      std::make_unique<LoadedFont>(LoadedFont{.font = font, .description = DescriptionOf(font), .glyphs = {}});
  loaded->glyphs.resize(kAloneEnd);
  loaded->face = pango_font_map_load_font(fonts_.get(), context_.get(), loaded->description.get());
  if (!loaded->face) throw std::bad_alloc();
  loaded->scaled = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(loaded->face));
  PangoFontMetrics* metrics = pango_context_get_metrics(context_.get(), loaded->description.get(), nullptr);
  const int ascent = pango_font_metrics_get_ascent(metrics);
  loaded->ascent = Twips(ascent);
  loaded->height = Twips(ascent + pango_font_metrics_get_descent(metrics));
  pango_font_metrics_unref(metrics);
  return *(last_ = loaded_.emplace_back(std::move(loaded)).get());
}

PangoLayoutLine* PangoMeasure::LayOut(std::string_view text, const LoadedFont& font) const {
  pango_layout_set_font_description(layout_.get(), font.description.get());
  const std::string readable = Readable(text);
  pango_layout_set_text(layout_.get(), readable.data(), static_cast<int>(readable.size()));
  return pango_layout_get_line_readonly(layout_.get(), 0);
}

// One glyph of the font's own face, on the line.
PangoMeasure::Glyph PangoMeasure::Find(const LoadedFont& font, int code_point) const {
  Glyph glyph{.state = Glyph::State::kForPango};
  if (!StandsAlone(code_point)) return glyph;
  const PangoLayoutLine* line = LayOut(Utf8(code_point), font);
  if (!line->runs || line->runs->next) return glyph;
  const auto& run = *static_cast<const PangoGlyphItem*>(line->runs->data);
  const PangoGlyphInfo& info = run.glyphs->glyphs[0];
  if (run.item->analysis.font != font.face || run.glyphs->num_glyphs != 1 || info.geometry.x_offset != 0 ||
      info.geometry.y_offset != 0 || (info.glyph & PANGO_GLYPH_UNKNOWN_FLAG) || info.glyph == PANGO_GLYPH_EMPTY) {
    return glyph;
  }
  return {.state = Glyph::State::kAlone, .index = info.glyph, .advance = info.geometry.width};
}

const PangoMeasure::Glyph* PangoMeasure::TakeGlyph(LoadedFont& font, std::string_view& text) const {
  int code_point = static_cast<unsigned char>(text.front());
  if (code_point < 0x80) {
    text.remove_prefix(1);
  } else {
    code_point = CodePoint(TakeCharacter(text));
  }
  if (code_point >= kAloneEnd) return nullptr;
  Glyph& glyph = font.glyphs[static_cast<std::size_t>(code_point)];
  if (glyph.state == Glyph::State::kUnknown) glyph = Find(font, code_point);
  return glyph.state == Glyph::State::kAlone ? &glyph : nullptr;
}

int PangoMeasure::Width(std::string_view text, const print::Font& font) const {
  LoadedFont& loaded = Loaded(font);
  int units = 0;
  for (std::string_view rest = text; !rest.empty();) {
    const Glyph* glyph = TakeGlyph(loaded, rest);
    if (!glyph) return LaidOutWidth(text, font);
    units += glyph->advance;
  }
  return Twips(units);
}

int PangoMeasure::LaidOutWidth(std::string_view text, const print::Font& font) const {
  PangoRectangle extents;
  pango_layout_line_get_extents(LayOut(text, Loaded(font)), nullptr, &extents);
  return Twips(extents.width);
}

int PangoMeasure::Ascent(const print::Font& font) const { return Loaded(font).ascent; }

int PangoMeasure::LineHeight(const print::Font& font) const { return Loaded(font).height; }

void PangoMeasure::Draw(cairo_t& cairo, double x, double y, std::string_view text, const print::Font& font) const {
  LoadedFont& loaded = Loaded(font);
  std::vector<cairo_glyph_t> glyphs;
  std::vector<cairo_text_cluster_t> clusters;
  glyphs.reserve(text.size());
  clusters.reserve(text.size());
  int units = 0;
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t before = rest.size();
    const Glyph* glyph = TakeGlyph(loaded, rest);
    if (!glyph) {
      cairo_move_to(&cairo, x, y);
      pango_cairo_show_layout_line(&cairo, LayOut(text, loaded));
      return;
    }
    glyphs.push_back({glyph->index, x + double{1} * units / PANGO_SCALE, y});
    clusters.push_back({static_cast<int>(before - rest.size()), 1});
    units += glyph->advance;
  }
  cairo_set_scaled_font(&cairo, loaded.scaled);
  if (cairo_surface_get_type(cairo_get_target(&cairo)) == CAIRO_SURFACE_TYPE_IMAGE) {
    // Otherwise each glyph would be moved to a whole pixel.
    cairo_new_path(&cairo);
    cairo_glyph_path(&cairo, glyphs.data(), static_cast<int>(glyphs.size()));
    cairo_fill(&cairo);
    return;
  }
  cairo_show_text_glyphs(&cairo, text.data(), static_cast<int>(text.size()), glyphs.data(),
                         static_cast<int>(glyphs.size()), clusters.data(), static_cast<int>(clusters.size()),
                         cairo_text_cluster_flags_t{});
}

}  // namespace zendara

#include "adapters/cairo/page_drawing.hpp"

#include <new>
#include <variant>

namespace zendara {
namespace {

constexpr double kHairline = 0.5;
constexpr double kQuietGrey = 0.35;

void Draw(cairo_t& cairo, const print::TextRun& run, const PangoMeasure& measure) {
  const double grey = run.tone == print::Tone::kQuiet ? kQuietGrey : 0;
  cairo_set_source_rgb(&cairo, grey, grey, grey);
  measure.Draw(cairo, run.x / kTwipsPerPoint, run.baseline / kTwipsPerPoint, run.text, run.font);
}

void Draw(cairo_t& cairo, const print::Rule& rule, const PangoMeasure& /*measure*/) {
  cairo_set_source_rgb(&cairo, kQuietGrey, kQuietGrey, kQuietGrey);
  cairo_set_line_width(&cairo, kHairline);
  cairo_move_to(&cairo, rule.x / kTwipsPerPoint, rule.y / kTwipsPerPoint);
  cairo_rel_line_to(&cairo, rule.width / kTwipsPerPoint, 0);
  cairo_stroke(&cairo);
}

}  // namespace

void DrawPage(const print::Page& page, const PangoMeasure& measure, cairo_t& cairo) {
  for (const print::Mark& mark : page.marks) {
    std::visit([&](const auto& what) { Draw(cairo, what, measure); }, mark);
  }
}

void DrawPage(const print::Page& page, const PangoMeasure& measure, const Pixels& pixels, double x, double y,
              double scale) {
  const CairoSurface surface(
      cairo_image_surface_create_for_data(pixels.data, CAIRO_FORMAT_RGB24, pixels.width, pixels.height, pixels.stride));
  const CairoContext cairo(cairo_create(surface.get()));
  cairo_translate(cairo.get(), x, y);
  cairo_scale(cairo.get(), scale * kTwipsPerPoint, scale * kTwipsPerPoint);
  DrawPage(page, measure, *cairo);
  if (cairo_status(cairo.get()) != CAIRO_STATUS_SUCCESS) throw std::bad_alloc();
  cairo_surface_flush(surface.get());
}

}  // namespace zendara

// Pages drawn on any surface of cairo: paper in a file, or a picture of it.
#pragma once

#include <cairo.h>

#include <memory>

#include "adapters/cairo/pango_text.hpp"
#include "print/page.hpp"

namespace zendara {

inline constexpr double kTwipsPerPoint = 20;

struct ReleaseCairo {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, ReleaseCairo>;
using CairoContext = std::unique_ptr<cairo_t, ReleaseCairo>;

// In points from the upper left corner of the paper.
void DrawPage(const print::Page& page, const PangoMeasure& measure, cairo_t& cairo);

// Four bytes a pixel, those of a colour in the lower three of a number of the machine; rows begin `stride` bytes apart.
struct Pixels {
  unsigned char* data = nullptr;
  int width = 0;
  int height = 0;
  int stride = 0;
};
// On what the picture has already: `x`, `y` the pixel where the paper begins, inside of the picture or not, `scale` the
// pixels to a twip. Throws std::bad_alloc.
void DrawPage(const print::Page& page, const PangoMeasure& measure, const Pixels& pixels, double x, double y,
              double scale);

}  // namespace zendara

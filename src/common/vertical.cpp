#include "common/vertical.hpp"

#include <algorithm>

#include "runtime/failure.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr int kBands = 255;
constexpr int kUpwards = 900;
constexpr std::size_t kFontNameLength = 33;

std::uint32_t Color(const std::array<std::int16_t, 3>& rgb) {
  return static_cast<std::uint32_t>(rgb[0] + rgb[1] * 256 + rgb[2] * 65536);
}

// Whole pixels of a measure in twips.
int Pixels(double twips, double twips_per_pixel) {
  const std::int32_t divisor = CLng(twips_per_pixel);
  if (divisor == 0) throw RuntimeError(kDivisionByZero);
  return CLng(twips) / divisor;
}

// a x b / c, rounded half away from zero; positive figures.
int MulDiv(int a, int b, int c) { return CLng(Int(static_cast<double>(a) * b / c + 0.5)); }

}  // namespace

void Vertical::SetColor(Tone& tone, std::int32_t color) {
  if (tone.color == color) return;
  const std::uint32_t translated = screen_.TranslateColor(color);
  tone.color = color;
  for (std::size_t i = 0; i < tone.rgb.size(); ++i) {
    tone.rgb[i] = static_cast<std::int16_t>((translated >> (8 * i)) & 0xFF);
  }
  if (picture_) Draw();
}

void Vertical::Draw() const try {
  if (!picture_) return;
  const double twips_per_pixel = screen_.TwipsPerPixel();
  const int height = Pixels(picture_->Height(), twips_per_pixel);
  const int width = Pixels(picture_->Width(), twips_per_pixel);
  PaintBands(height, width);

  const PictureFont font = picture_->Font();
  LogicalFont logical = LogicalFontOf(font, picture_->VerticalPixelsPerInch());
  logical.escapement = kUpwards;
  // Points less pixels, and characters less pixels: so the caption has always stood.
  const int x = CLng(Int(width / 2.0 - font.size));
  const int y = CLng(Int((height - static_cast<double>(Len(caption_))) / 2));
  picture_->TextOut(logical, kAlignCentre, x, y, caption_);
  picture_->Refresh();
} catch (...) {
  // A screen without its band is still a screen.
  LogCurrentError();
}

void Vertical::PaintBands(int height, int width) const {
  const int step = std::max(height / kBands, 1);
  std::array<std::int16_t, 3> current = start_.rgb;
  int bottom = height;
  for (int y = height; y >= 0; y -= step) {
    const int top = bottom - step;
    picture_->FillRect(0, top, width, bottom, Color(current));
    bottom = top;
    for (std::size_t i = 0; i < current.size(); ++i) {
      const double difference = end_.rgb[i] - start_.rgb[i];
      current[i] = CInt((height - y) * difference / height + start_.rgb[i]);
    }
  }
}

LogicalFont Vertical::LogicalFontOf(const PictureFont& font, int pixels_per_inch) {
  if (Len(font.name) > kFontNameLength) throw RuntimeError(kSubscriptOutOfRange);
  return {.face = font.name,
          .height = -MulDiv(CLng(font.size), pixels_per_inch, 72),
          .weight = font.bold ? 700 : 400,
          .italic = font.italic,
          .underline = font.underline,
          .strikeout = font.strikeout};
}

void PintaVertical(const Screen& screen, DrawingSurface& picture, std::string_view caption,
                   std::string_view start_color, std::string_view end_color) {
  Vertical vertical(screen);
  vertical.SetStartColor(CLng(CDbl(start_color)));
  vertical.SetEndColor(CLng(CDbl(end_color)));
  // After the colours, so that the picture is painted once.
  vertical.SetDrawingObject(&picture);
  vertical.SetCaption(caption);
  vertical.Draw();
}

}  // namespace zendara

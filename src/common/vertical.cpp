#include "common/vertical.hpp"

#include <algorithm>

#include "runtime/failure.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr int kBandas = 255;
constexpr int kHaciaArriba = 900;
constexpr std::size_t kLargoNombreFuente = 33;

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

void Vertical::SetColor(Tono& tono, std::int32_t color) {
  if (tono.color == color) return;
  const std::uint32_t traducido = screen_.TranslateColor(color);
  tono.color = color;
  for (std::size_t i = 0; i < tono.rgb.size(); ++i) {
    tono.rgb[i] = static_cast<std::int16_t>((traducido >> (8 * i)) & 0xFF);
  }
  if (picture_) Draw();
}

void Vertical::Draw() const try {
  if (!picture_) return;
  const double twips_per_pixel = screen_.TwipsPerPixel();
  const int alto = Pixels(picture_->Height(), twips_per_pixel);
  const int ancho = Pixels(picture_->Width(), twips_per_pixel);
  PintaBandas(alto, ancho);

  const PictureFont fuente = picture_->Font();
  LogicalFont logica = FuenteLogica(fuente, picture_->VerticalPixelsPerInch());
  logica.escapement = kHaciaArriba;
  // Points less pixels, and characters less pixels: so the caption has always stood.
  const int x = CLng(Int(ancho / 2.0 - fuente.size));
  const int y = CLng(Int((alto - static_cast<double>(Len(caption_))) / 2));
  picture_->TextOut(logica, kAlignCentre, x, y, caption_);
  picture_->Refresh();
} catch (...) {
  // A screen without its band is still a screen.
  LogCurrentError();
}

void Vertical::PintaBandas(int alto, int ancho) const {
  const int paso = std::max(alto / kBandas, 1);
  std::array<std::int16_t, 3> actual = start_.rgb;
  int abajo = alto;
  for (int y = alto; y >= 0; y -= paso) {
    const int arriba = abajo - paso;
    picture_->FillRect(0, arriba, ancho, abajo, Color(actual));
    abajo = arriba;
    for (std::size_t i = 0; i < actual.size(); ++i) {
      const double diferencia = end_.rgb[i] - start_.rgb[i];
      actual[i] = CInt((alto - y) * diferencia / alto + start_.rgb[i]);
    }
  }
}

LogicalFont Vertical::FuenteLogica(const PictureFont& fuente, int pixels_per_inch) {
  if (Len(fuente.name) > kLargoNombreFuente) throw RuntimeError(kSubscriptOutOfRange);
  return {.face = fuente.name,
          .height = -MulDiv(CLng(fuente.size), pixels_per_inch, 72),
          .weight = fuente.bold ? 700 : 400,
          .italic = fuente.italic,
          .underline = fuente.underline,
          .strikeout = fuente.strikeout};
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

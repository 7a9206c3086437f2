// The side band of every screen: a gradient from the bottom to the top of a picture box, with a caption that reads
// upwards.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "zendara/forms/drawing.hpp"

namespace zendara {

class Vertical {
 public:
  explicit Vertical(const Screen& screen) : screen_(screen) {}

  void SetCaption(std::string_view caption) { caption_ = caption; }
  const std::string& Caption() const { return caption_; }
  // Not owned. Nothing is drawn without one.
  void SetDrawingObject(DrawingSurface* picture) { picture_ = picture; }
  // Colours of the caller, system colours too. Another value than the stored one paints the picture if it is set.
  std::int32_t StartColor() const { return start_.color; }
  void SetStartColor(std::int32_t color) { SetColor(start_, color); }
  std::int32_t EndColor() const { return end_.color; }
  void SetEndColor(std::int32_t color) { SetColor(end_, color); }

  // Paints the whole picture. Ends in silence where it fails.
  void Draw() const;

 private:
  struct Tone {
    std::int32_t color = 0;
    std::array<std::int16_t, 3> rgb{};
  };

  void SetColor(Tone& tone, std::int32_t color);
  void PaintBands(int height, int width) const;
  // Error 9 for a font name of more than 33 characters.
  static LogicalFont LogicalFontOf(const PictureFont& font, int pixels_per_inch);

  const Screen& screen_;
  std::string caption_;
  DrawingSurface* picture_ = nullptr;
  Tone start_;
  Tone end_;
};

// Paints a picture once. Colours in decimal; error 13 for a text that is no number.
void PintaVertical(const Screen& screen, DrawingSurface& picture, std::string_view caption,
                   std::string_view start_color, std::string_view end_color);

}  // namespace zendara

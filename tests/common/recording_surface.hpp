// A picture that writes down what is painted on it.
#pragma once

#include <string>
#include <vector>

#include "platform/drawing.hpp"

namespace zendara {

struct RecordingScreen : Screen {
  double TwipsPerPixel() const override { return twips_per_pixel; }
  // The system colour of the tests stands for 0x332211.
  std::uint32_t TranslateColor(std::int32_t color) const override {
    return color < 0 ? 0x332211 : static_cast<std::uint32_t>(color);
  }

  double twips_per_pixel = 15;
};

struct RecordingSurface : DrawingSurface {
  struct Band {
    int left, top, right, bottom;
    std::uint32_t color;
    friend bool operator==(const Band&, const Band&) = default;
  };
  struct Text {
    LogicalFont font;
    int alignment, x, y;
    std::string text;
    friend bool operator==(const Text&, const Text&) = default;
  };

  double Width() const override { return width; }
  double Height() const override { return height; }
  PictureFont Font() const override { return font; }
  int VerticalPixelsPerInch() const override { return pixels_per_inch; }
  void FillRect(int left, int top, int right, int bottom, std::uint32_t color) override {
    bands.push_back({left, top, right, bottom, color});
  }
  void TextOut(const LogicalFont& logical, int alignment, int x, int y, std::string_view text) override {
    texts.push_back({logical, alignment, x, y, std::string(text)});
  }
  void Refresh() override { ++refreshes; }

  double width = 360;
  double height = 150;
  PictureFont font{.name = "Arial", .size = 8.25};
  int pixels_per_inch = 96;
  std::vector<Band> bands;
  std::vector<Text> texts;
  int refreshes = 0;
};

}  // namespace zendara

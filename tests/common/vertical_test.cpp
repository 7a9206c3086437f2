#include "common/vertical.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/errors.hpp"

namespace zendara {
namespace {

struct RecordingScreen : Screen {
  double TwipsPerPixel() const override { return twips_per_pixel; }
  // The system colour of the tests stands for 0x332211.
  std::uint32_t TranslateColor(std::int32_t color) const override {
    return color < 0 ? 0x332211 : static_cast<std::uint32_t>(color);
  }

  double twips_per_pixel = 15;
};

// A picture that writes down what is painted on it.
struct RecordingSurface : DrawingSurface {
  struct Band {
    int left, top, right, bottom;
    std::uint32_t color;
    bool operator==(const Band&) const = default;
  };
  struct Text {
    LogicalFont font;
    int alignment, x, y;
    std::string text;
    bool operator==(const Text&) const = default;
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

class VerticalTest : public testing::Test {
 protected:
  void Paint(std::string_view caption, std::string_view start = "16744576", std::string_view end = "12632319") {
    picture.bands.clear();
    picture.texts.clear();
    picture.refreshes = 0;
    PintaVertical(screen, picture, caption, start, end);
  }

  RecordingScreen screen;
  RecordingSurface picture;
};

TEST_F(VerticalTest, BandsRunFromTheBottomInTheStartColourNearlyToTheEndColour) {
  Paint("Listados", "0", "10");
  // 10 pixels high, red from 0 to 10 in as many steps; the first factor is zero.
  ASSERT_EQ(picture.bands.size(), 11U);
  for (int i = 0; i <= 10; ++i) {
    const RecordingSurface::Band expected{0, 9 - i, 24, 10 - i, static_cast<std::uint32_t>(i == 0 ? 0 : i - 1)};
    EXPECT_EQ(picture.bands[static_cast<std::size_t>(i)], expected) << i;
  }
  EXPECT_EQ(picture.refreshes, 1);
}

TEST_F(VerticalTest, StepsHeightsAndRoundingOfTheBands) {
  const auto paints = [this](double height, double twips_per_pixel, std::size_t bands, int step) {
    picture.height = height;
    screen.twips_per_pixel = twips_per_pixel;
    Paint("x");
    EXPECT_EQ(picture.bands.size(), bands) << height;
    EXPECT_EQ(picture.bands[0].bottom - picture.bands[0].top, step) << height;
  };
  paints(509 * 15, 15, 510, 1);            // the step is a whole division
  paints(510 * 15, 15, 256, 2);            //
  paints(1021 * 15, 15, 256, 4);           // does not end on 0
  paints(22.5, 15, 2, 1);                  // 22 twips, ties to even
  paints(100 * 15, 8.5, 1500 / 8 + 1, 1);  // so is the divisor

  // Red from 0 to 1 over four rows: 0, 1/4, 2/4, 3/4 of it, the tie to the even 0.
  picture.height = 60;
  screen.twips_per_pixel = 15;
  Paint("x", "0", "1");
  std::vector<std::uint32_t> colors;
  for (const auto& band : picture.bands) colors.push_back(band.color);
  EXPECT_THAT(colors, testing::ElementsAre(0, 0, 0, 0, 1));
}

TEST_F(VerticalTest, ComponentsMoveApartFromEachOther) {
  picture.height = 30;  // two rows
  Paint("x");
  // From 128, 128, 255 half way to 255, 192, 192: 191.5 and 223.5 to even.
  EXPECT_EQ(picture.bands.at(2).color, 192U + 160U * 256 + 224U * 65536);
}

TEST_F(VerticalTest, CaptionStandsWhereItsFormulaPutsIt) {
  picture.height = 6000;  // 400 pixels
  picture.font = {"Arial", 9.75, true, true, false, true};
  Paint("Españá");
  ASSERT_EQ(picture.texts.size(), 1U);
  const LogicalFont font{"Arial", -13, 700, 900, true, false, true};
  EXPECT_EQ(picture.texts[0], (RecordingSurface::Text{font, 6, 2, 197, "Españá"}));

  picture.width = 90;  // 6 pixels: left of the edge
  picture.font = {.name = "Arial", .size = 8.5};
  picture.pixels_per_inch = 99;
  Paint("Lista");
  EXPECT_EQ(picture.texts[0].font.height, -11) << "8 points, the tie to even, of 99 to the inch: a half up";
  EXPECT_EQ(picture.texts[0].font.weight, 400);
  EXPECT_EQ(picture.texts[0].x, -6) << "3 - 8.5 goes down";
  EXPECT_EQ(picture.texts[0].y, 197) << "half of 395 goes down";
}

TEST_F(VerticalTest, PaintsOnChangedColoursOnceThePictureIsSet) {
  Vertical vertical(screen);
  vertical.SetStartColor(255);
  vertical.Draw();
  EXPECT_EQ(picture.refreshes, 0);
  vertical.SetDrawingObject(&picture);
  vertical.SetCaption("x");
  vertical.SetStartColor(255);
  EXPECT_EQ(picture.refreshes, 0) << "the same value";
  vertical.SetEndColor(255);
  EXPECT_EQ(picture.refreshes, 1);
  for (const auto& band : picture.bands) EXPECT_EQ(band.color, 255U) << "one colour";
  vertical.SetStartColor(-2147483633);
  EXPECT_EQ(picture.refreshes, 2);
  EXPECT_EQ(vertical.StartColor(), -2147483633);
  EXPECT_EQ(picture.bands[picture.bands.size() / 2].color, 0x332211U) << "system colours are translated";
}

TEST_F(VerticalTest, FailuresEndInSilence) {
  picture.font.name = std::string(33, 'x');
  Paint("x");
  EXPECT_EQ(picture.texts.size(), 1U);
  picture.font.name += 'x';
  Paint("x");
  EXPECT_EQ(picture.bands.size(), 11U) << "painted before the name of the font is looked at";
  EXPECT_EQ(picture.texts.size() + static_cast<std::size_t>(picture.refreshes), 0U);
  screen.twips_per_pixel = 0.4;
  Paint("x");
  EXPECT_TRUE(picture.bands.empty());
  EXPECT_EQ(ErrorOf([&] { PintaVertical(screen, picture, "x", "azul", "0"); }), kTypeMismatch);
}

}  // namespace
}  // namespace zendara

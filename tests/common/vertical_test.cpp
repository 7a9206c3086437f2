#include "common/vertical.hpp"

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
  int VerticalPixelsPerInch() const override { return 96; }
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
  std::vector<Band> bands;
  std::vector<Text> texts;
  int refreshes = 0;
};

struct VerticalTest : testing::Test {
  RecordingScreen screen;
  RecordingSurface picture;
};

TEST_F(VerticalTest, BandsRunFromTheBottomNearlyToTheEndColourBesideTheCaption) {
  picture.font = {"Arial", 9.75, true, true, false, true};
  PintaVertical(screen, picture, "Españá", "0", "10");
  // 10 pixels high, red from 0 to 10 in as many steps; the first factor is zero.
  ASSERT_EQ(picture.bands.size(), 11U);
  for (int i = 0; i <= 10; ++i) {
    const RecordingSurface::Band expected{0, 9 - i, 24, 10 - i, static_cast<std::uint32_t>(i == 0 ? 0 : i - 1)};
    EXPECT_EQ(picture.bands[static_cast<std::size_t>(i)], expected) << i;
  }
  const LogicalFont font{"Arial", -13, 700, 900, true, false, true};
  EXPECT_EQ(picture.texts, (std::vector<RecordingSurface::Text>{{font, 6, 2, 2, "Españá"}}));
  EXPECT_EQ(picture.refreshes, 1);

  // A step of two pixels from 510 on; a tie of the colour goes to even.
  picture.bands.clear();
  picture.height = 510 * 15;
  picture.width = 25 * 15;
  picture.font = {.name = "Arial", .size = 8.25};
  PintaVertical(screen, picture, "x", "16744576", "12632319");
  ASSERT_EQ(picture.bands.size(), 256U);
  EXPECT_EQ(picture.bands[0].top, 508);
  EXPECT_EQ(picture.texts[1].x, 4);
  EXPECT_EQ(picture.texts[1].font.weight, 400);
  EXPECT_EQ(picture.bands[129].color, 192U + 160U * 256 + 223U * 65536);
}

TEST_F(VerticalTest, PaintsOnChangedColoursOnceThePictureIsSet) {
  Vertical vertical(screen);
  vertical.SetStartColor(255);
  vertical.SetDrawingObject(&picture);
  vertical.SetStartColor(255);
  EXPECT_EQ(picture.refreshes, 0) << "the same value";
  vertical.SetEndColor(-2147483633);
  EXPECT_EQ(picture.refreshes, 1);
  EXPECT_EQ(picture.bands.back().color, 0x2E1F29U) << "system colours are translated";
}

TEST_F(VerticalTest, FailuresEndInSilence) {
  const auto paints = [&] {
    picture.bands.clear();
    picture.texts.clear();
    PintaVertical(screen, picture, "x", "0", "1");
    return picture.bands.size() + 100 * picture.texts.size();
  };
  picture.font.name = std::string(33, 'x');
  EXPECT_EQ(paints(), 111U);
  picture.font.name += 'x';
  EXPECT_EQ(paints(), 11U) << "painted before the name of the font is looked at";
  screen.twips_per_pixel = 0.4;
  EXPECT_EQ(paints(), 0U);
  EXPECT_EQ(picture.refreshes, 1);
  EXPECT_EQ(ErrorOf([&] { PintaVertical(screen, picture, "x", "azul", "0"); }), kTypeMismatch);
}

}  // namespace
}  // namespace zendara

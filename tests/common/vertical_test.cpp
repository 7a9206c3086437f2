#include "common/vertical.hpp"

#include <gmock/gmock.h>

#include <sstream>

#include "support/errors.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;

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
  double Width() const override { return width; }
  double Height() const override { return height; }
  PictureFont Font() const override { return font; }
  int VerticalPixelsPerInch() const override { return 96; }
  void FillRect(int left, int top, int right, int bottom, std::uint32_t color) override {
    std::ostringstream band;
    band << left << ' ' << top << ' ' << right << ' ' << bottom << " #" << std::hex << color;
    bands.push_back(band.str());
  }
  void TextOut(const LogicalFont& f, int alignment, int x, int y, std::string_view words) override {
    std::ostringstream out;
    out << f.face << ' ' << f.height << ' ' << f.escapement << ' ' << f.weight << ' ' << f.italic << f.underline
        << f.strikeout << ' ' << alignment << ' ' << x << ' ' << y << ' ' << words;
    text = out.str();
  }
  void Refresh() override { ++refreshes; }
  void FillMark(int, int, int, int, Ink) override { ADD_FAILURE() << "the band has colours of its own"; }
  void Write(const LogicalFont&, int, int, int, std::string_view, Ink) override { ADD_FAILURE(); }

  double width = 360;
  double height = 150;
  PictureFont font{.name = "Arial", .size = 8.25};
  std::vector<std::string> bands;
  std::string text;
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
  EXPECT_THAT(picture.bands,
              ElementsAre("0 9 24 10 #0", "0 8 24 9 #0", "0 7 24 8 #1", "0 6 24 7 #2", "0 5 24 6 #3", "0 4 24 5 #4",
                          "0 3 24 4 #5", "0 2 24 3 #6", "0 1 24 2 #7", "0 0 24 1 #8", "0 -1 24 0 #9"));
  EXPECT_EQ(picture.text, "Arial -13 900 700 101 6 2 2 Españá");
  EXPECT_EQ(picture.refreshes, 1);

  // A step of two pixels from 510 on; a tie of the colour goes to even.
  picture.bands.clear();
  picture.height = 510 * 15;
  picture.width = 25 * 15;
  picture.font = {.name = "Arial", .size = 8.25};
  PintaVertical(screen, picture, "x", "16744576", "12632319");
  ASSERT_EQ(picture.bands.size(), 256U);
  EXPECT_EQ(picture.bands[0], "0 508 25 510 #ff8080");
  EXPECT_EQ(picture.bands[129], "0 250 25 252 #dfa0c0");
  EXPECT_EQ(picture.text, "Arial -11 900 400 000 6 4 254 x");
}

TEST_F(VerticalTest, PaintsOnChangedColoursOnceThePictureIsSet) {
  Vertical vertical(screen);
  vertical.SetStartColor(255);
  vertical.SetDrawingObject(&picture);
  vertical.SetStartColor(255);
  EXPECT_EQ(picture.refreshes, 0) << "the same value";
  vertical.SetEndColor(-2147483633);
  EXPECT_EQ(picture.refreshes, 1);
  EXPECT_EQ(picture.bands.back(), "0 -1 24 0 #2e1f29") << "system colours are translated";
}

TEST_F(VerticalTest, FailuresEndInSilence) {
  picture.font.name = std::string(34, 'x');
  PintaVertical(screen, picture, "x", "0", "1");
  EXPECT_EQ(picture.bands.size(), 11U) << "painted before the name of the font is looked at";
  EXPECT_EQ(picture.text, "");
  screen.twips_per_pixel = 0.4;
  PintaVertical(screen, picture, "x", "0", "1");
  EXPECT_EQ(picture.bands.size(), 11U);
  EXPECT_EQ(picture.refreshes, 0);
  EXPECT_EQ(ErrorOf([&] { PintaVertical(screen, picture, "x", "azul", "0"); }), kTypeMismatch);
}

}  // namespace
}  // namespace zendara

// Whatever palette is shown, words can be read, and what can be entered, has the focus or is marked stands out.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPixmap>
#include <QTableView>
#include <cmath>
#include <random>

#include "qt/demo_form.hpp"

namespace zendara {
namespace {

// As the guidelines for accessible content reckon it.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
  const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

constexpr Colours kPalettes[] = {Colours::kLight, Colours::kDark, Colours::kContrast};
constexpr double kWords = 4.5;
constexpr double kMarks = 3;

// Of applications of somebody else's: usual ones, one of little contrast, and any.
std::vector<QPalette> HostPalettes() {
  const auto made = [](QRgb button, QRgb window, QRgb base) {
    QPalette palette{QColor(button), QColor(window)};
    palette.setColor(QPalette::Base, QColor(base));
    return palette;
  };
  std::vector<QPalette> palettes = {made(0xBFE5BF, 0xD5F0D5, 0xEFFFEF), made(0x404040, 0x303030, 0x202020),
                                    made(0xD4D0C8, 0xD4D0C8, 0xFFFFFF), made(0x000000, 0x000000, 0x000000),
                                    made(0x808080, 0x7F7F7F, 0xFFFFFF), made(0x303030, 0x303030, 0xFFFFFF)};
  std::mt19937 random(1);
  const auto any = [&] { return QColor::fromRgb(static_cast<QRgb>(random()) & 0xFFFFFF); };
  for (int i = 0; i < 200; ++i) {
    QPalette palette(any(), any());
    for (const auto role : {QPalette::WindowText, QPalette::Base, QPalette::Highlight}) palette.setColor(role, any());
    palettes.push_back(palette);
  }
  return palettes;
}

TEST(LookTest, ColoursThatMeetCanBeToldApart) {
  using enum Role;
  struct Meeting {
    Role front;
    double least;
    std::vector<Role> grounds;
  };
  const Meeting meetings[] = {
      {kText, kWords, {kWindow, kInput, kActive, kShown, kButton, kHeading, kFound}},
      {kQuiet, kWords, {kWindow, kInput, kActive, kShown}},
      {kOnAccent, kWords, {kAccent, kFoundSelected}},
      {kAccent, kWords, {kInput, kWindow}},  // links
      {kBorder, kMarks, {kWindow, kInput, kButton, kHeading}},
      {kAccent, kMarks, {kWindow, kInput, kActive, kButton, kShown, kHeading}},
      {kWarning, kMarks, {kWindow, kInput, kActive, kShown, kHeading}},
      {kSeries1, kMarks, {kInput, kHeading}},
      {kSeries2, kMarks, {kInput, kHeading}},
      {kSeries3, kMarks, {kInput, kHeading}},
      {kSeries4, kMarks, {kInput, kHeading}},
      {kSeries5, kMarks, {kInput, kHeading}},
      {kOnAccent, kWords, {kWarning, kSeries1, kSeries2, kSeries3, kSeries4, kSeries5}},
  };
  const auto expect_apart = [&](const auto& palette, const std::string& name) {
    for (const auto& [front, least, grounds] : meetings) {
      for (const Role ground : grounds) {
        EXPECT_GE(Contrast(ColourOf(front, palette), ColourOf(ground, palette)), least)
            << "palette " << name << ", " << int(front) << " on " << int(ground);
      }
    }
  };
  for (const Colours palette : kPalettes) {
    expect_apart(palette, std::to_string(int(palette)));
    // The band at the side, from its lower end to its upper one.
    const QColor ends[] = {QColor(0x80, 0x80, 0xFF), QColor(0xFF, 0xC0, 0xC0)};
    for (const QColor& end : ends) {
      EXPECT_GE(Contrast(ColourOf(kText, palette), PaintedGround(end, palette)), kWords) << int(palette);
    }
  }
  int host = 0;
  for (const QPalette& palette : HostPalettes()) expect_apart(ShadesOf(palette), "host " + std::to_string(host++));
}

// Fields as they are painted: three looks of which no two have both ground and border in common.
TEST_F(QtTest, RestFocusAndDisplayLookApart) {
  for (const Colours palette : kPalettes) {
    InstallLook(palette);
    form.Text1(5).SetLocked(true);
    form.Text1(4).SetEnabled(false);
    Play([&](FormWindow& window) {
      const auto look = [&](int field) {
        form.Text1(field).SetText("");
        window.Flush();
        const QImage shown = WidgetOf(window, form.Text1(field)).grab().toImage();
        const auto colour = [&](int x) { return shown.pixelColor(x, shown.height() / 2).rgb(); };
        return std::pair(colour(0), colour(shown.width() - 5));
      };
      const auto rgb = [](Role role) { return ColourOf(role).rgb(); };
      form.SetFocus(form.Text1(1));
      EXPECT_EQ(look(1), std::pair(rgb(Role::kAccent), rgb(Role::kActive)));
      EXPECT_EQ(look(2), std::pair(rgb(Role::kBorder), rgb(Role::kInput)));
      for (const int shown : {4, 5}) EXPECT_EQ(look(shown), std::pair(rgb(Role::kShown), rgb(Role::kShown)));
      window.Mark(form.Text1(2), true);
      EXPECT_EQ(look(2).first, rgb(Role::kWarning));
    });
  }
  InstallLook(Colours::kLight);
}

TEST_F(QtTest, AGridShowsItsCurrentCellWhileItHasTheFocus) {
  Play([&](FormWindow& window) {
    auto& table = static_cast<QTableView&>(WidgetOf(window, form.Grid1));
    const auto ground = [&](Control& focus) {
      form.SetFocus(focus);
      form.Tab1.SetTab(1);
      window.Flush();
      const QPoint cell = table.visualRect(table.model()->index(2, 2)).center();
      return table.viewport()->grab().toImage().pixelColor(cell);
    };
    form.Grid1.SetCurrent(2, 2);
    EXPECT_EQ(ground(form.Grid1), ColourOf(Role::kActive));
    EXPECT_EQ(ground(form.Text1(4)), ColourOf(Role::kInput));
  });
}

}  // namespace
}  // namespace zendara

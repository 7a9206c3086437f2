#include "adapters/qt/colours.hpp"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace zendara {
namespace {

struct Entry {
  Role role;
  QRgb light;
  QRgb dark;
  QRgb contrast;
};
constexpr Entry kTable[kRoles] = {
    {Role::kWindow, 0xF4F5F8, 0x1E2228, 0x000000},  {Role::kInput, 0xFFFFFF, 0x14171B, 0x000000},
    {Role::kActive, 0xFFF7D6, 0x36321B, 0x000000},  {Role::kShown, 0xE8EBF0, 0x2A3038, 0x000000},
    {Role::kButton, 0xE8EBF0, 0x363D47, 0x000000},  {Role::kHeading, 0xDDE2EA, 0x2F353E, 0x262626},
    {Role::kText, 0x1B222C, 0xE8EBEF, 0xFFFFFF},    {Role::kQuiet, 0x4E5866, 0xB0B8C4, 0xD0D0D0},
    {Role::kBorder, 0x737D8B, 0x8E98A6, 0xFFFFFF},  {Role::kLine, 0xC3CAD4, 0x4A525D, 0x8C8C8C},
    {Role::kAccent, 0x1F5FA8, 0x6CB2F5, 0xFFFF00},  {Role::kOnAccent, 0xFFFFFF, 0x0B1016, 0x000000},
    {Role::kFound, 0xFFE28A, 0x65500F, 0x5A4A00},   {Role::kFoundSelected, 0x123F73, 0xB4DAFF, 0xFFFFFF},
    {Role::kWarning, 0xC2410C, 0xFF9E64, 0xFF9B9B}, {Role::kSeries1, 0x2166AC, 0x74B6F4, 0x6FB7FF},
    {Role::kSeries2, 0x7B3FA0, 0xCDA4F2, 0xDDA3FF}, {Role::kSeries3, 0xA61B4B, 0xFF8FB0, 0xFF7F50},
    {Role::kSeries4, 0x1B7340, 0x7FD6A0, 0x6FFF9F}, {Role::kSeries5, 0x7A5B00, 0xE3C464, 0xFFD84D},
};

// What the guidelines for accessible content ask of words and of marks, and of words where there is a choice.
constexpr double kReadsWell = 7;
constexpr double kWords = 4.5;
constexpr double kMarks = 3;

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

QColor Mixed(const QColor& colour, const QColor& other, double share) {
  const auto part = [&](float a, float b) { return static_cast<float>(a + (b - a) * share); };
  return QColor::fromRgbF(part(colour.redF(), other.redF()), part(colour.greenF(), other.greenF()),
                          part(colour.blueF(), other.blueF()));
}

// A ground with that much of another colour in it, or less, so that the words on it can be read.
QColor Ground(const QColor& ground, const QColor& tint, double share, const QColor& words) {
  QColor mixed = Mixed(ground, tint, share);
  for (double least = share / 10; Contrast(mixed, words) < kWords && share > least;
       mixed = Mixed(ground, tint, share)) {
    share -= least;
  }
  return mixed;
}

// A colour that stands out from all grounds, with as much of that of the words in it as this takes.
QColor Front(const QColor& colour, const QColor& words, std::initializer_list<QColor> grounds, double contrast) {
  constexpr int kSteps = 10;
  QColor mixed = colour;
  for (int step = 1; step <= kSteps; ++step) {
    if (std::ranges::all_of(grounds, [&](const QColor& ground) { return Contrast(mixed, ground) >= contrast; })) break;
    mixed = Mixed(colour, words, static_cast<double>(step) / kSteps);
  }
  return mixed;
}

}  // namespace

QColor ColourOf(Role role, Colours colours) {
  const Entry& entry = *std::ranges::find(kTable, role, &Entry::role);
  return QColor::fromRgb(colours == Colours::kLight  ? entry.light
                         : colours == Colours::kDark ? entry.dark
                                                     : entry.contrast);
}

bool IsDark(const QPalette& palette) {
  return Luminance(palette.color(QPalette::Window)) < Luminance(palette.color(QPalette::WindowText));
}

Shades ShadesOf(const QPalette& palette) {
  const Colours own = IsDark(palette) ? Colours::kDark : Colours::kLight;
  Shades shades;
  for (int role = 0; role < kRoles; ++role) {
    shades[static_cast<std::size_t>(role)] = ColourOf(static_cast<Role>(role), own);
  }
  const auto at = [&](Role role) -> QColor& { return shades[static_cast<std::size_t>(role)]; };
  const QColor text = palette.color(QPalette::WindowText);
  const QColor window = palette.color(QPalette::Window);
  const QColor input = palette.color(QPalette::Base);
  const bool dark = own == Colours::kDark;
  const bool same_side = dark == (Luminance(input) < Luminance(text));
  if (std::min(Contrast(text, window), Contrast(text, input)) < kReadsWell || !same_side) return shades;

  at(Role::kText) = text;
  at(Role::kWindow) = window;
  at(Role::kInput) = input;
  const QColor active = at(Role::kActive) = Ground(input, at(Role::kActive), 1, text);
  const QColor shown = at(Role::kShown) = Ground(window, text, 0.07, text);
  const QColor heading = at(Role::kHeading) = Ground(window, text, 0.12, text);
  const QColor button = at(Role::kButton) = Ground(window, palette.color(QPalette::Button), 1, text);
  at(Role::kFound) = Ground(input, at(Role::kFound), 1, text);
  at(Role::kLine) = Mixed(window, text, 0.2);
  at(Role::kQuiet) = Front(Mixed(text, window, 0.35), text, {window, input, active, shown}, kWords);
  at(Role::kBorder) = Front(Mixed(text, window, 0.5), text, {window, input, button, heading}, kMarks);
  const QColor on_accent = at(Role::kOnAccent);
  const auto stand_out = [&](const QColor& colour) {
    return Front(colour, text, {window, input, active, shown, button, heading, on_accent}, kWords);
  };
  at(Role::kAccent) = stand_out(palette.color(QPalette::Highlight));
  at(Role::kFoundSelected) = Mixed(at(Role::kAccent), text, 0.4);
  using enum Role;
  for (const Role role : {kWarning, kSeries1, kSeries2, kSeries3, kSeries4, kSeries5}) at(role) = stand_out(at(role));
  return shades;
}

// As light as it was dark; no pattern stands behind words where contrast is asked for.
QColor PaintedGround(QColor painted, Colours colours) {
  if (colours == Colours::kLight) return painted;
  if (colours == Colours::kContrast) return ColourOf(Role::kWindow, colours);
  const QColor tone = painted.toHsl();
  return QColor::fromHslF(std::max(tone.hslHueF(), 0.0F), tone.hslSaturationF() / 2, 1 - tone.lightnessF());
}

}  // namespace zendara

// The colours of the windows, by what each is for: the table of this system's own palettes, and what is made of the
// palette of an application of somebody else's.
#pragma once

#include <QColor>
#include <QPalette>
#include <array>

namespace zendara {

enum class Colours { kLight, kDark, kContrast };

// What a colour is for. No place but the source of this header names a colour.
enum class Role {
  kWindow,    // ground of windows, pages and groups
  kInput,     // ground of what can be entered
  kActive,    // the same with the focus
  kShown,     // ground of a value that can only be read
  kButton,    // ground of what is pressed
  kHeading,   // ground of headings, of pages behind and of scroll bars
  kText,      // words on any of these
  kQuiet,     // words of second rank, and of what cannot be used
  kBorder,    // of what can be entered or pressed; marks
  kLine,      // separates, and says nothing
  kAccent,    // ring of the focus, ground of what is selected, links
  kOnAccent,  // words on it
  kFound,     // ground of words that were looked for, and of those in a row that is selected
  kFoundSelected,
  kWarning,  // ring of the field that a box is about, marks of a drawing
  kSeries1,  // things in a drawing to be told apart; kOnAccent on them
  kSeries2,
  kSeries3,
  kSeries4,
  kSeries5,
};
inline constexpr int kRoles = static_cast<int>(Role::kSeries5) + 1;
QColor ColourOf(Role role, Colours colours);

// A colour for each role.
using Shades = std::array<QColor, kRoles>;
inline QColor ColourOf(Role role, const Shades& shades) { return shades[static_cast<std::size_t>(role)]; }
// Ground, words and selection are those of the palette; what it has no place for is mixed from them, so that whatever
// meets can be told apart. A palette whose own words cannot be read well gives the light or the dark colours.
Shades ShadesOf(const QPalette& palette);
// Light words on a dark ground.
bool IsDark(const QPalette& palette);

// How the ground that a routine paints is shown, so that Role::kText can be read on it.
QColor PaintedGround(QColor painted, Colours colours);

}  // namespace zendara

// How the windows look: style, font, colours, and the size of the text that everything scales with.
#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetrics>
#include <QObject>
#include <functional>

namespace zendara {

enum class Colours { kLight, kDark, kContrast };

// Those that the desktop is set to: light where it says nothing. Asked once, and before the look is installed.
Colours DesktopColours();

// What a colour is for. The palettes are a table of look.cpp, and no other place names a colour.
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
QColor ColourOf(Role role);
QColor ColourOf(Role role, Colours colours);

// How the ground that a routine paints is shown, so that Role::kText can be read on it.
QColor PaintedGround(QColor painted);
QColor PaintedGround(QColor painted, Colours colours);

// Sets style, font and palette of the application. REQUIRES: a QApplication.
void InstallLook(Colours colours = DesktopColours());

// Property of a button: the work on the form ends with it.
inline constexpr char kMain[] = "main";

// Width of borders in pixels, and of the ring around what has the focus.
inline constexpr int kBorderWidth = 1;
int RingWidth(const QFontMetrics& metrics);

// Property of a widget: the box in front is about it. True or false.
inline constexpr char kMarked[] = "marked";

// Size of the text in percent, one for all windows.
namespace zoom {
inline constexpr int kMost = 250;
int Percent();
// Kept between the smallest and the largest size; every watcher is called.
void Set(int percent);
void Larger();
void Smaller();
// `changed` runs after each change, until `owner` is gone.
void Watch(QObject* owner, std::function<void()> changed);
}  // namespace zoom

// Width of that many characters of a code or a name.
int TextWidth(const QFontMetrics& metrics, int characters);
// Of a row in a list or table.
int RowHeight(const QFontMetrics& metrics);

}  // namespace zendara

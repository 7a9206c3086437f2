// How the windows look: style, font, colours, and the size of the text that everything scales with.
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QObject>
#include <functional>

#include "adapters/qt/colours.hpp"

class QWidget;

namespace zendara {

// Those that the desktop is set to: light where it says nothing. Asked once, and before the look is installed.
Colours DesktopColours();

// Sets style, font and palette of the application, for good. REQUIRES: a QApplication.
void InstallLook(Colours colours = DesktopColours());
// False: the application's look is its own.
bool LookInstalled();
// For a window that begins, before anything stands in it. Where the application's look is its own the window and its
// parts, now and later, get the style of this front end, which tells the states of a field, and font and colours of
// the application at this front end's size of text.
void Dress(QWidget& window);

// In the installed look; otherwise made of the application's palette.
QColor ColourOf(Role role);
QColor PaintedGround(QColor painted);
// Of all windows, at the size of the text now.
QFont TextFont();
// How large the text is, 1 for what the screens were designed with.
double TextScale();

// Property of a button: the work on the form ends with it.
inline constexpr char kMain[] = "main";

// Width of borders in pixels, and of the ring around what has the focus.
inline constexpr int kBorderWidth = 1;
int RingWidth(const QFontMetrics& metrics);

// Property of a widget: the box in front is about it. True or false.
inline constexpr char kMarked[] = "marked";

// Size of the text in percent, one for all windows of this front end.
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

// How the windows look: style, font, colours, and the size of the text that everything scales with.
#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetrics>
#include <QObject>
#include <functional>

#include "platform/form/control.hpp"

namespace zendara {

// Sets style, font and palette of the application. REQUIRES: a QApplication.
void InstallLook();

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

QColor ToQt(Color color);
// Colour of a field's ground. The model's mid grey marks the fields that have not the focus; black text on it is hard
// to read, so it is shown as a light grey that still stands off from the white of the active field.
QColor FieldColor(Color color);

namespace tone {
inline const QColor kWindow(0xF6, 0xF7, 0xF9);
inline const QColor kResting(0xE6, 0xE9, 0xEE);
inline const QColor kHeading(0xDD, 0xE2, 0xEA);
inline const QColor kLine(0xB9, 0xC1, 0xCC);
inline const QColor kText(0x1B, 0x22, 0x2C);
inline const QColor kQuiet(0x4E, 0x58, 0x66);
inline const QColor kAccent(0x1F, 0x5F, 0xA8);
}  // namespace tone

}  // namespace zendara

// The room that a window has on its screen.
#pragma once

#include <QMargins>
#include <QRect>

class QWidget;

namespace zendara {

// What the window manager puts around the window. Known once it is shown; until then as around the window before which
// it stands, or around the last one that was asked about, or an ample estimate.
QMargins FrameOf(const QWidget& window);
// For its content: the screen without panels and without that frame.
QRect RoomFor(const QWidget& window);
// Puts the visible window as far into that room as it is beyond.
void KeepOnScreen(QWidget& window);

}  // namespace zendara

#include "adapters/qt/fit.hpp"

#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace zendara {
namespace {

constexpr QMargins kAmpleFrame(6, 40, 6, 6);

// Null while nobody knows it.
QMargins KnownFrame(const QWidget* window) {
  return window && window->isVisible() && window->windowHandle() ? window->windowHandle()->frameMargins() : QMargins();
}

}  // namespace

QMargins FrameOf(const QWidget& window) {
  static QMargins last = kAmpleFrame;
  for (const QWidget* known : {&window, static_cast<const QWidget*>(window.parentWidget())}) {
    const QMargins frame = KnownFrame(known);
    if (frame.isNull()) continue;
    last = frame;
    break;
  }
  return last;
}

QRect RoomFor(const QWidget& window) { return window.screen()->availableGeometry() - FrameOf(window); }

void KeepOnScreen(QWidget& window) {
  const QRect room = RoomFor(window);
  const QRect now = window.geometry();
  const auto inside = [](int at, int size, int from, int to) { return std::max(std::min(at, to - size + 1), from); };
  const QPoint corner(inside(now.left(), now.width(), room.left(), room.right()),
                      inside(now.top(), now.height(), room.top(), room.bottom()));
  if (corner != now.topLeft()) window.move(window.pos() + corner - now.topLeft());
}

}  // namespace zendara

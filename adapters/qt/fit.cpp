#include "adapters/qt/fit.hpp"

#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace zendara {
namespace {

constexpr QMargins kUsualFrame(4, 34, 4, 4);

}  // namespace

QMargins FrameOf(const QWidget& window) {
  static QMargins last = kUsualFrame;
  const QMargins now = window.isVisible() && window.windowHandle() ? window.windowHandle()->frameMargins() : QMargins();
  if (!now.isNull()) last = now;
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

#include "adapters/qt/window_places.hpp"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

#include "adapters/qt/fit.hpp"

namespace zendara {

QRect OnScreen(const QRect& place, const QList<QRect>& screens) {
  const auto shared = [&](const QRect& screen) {
    const QRect both = screen & place;
    return both.isEmpty() ? 0 : qint64{both.width()} * both.height();
  };
  const QRect area = *std::ranges::max_element(screens, {}, shared);
  const QSize size = place.size().boundedTo(area.size());
  return {std::clamp(place.x(), area.x(), area.x() + area.width() - size.width()),
          std::clamp(place.y(), area.y(), area.y() + area.height() - size.height()), size.width(), size.height()};
}

QRect OnScreen(const QRect& place) {
  QList<QRect> areas;
  for (const QScreen* screen : QGuiApplication::screens()) areas << screen->availableGeometry();
  return OnScreen(place, areas);
}

// Before a window is shown nobody knows its frame, so places are those of the content, with room for one around them.
void WindowPlaces::PutBack(QWidget& window, const QString& name) const {
  const auto found = places.find(name);
  if (found == places.end()) return;
  const QMargins frame = FrameOf(window);
  const QRect content(found->second.topLeft(), found->second.size().expandedTo(window.size()));
  window.setGeometry(OnScreen(content + frame) - frame);
}

void WindowPlaces::Keep(const QWidget& window, const QString& name, const QSize& natural) {
  const bool large = window.isMaximized() || window.isFullScreen();
  const QRect place = large && window.normalGeometry().isValid() ? window.normalGeometry() : window.geometry();
  places[name] = QRect(place.topLeft(), place.size() == natural ? QSize(0, 0) : place.size());
}

}  // namespace zendara

#include "adapters/qt/window_places.hpp"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

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

void WindowPlaces::PutBack(QWidget& window, const QString& name) const {
  const auto found = places.find(name);
  if (found == places.end()) return;
  const QRect place = OnScreen({found->second.topLeft(), found->second.size().expandedTo(window.size())});
  window.resize(place.size());
  window.move(place.topLeft());
}

void WindowPlaces::Keep(const QWidget& window, const QString& name, const QSize& natural) {
  const QRect normal = window.normalGeometry();
  const bool large = window.isMaximized() || window.isFullScreen();
  const QSize size = large && normal.isValid() ? normal.size() : window.size();
  const QPoint corner = large && normal.isValid() ? normal.topLeft() : window.pos();
  places[name] = QRect(corner, size == natural ? QSize(0, 0) : size);
}

}  // namespace zendara

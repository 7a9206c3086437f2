#include "apps/desk/start/icon.hpp"

#include <QPainter>
#include <QPixmap>
#include <QPolygonF>

#include "adapters/qt/look.hpp"

namespace zendara {

QIcon DeskIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 16.0, size / 16.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ColourOf(Role::kAccent, Colours::kLight));
    painter.drawRoundedRect(QRectF(0, 0, 16, 16), 3, 3);
    painter.setBrush(Qt::white);
    painter.drawPolygon(
        QPolygonF({{4, 3}, {12, 3}, {12, 5}, {6.8, 11}, {12, 11}, {12, 13}, {4, 13}, {4, 11}, {9.2, 5}, {4, 5}}));
    painter.end();
    icon.addPixmap(picture);
  }
  return icon;
}

}  // namespace zendara

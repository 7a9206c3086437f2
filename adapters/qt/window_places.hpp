// Where windows stood when they were last closed, by name.
#pragma once

#include <QList>
#include <QRect>
#include <QString>
#include <map>

class QWidget;

namespace zendara {

// The place moved, and cut if need be, so that it lies wholly on that one of the screens on which most of it is; on the
// first one if it is on none. REQUIRES: there is a screen.
QRect OnScreen(const QRect& place, const QList<QRect>& screens);
// The same on the screens that there are, without their panels.
QRect OnScreen(const QRect& place);

class WindowPlaces {
 public:
  // Nothing happens to a window whose place is not known. One that had its own size then is as large as it is now at
  // least.
  void PutBack(QWidget& window, const QString& name) const;
  // `natural`: the size that the window gives itself; one that it still has is not kept.
  void Keep(const QWidget& window, const QString& name, const QSize& natural);

  // Of the content, without the frame; an empty size: the window's own.
  std::map<QString, QRect> places;
};

}  // namespace zendara

#include "adapters/qt/input_events.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>

#include "adapters/qt/keys.hpp"

namespace zendara {
namespace {

void SendMouse(QWidget& widget, QEvent::Type type, QPoint place, Qt::MouseButton button, Qt::MouseButtons held) {
  QMouseEvent event(type, place, widget.mapToGlobal(place), button, held, Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

}  // namespace

void ClickWidget(QWidget& widget, QPoint place) {
  const QPointer<QWidget> alive(&widget);
  SendMouse(widget, QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton);
  if (alive) SendMouse(widget, QEvent::MouseButtonPress, place, Qt::LeftButton, Qt::LeftButton);
  if (alive) SendMouse(widget, QEvent::MouseButtonRelease, place, Qt::LeftButton, Qt::NoButton);
}

void PressKey(QWidget& widget, const Key& key) {
  const QtKey sent = QtKeyOf(key);
  const QPointer<QWidget> alive(&widget);
  QKeyEvent press(QEvent::KeyPress, sent.key, sent.modifiers, sent.text);
  QApplication::sendEvent(&widget, &press);
  if (!alive) return;
  QKeyEvent release(QEvent::KeyRelease, sent.key, sent.modifiers, sent.text);
  QApplication::sendEvent(&widget, &release);
}

}  // namespace zendara

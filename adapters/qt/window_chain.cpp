#include "adapters/qt/window_chain.hpp"

#include <QApplication>
#include <QWidget>
#include <QWindowStateChangeEvent>

namespace zendara {
namespace {

bool moving = false;

void SetMinimised(QWidget& window, bool minimised) {
  const Qt::WindowStates others = window.windowState() & ~Qt::WindowMinimized;
  window.setWindowState(minimised ? others | Qt::WindowMinimized : others);
}

// Watches its own window, and the others from when they went with it until they are back.
class Link : public QObject {
 public:
  explicit Link(QWidget& window) : QObject(&window) { window.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::WindowStateChange || moving) return false;
    auto* window = static_cast<QWidget*>(watched);
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal) return false;
    const bool was = static_cast<QWindowStateChangeEvent*>(event)->oldState() & Qt::WindowMinimized;
    const bool is = window->isMinimized();
    const bool gone = is && !was && window == modal && window == parent();
    const bool back = was && !is;
    if (!gone && !back) return false;
    moving = true;
    for (QWidget* other : QApplication::topLevelWidgets()) {
      if (!other->isVisible() || other->windowType() == Qt::ToolTip) continue;
      if (other->isMinimized() != gone) SetMinimised(*other, gone);
      if (other == parent()) continue;
      if (gone) {
        other->installEventFilter(this);
      } else {
        other->removeEventFilter(this);
      }
    }
    moving = false;
    if (back) {
      modal->raise();
      modal->activateWindow();
    }
    return false;
  }
};

}  // namespace

void Chain(QWidget& window) { new Link(window); }

}  // namespace zendara

#include "adapters/qt/window_chain.hpp"

#include <QApplication>
#include <QWidget>
#include <QWindowStateChangeEvent>
#include <utility>

namespace zendara {
namespace {

void SetMinimised(QWidget& window, bool minimised) {
  const Qt::WindowStates others = window.windowState() & ~Qt::WindowMinimized;
  window.setWindowState(minimised ? others | Qt::WindowMinimized : others);
}

}  // namespace

WindowChain::WindowChain() { qApp->installEventFilter(this); }

bool WindowChain::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::WindowStateChange || moving_) return false;
  auto* window = qobject_cast<QWidget*>(watched);
  QWidget* modal = QApplication::activeModalWidget();
  if (!window || !window->isWindow() || !modal) return false;
  const bool was = static_cast<QWindowStateChangeEvent*>(event)->oldState() & Qt::WindowMinimized;
  const bool is = window->isMinimized();
  const bool gone = is && !was && window == modal;
  const bool back = was && !is;
  if (!gone && !back) return false;
  moving_ = true;
  for (QWidget* other : QApplication::topLevelWidgets()) {
    if (other->isVisible() && other->isMinimized() != gone && other->windowType() != Qt::ToolTip) {
      SetMinimised(*other, gone);
    }
  }
  moving_ = false;
  if (back) {
    modal->raise();
    modal->activateWindow();
  }
  return false;
}

}  // namespace zendara

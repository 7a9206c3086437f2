#include "adapters/qt/own_window.hpp"

#include <QWidget>

#include "adapters/qt/look.hpp"
#include "adapters/qt/window_chain.hpp"

namespace zendara {

void BeginOwnWindow(QWidget& window) {
  window.setAttribute(Qt::WA_QuitOnClose, false);
  Chain(window);
  Dress(window);
}

}  // namespace zendara

// Keeps the windows of a modal chain together: whoever can be reached leads to the one that takes input.
#pragma once

#include <QObject>

namespace zendara {

// When the modal window is minimised, those that it blocks go with it, since they would stand there and answer nothing.
// When one of them comes back, all do, and the modal one is in front. REQUIRES: a QApplication; it is watched from then
// on.
class WindowChain : public QObject {
 public:
  WindowChain();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool moving_ = false;
};

}  // namespace zendara

#include "adapters/qt/own_boxes.hpp"

#include "runtime/failure.hpp"
#include "runtime/surroundings.hpp"

namespace zendara {

BoxAnswer OwnBoxes::Show(const Box& box) noexcept {
  for (Dialogs* dialogs : {&host_(), &front_end_}) {
    try {
      return dialogs->Show(box);
    } catch (...) {
      LogLine("a box is not shown: " + OneLine(CurrentError()));
    }
  }
  return box.buttons == BoxButtons::kOk ? BoxAnswer::kOk : BoxAnswer::kNo;
}

void OwnBoxes::Beep() noexcept {
  try {
    host_().Beep();
  } catch (...) {
    LogCurrentError();
  }
}

}  // namespace zendara

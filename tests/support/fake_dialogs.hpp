// Message boxes that nobody sees: they remember what they said.
#pragma once

#include <string>
#include <vector>

#include "zendara/ports.hpp"

namespace zendara {

struct FakeDialogs : Dialogs {
  BoxAnswer Show(const Box& box) override {
    boxes.push_back(box.text);
    last_box = box;
    return box.buttons == BoxButtons::kOk ? BoxAnswer::kOk : answer;
  }
  void Beep() override { ++beeps; }

  std::vector<std::string> boxes;
  Box last_box;
  BoxAnswer answer = BoxAnswer::kYes;
  int beeps = 0;
};

}  // namespace zendara

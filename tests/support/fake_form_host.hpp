// A place for forms without windows: modal forms return at once, unless the test says what happens meanwhile.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/form/form.hpp"

namespace zendara {

struct FakeFormHost : FormHost, Dialogs {
  void ShowModal(Form& form) override {
    shown.push_back(form.Name());
    if (while_shown) while_shown(form);
  }
  void DoEvents() override { ++do_events; }
  void ShowHelp(const std::string&, int context) override { help.push_back(context); }
  std::int32_t WindowHandle(Form&) override { return 7; }

  BoxAnswer Show(const Box& box) override {
    boxes.push_back(box.text);
    last_box = box;
    return box.buttons == BoxButtons::kOk ? BoxAnswer::kOk : answer;
  }
  void Beep() override { ++beeps; }

  std::vector<std::string> shown;
  std::function<void(Form&)> while_shown;
  std::vector<std::string> boxes;
  Box last_box;
  BoxAnswer answer = BoxAnswer::kYes;
  std::vector<int> help;
  int do_events = 0;
  int beeps = 0;
};

}  // namespace zendara

// A place for forms without windows: modal forms return at once, unless the test says what happens meanwhile.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/fake_dialogs.hpp"
#include "zendara/forms/form.hpp"

namespace zendara {

struct FakeFormHost : FormHost, FakeDialogs {
  void ShowModal(Form& form) override {
    shown.push_back(form.Name());
    if (while_shown) while_shown(form);
  }
  void DoEvents() override { ++do_events; }
  void ShowHelp(const std::string&, int context, const HelpPlace&) override { help.push_back(context); }
  std::int32_t WindowHandle(Form&) override { return 7; }

  std::vector<std::string> shown;
  std::function<void(Form&)> while_shown;
  std::vector<int> help;
  int do_events = 0;
};

}  // namespace zendara

// What a script does on windows: real key and mouse events to the widgets.
#pragma once

#include <functional>
#include <utility>

#include "adapters/script/script_driver.hpp"

namespace zendara {

class QtHost;

class ScriptHands : public ScriptDriver {
 public:
  // `settled` runs after each command; may be empty.
  ScriptHands(QtHost& windows, std::function<void()> settled) : windows_(windows), settled_(std::move(settled)) {}

  void Press(Form& form, const Key& key) override;
  void Focus(Form& form, Control& control) override;
  void Click(Form& form, Control& control) override;
  void Pick(Form& form, ComboBox& combo, int item) override;
  void PointTo(Form& form, Grid& grid, int row, int column) override;
  void TurnTo(Form& form, Tabs& tabs, int page) override;
  void Settle() override;

 private:
  // False when the control cannot be seen and clicked.
  bool ClickOn(Form& form, Control& control, int row = 0, int column = 0);

  QtHost& windows_;
  std::function<void()> settled_;
};

}  // namespace zendara

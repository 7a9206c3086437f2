// The hands where there are no windows: they call the form.
#pragma once

#include "adapters/script/script_driver.hpp"

namespace zendara {

class FormHands : public ScriptDriver {
 public:
  void Press(Form& form, const Key& key) override { form.Press(key); }
  void Focus(Form& form, Control& control) override {
    form.Run([&] {
      if (control.CanFocus()) form.SetFocus(control);
    });
  }
  void Click(Form& form, Control& control) override {
    form.MouseOver(control);
    form.Click(control);
  }
  void Pick(Form& form, ComboBox& combo, int item) override { form.Pick(combo, item); }
  void PointTo(Form& form, Grid& grid, int row, int column) override { form.PointTo(grid, row, column); }
  void TurnTo(Form& form, Tabs& tabs, int page) override { form.TurnTo(tabs, page); }
  void Settle() override {}
};

}  // namespace zendara

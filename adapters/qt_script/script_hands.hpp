// What a script does on windows: real key and mouse events to the widgets.
#pragma once

#include <QPoint>
#include <functional>

#include "adapters/headless/script_driver.hpp"

class QWidget;

namespace zendara {

class FormWindow;

// Moves the mouse over the widget without a button held, then clicks it with the left one.
void ClickWidget(QWidget& widget, QPoint place);
// Presses and releases the key.
void PressKey(QWidget& widget, const Key& key);

class ScriptHands : public ScriptDriver {
 public:
  // `window_of`: the window that shows a form, nullptr if none does. `settled` runs after each command.
  ScriptHands(std::function<FormWindow*(const Form&)> window_of, std::function<void()> settled)
      : window_of_(std::move(window_of)), settled_(std::move(settled)) {}

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

  std::function<FormWindow*(const Form&)> window_of_;
  std::function<void()> settled_;
};

}  // namespace zendara

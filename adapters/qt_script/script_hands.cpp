#include "adapters/qt_script/script_hands.hpp"

#include <QApplication>

#include "adapters/qt/form_window.hpp"
#include "adapters/qt/input_events.hpp"
#include "adapters/qt/qt_host.hpp"

namespace zendara {

void ScriptHands::Press(Form& form, const Key& key) {
  FormWindow* window = windows_.WindowOf(form);
  if (!window) return;
  window->Flush();
  QWidget* focus = window->focusWidget();
  PressKey(focus ? *focus : *window, key);
}

void ScriptHands::Focus(Form& form, Control& control) {
  form.Run([&] {
    if (control.CanFocus()) form.SetFocus(control);
  });
}

bool ScriptHands::ClickOn(Form& form, Control& control, int row, int column) {
  FormWindow* window = windows_.WindowOf(form);
  if (!window) return false;
  window->Flush();
  ControlView* view = window->ViewOf(control);
  // On a page behind, or hidden: nothing to point at.
  if (!view || !view->Widget()->isVisible() || !view->Widget()->isEnabled()) return false;
  view->ClickOn(row, column);
  return true;
}

void ScriptHands::Click(Form& form, Control& control) {
  // Fields keep the caret that their entering rules give, lists stay closed.
  const FormWindow* window = windows_.WindowOf(form);
  const ControlView* view = window ? window->ViewOf(control) : nullptr;
  if (view && view->IsButton() && ClickOn(form, control)) return;
  form.MouseOver(control);
  form.Click(control);
}

void ScriptHands::Pick(Form& form, ComboBox& combo, int item) {
  if (!ClickOn(form, combo, item)) form.Pick(combo, item);
}

void ScriptHands::PointTo(Form& form, Grid& grid, int row, int column) {
  if (!ClickOn(form, grid, row, column)) form.PointTo(grid, row, column);
}

void ScriptHands::TurnTo(Form& form, Tabs& tabs, int page) {
  if (!ClickOn(form, tabs, page)) form.TurnTo(tabs, page);
}

void ScriptHands::Settle() {
  QApplication::processEvents();
  if (settled_) settled_();
}

}  // namespace zendara

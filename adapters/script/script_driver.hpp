// The hands of a script: what a front end does for one command. Headless it calls the form (FormHands), on windows it
// sends key and mouse events to the widgets that show it; both end in the same calls of the model.
#pragma once

#include "zendara/forms/form.hpp"

namespace zendara {

class ScriptDriver {
 public:
  virtual ~ScriptDriver() = default;

  // The form is the one on top. Each returns when all that follows from it is done, which includes the life of a form
  // that it opens. A control that is hidden or disabled takes nothing; one on a page behind is brought to the front as
  // its focus would. Rows, columns, items and pages are those of the model, from 0, and exist.

  // To the control that has the focus.
  virtual void Press(Form& form, const Key& key) = 0;
  // As Form::SetFocus run as an event: a click into a field that leaves the caret where the entering rules put it, and
  // that presses no button.
  virtual void Focus(Form& form, Control& control) = 0;
  // The mouse comes over the control without a button held, then clicks it.
  virtual void Click(Form& form, Control& control) = 0;
  virtual void Pick(Form& form, ComboBox& combo, int item) = 0;
  virtual void PointTo(Form& form, Grid& grid, int row, int column) = 0;  // no fixed cell
  virtual void TurnTo(Form& form, Tabs& tabs, int page) = 0;
  // Lets pending events run; called after each command.
  virtual void Settle() = 0;
};

}  // namespace zendara

#include "platform/form/control.hpp"

#include "platform/form/form.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

void FailNoMember() { throw RuntimeError(kSubscriptOutOfRange); }

Control::Control(Form& form, ControlKind kind, std::string_view name, int index)
    : form_(form), kind_(kind), name_(name), index_(index) {
  form_.Add(*this);
}

std::string Control::Id() const { return index_ == kNoIndex ? name_ : name_ + "(" + std::to_string(index_) + ")"; }

void Control::Changed() const {
  if (FormView* view = form_.View()) view->ControlChanged(*this);
}

void Control::SetVisible(bool visible) {
  visible_ = visible;
  Changed();
}

void Control::SetEnabled(bool enabled) {
  enabled_ = enabled;
  Changed();
}

void Control::SetCaption(std::string_view caption) {
  caption_ = caption;
  Changed();
}

void Control::SetToolTipText(std::string_view hint) {
  hint_ = hint;
  Changed();
}

void Control::SetBackColor(Color color) {
  back_color_ = color;
  Changed();
}

void Control::SetForeColor(Color color) {
  fore_color_ = color;
  Changed();
}

bool Control::CanFocus() const {
  switch (kind_) {
    case ControlKind::kFrame:
    case ControlKind::kLabel:
    case ControlKind::kPicture:
    case ControlKind::kImage:
      return false;
    default:
      break;
  }
  for (const Control* control = this; control; control = control->container_) {
    if (!control->visible_ || !control->enabled_) return false;
  }
  return true;
}

bool Control::HasFocus() const { return form_.Focus() == this; }

void Control::SetFocus() { form_.SetFocus(*this); }

void Tabs::SetTitles(std::vector<std::string> titles) {
  titles_ = std::move(titles);
  Changed();
}

void Tabs::SetTab(int page) {
  if (page < 0 || static_cast<std::size_t>(page) >= titles_.size()) throw RuntimeError(kInvalidPropertyValue);
  if (page == tab_) return;
  tab_ = page;
  Changed();
}

void CheckBox::SetValue(int value) {
  if (value < 0 || value > 2) throw RuntimeError(kInvalidPropertyValue);
  if (value == value_) return;
  value_ = value;
  Changed();
  if (On().click) On().click(Index());
}

void OptionButton::SetValue(bool value) {
  if (value == value_) return;
  value_ = value;
  Changed();
  if (!value) return;
  for (Control* control : Owner().Controls()) {
    if (control == this || control->Kind() != ControlKind::kOptionButton || control->Container() != Container())
      continue;
    static_cast<OptionButton*>(control)->SetValue(false);
  }
  if (On().click) On().click(Index());
}

}  // namespace zendara

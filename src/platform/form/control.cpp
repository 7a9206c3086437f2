#include "zendara/forms/control.hpp"

#include "runtime/failure.hpp"
#include "runtime/text.hpp"
#include "zendara/forms/form.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

// Not in the header, so that each kind of control is described in one library alone.
Control::~Control() = default;
TextBox::~TextBox() = default;
ComboBox::~ComboBox() = default;
CheckBox::~CheckBox() = default;
OptionButton::~OptionButton() = default;
Button::~Button() = default;
Image::~Image() = default;
Label::~Label() = default;
Frame::~Frame() = default;
Picture::~Picture() = default;
Tabs::~Tabs() = default;
Grid::~Grid() = default;
RowPicker::~RowPicker() = default;

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
  form_.SettleIn(*this);
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

bool Control::Usable() const {
  for (const Control* control = this; control; control = control->container_) {
    if (!control->visible_ || !control->enabled_) return false;
  }
  return true;
}

Control* Control::PagesAround() const {
  Control* outer = container_;
  while (outer && outer->PageCount() == 0) outer = outer->container_;
  return outer;
}

bool Control::HasFocus() const { return form_.Focus() == this; }

bool Control::TakesInput() const { return form_.Loaded() && HasFocus() && CanFocus(); }

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

void CheckBox::PutBack(int /*value*/, const std::string& text) {
  if (text.size() != 1) throw RuntimeError(kInvalidPropertyValue);
  SetValue(text.front() - '0');
}

void OptionButton::SetValue(bool value) {
  if (value == value_) return;
  value_ = value;
  Changed();
  if (!value) return;
  for (Control* control : Owner().Controls()) {
    if (control != this && control->Container() == Container()) control->Unchoose();
  }
  if (On().click) On().click(Index());
}

void Button::Click() {
  pressed_ = true;
  Owner().Run([this] {
    if (On().click) On().click(Index());
  });
  pressed_ = false;
}

std::string Button::AccessKey() const {
  const std::size_t mark = Caption().find('&');
  return mark == std::string::npos ? std::string() : LCase(Left(std::string_view(Caption()).substr(mark + 1), 1));
}

void Image::Click() {
  if (On().click) On().click(Index());
}

void Picture::Paint(const Screen& screen, DrawingSurface& surface) {
  if (!painter_) return;
  try {
    painter_(screen, surface);
  } catch (...) {
    painter_ = nullptr;
    LogCurrentError();
  }
}

}  // namespace zendara

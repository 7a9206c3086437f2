#include "platform/form/form.hpp"

#include <algorithm>
#include <tuple>
#include <utility>

#include "runtime/text.hpp"

namespace zendara {
namespace {

int CodePoint(std::string_view character) {
  if (character.empty()) return 0;
  const auto byte = [&](std::size_t i) {
    return i < character.size() ? static_cast<int>(static_cast<unsigned char>(character[i])) : 0;
  };
  const auto tail = [&](std::size_t i) { return byte(i) & 0x3f; };
  if (byte(0) < 0x80) return byte(0);
  if (byte(0) < 0xe0) return (byte(0) & 0x1f) << 6 | tail(1);
  if (byte(0) < 0xf0) return (byte(0) & 0x0f) << 12 | tail(1) << 6 | tail(2);
  return (byte(0) & 0x07) << 18 | tail(1) << 12 | tail(2) << 6 | tail(3);
}

std::string Utf8(int code_point) {
  const auto byte = [](int value) { return static_cast<char>(value); };
  if (code_point < 0x80) return {byte(code_point)};
  const char last = byte(0x80 | (code_point & 0x3f));
  if (code_point < 0x800) return {byte(0xc0 | code_point >> 6), last};
  const char third = byte(0x80 | (code_point >> 6 & 0x3f));
  if (code_point < 0x10000) return {byte(0xe0 | code_point >> 12), third, last};
  return {byte(0xf0 | code_point >> 18), byte(0x80 | (code_point >> 12 & 0x3f)), third, last};
}

// The character behind the "&" of a caption, in lower case; empty if it has none.
std::string AccessKey(const Control& control) {
  const std::string& caption = control.Caption();
  const std::size_t mark = caption.find('&');
  return mark == std::string::npos ? std::string() : LCase(Left(std::string_view(caption).substr(mark + 1), 1));
}

template <typename Handler, typename... Args>
void Fire(const Handler& handler, Args&&... args) {
  if (handler) handler(std::forward<Args>(args)...);
}

}  // namespace

Form::Form(FormHost& host, std::string_view name) : host_(host), name_(name) {}

Form::~Form() = default;

void Form::SetTitle(std::string_view title) {
  title_ = title;
  if (view_) view_->FormChanged();
}

void Form::SetStatus(std::string_view status) {
  if (status == status_) return;
  status_ = status;
  if (view_) view_->FormChanged();
}

void Form::SetPointer(MousePointer pointer) {
  pointer_ = pointer;
  if (view_) view_->FormChanged();
}

Control* Form::Find(std::string_view id) const {
  const auto found = std::ranges::find(controls_, id, &Control::Id);
  return found == controls_.end() ? nullptr : *found;
}

void Form::SetLayout(Layout layout) {
  layout_ = std::move(layout);
  tab_order_.clear();
  PutInto(layout_, nullptr, 0);
}

void Form::PutInto(const Layout& layout, Control* container, int page) {
  const auto put = [&](Control* control) {
    control->PutInto(container, page);
    tab_order_.push_back(control);
  };
  if (layout.control) put(layout.control);
  for (Control* control : layout.attached) put(control);
  const bool contains = layout.kind == LayoutKind::kFrame || layout.kind == LayoutKind::kTabs;
  for (std::size_t i = 0; i < layout.children.size(); ++i) {
    const int child_page = layout.kind == LayoutKind::kTabs ? static_cast<int>(i) : contains ? 0 : page;
    PutInto(layout.children[i], contains ? layout.control : container, child_page);
  }
}

// Life.

void Form::Show() {
  if (!loaded_) {
    loaded_ = true;
    Run([this] { OnLoad(); });
  }
  if (!loaded_) return;  // its load has unloaded it
  if (!focus_) {
    Run([this] { FocusNext(); });
  }
  host_.ShowModal(*this);
}

void Form::Unload() {
  if (!loaded_) return;
  loaded_ = false;
  Run([this] { OnUnload(); });
  if (view_) view_->FormChanged();
}

void Form::Close() {
  Run([this] { OnClose(); });
}

void Form::Run(const std::function<void()>& event) {
  const auto show = [this](int number, const std::string& text) {
    host_.Untrapped(number, text);
    host_.Boxes().Show({.text = "Error en tiempo de ejecución '" + std::to_string(number) + "':\n" + text});
  };
  try {
    event();
  } catch (const RuntimeError& error) {
    show(error.number(), error.text());
  } catch (const std::bad_alloc&) {
    show(kOutOfMemory, ErrorText(kOutOfMemory));
  }
}

// Focus.

void Form::SetFocus(Control& control) {
  if (!control.CanFocus()) throw RuntimeError(kInvalidCall);
  if (leaving_) {
    aimed_ = &control;
    return;
  }
  if (focus_ == &control) return;
  Control* target = &control;
  if (focus_) {
    Control& left = *focus_;
    leaving_ = true;
    aimed_ = nullptr;
    Run([&left] { Fire(left.On().lost_focus, left.Index()); });
    leaving_ = false;
    if (aimed_) target = std::exchange(aimed_, nullptr);
    if (!target->CanFocus()) return;  // leaving has hidden or disabled it
  }
  Enter(*target);
}

void Form::Enter(Control& control) {
  focus_ = &control;
  BringUp(control);
  if (view_) view_->FocusMoved();
  Run([&control] { Fire(control.On().got_focus, control.Index()); });
}

void Form::BringUp(const Control& control) {
  int page = control.Page();
  for (Control* outer = control.Container(); outer; outer = outer->Container()) {
    if (outer->Kind() == ControlKind::kTabs) static_cast<Tabs*>(outer)->SetTab(page);
    page = outer->Page();
  }
}

// Whether it stands on the front page of the tabs that have the focus.
bool Form::InFrontPage(const Control& control) const {
  int page = control.Page();
  for (const Control* outer = control.Container(); outer; outer = outer->Container()) {
    if (outer == focus_) return static_cast<const Tabs*>(outer)->Tab() == page;
    page = outer->Page();
  }
  return false;
}

void Form::TurnPage(int step) {
  const auto turn = [&](Control* control) {
    if (!control || control->Kind() != ControlKind::kTabs || !control->CanFocus()) return false;
    auto& tabs = static_cast<Tabs&>(*control);
    const int page = tabs.Tab() + step;
    if (page < 0 || static_cast<std::size_t>(page) >= tabs.Titles().size()) return false;
    TurnTo(tabs, page);
    return true;
  };
  bool inside = false;
  for (Control* outer = focus_; outer; outer = outer->Container()) {
    inside = inside || outer->Kind() == ControlKind::kTabs;
    if (turn(outer)) return;
  }
  if (!inside) std::ignore = std::ranges::find_if(controls_, turn);
}

void Form::FocusNext(bool backwards) {
  std::vector<Control*> order = tab_order_.empty() ? controls_ : tab_order_;
  std::erase_if(order,
                [](const Control* control) { return !control->CanFocus() || control->Kind() == ControlKind::kTabs; });
  if (order.empty()) return;
  const std::size_t count = order.size();
  const auto here = static_cast<std::size_t>(std::ranges::find(order, focus_) - order.begin());
  if (here < count) return SetFocus(*order[(here + (backwards ? count - 1 : 1)) % count]);
  // From the pages themselves the way goes into the page that is in front.
  const auto inside = std::ranges::find_if(order, [this](const Control* control) { return InFrontPage(*control); });
  SetFocus(inside == order.end() ? *order.front() : **inside);
}

// Keys.

void Form::OnKeyDown(int&, int) {}

void Form::OnKeyPress(int&) {}

void Form::Press(const Key& pressed) {
  Run([&] {
    if (pressed.code == key::kTab && !(pressed.shift & (key::kControl | key::kAlt))) {
      FocusNext((pressed.shift & key::kShift) != 0);
      return;
    }
    if (pressed.code == key::kInsert && pressed.shift == 0) host_.insert_on = !host_.insert_on;
    Control* control = focus_;
    int code = pressed.code;
    OnKeyDown(code, pressed.shift);
    const auto cancelled = [&] { return code == 0 && pressed.code != 0; };
    if (!cancelled() && control) Fire(control->On().key_down, control->Index(), code, pressed.shift);
    if (cancelled() || !loaded_) return;
    if (code == key::kF1 && HelpContext) return host_.ShowHelp(HelpFile, HelpContext);
    if (PressAccessKey(pressed)) return;
    if (pressed.shift == key::kControl && (code == key::kPageUp || code == key::kPageDown)) {
      return TurnPage(code == key::kPageUp ? -1 : 1);
    }
    if (!control) return;
    if (code == key::kEnter && control->Kind() == ControlKind::kButton) return MoveFocusAndClick(*control);

    const bool typed = !pressed.text.empty() && !(pressed.shift & (key::kControl | key::kAlt));
    if (typed) {
      Character(CodePoint(pressed.text));
    } else if (code == key::kEnter || code == key::kEsc || code == key::kBack) {
      Character(code);
    } else if (control->Kind() == ControlKind::kTextBox && control == focus_) {
      auto& box = static_cast<TextBox&>(*control);
      if (code == key::kDelete) {
        box.Delete();
      } else {
        box.MoveCaret(code, pressed.shift);
      }
    } else if (control->Kind() == ControlKind::kGrid && control == focus_) {
      auto& grid = static_cast<Grid&>(*control);
      const int row = grid.Row() + (code == key::kPageDown) - (code == key::kPageUp);
      const int column = grid.Col() + (code == key::kRight) - (code == key::kLeft);
      if (grid.IsCell(row, column)) grid.SetCurrent(row, column);
    }
    if (control == focus_) Fire(control->On().key_up, control->Index(), code, pressed.shift);
  });
}

void Form::Character(int character) {
  OnKeyPress(character);
  Control* control = focus_;
  if (!character || !control) return;
  Fire(control->On().key_press, control->Index(), character);
  if (!character || control != focus_) return;
  switch (control->Kind()) {
    case ControlKind::kTextBox: {
      auto& box = static_cast<TextBox&>(*control);
      if (character == key::kBack) {
        box.Backspace();
      } else if (character >= key::kSpace) {
        box.Type(Utf8(character));
      }
      break;
    }
    case ControlKind::kComboBox: {
      auto& combo = static_cast<ComboBox&>(*control);
      if (character >= key::kSpace) {
        combo.Type(Utf8(character));
      } else if (character == key::kBack && combo.Editable()) {
        combo.SetText(Left(combo.Text(), std::max(static_cast<int>(Len(combo.Text())) - 1, 0)));
      }
      break;
    }
    case ControlKind::kCheckBox:
    case ControlKind::kOptionButton:
    case ControlKind::kButton:
      if (character == key::kSpace) MoveFocusAndClick(*control);
      break;
    default:
      break;
  }
}

bool Form::PressAccessKey(const Key& pressed) {
  if (pressed.shift != key::kAlt || pressed.text.empty()) return false;
  for (Control* control : controls_) {
    if (control->Kind() != ControlKind::kButton || !control->CanFocus() || AccessKey(*control) != LCase(pressed.text)) {
      continue;
    }
    MoveFocusAndClick(*control);
    return true;
  }
  return false;
}

// Clicks.

void Form::Click(Control& control) {
  Run([&] { MoveFocusAndClick(control); });
}

void Form::MoveFocusAndClick(Control& control) {
  if (control.Kind() == ControlKind::kImage) {
    if (control.Visible() && control.Enabled()) Fire(control.On().click, control.Index());
    return;
  }
  if (!control.CanFocus()) return;
  SetFocus(control);
  if (focus_ != &control || !loaded_) return;
  switch (control.Kind()) {
    case ControlKind::kButton: {
      auto& button = static_cast<Button&>(control);
      button.pressed_ = true;
      Run([&] { Fire(control.On().click, control.Index()); });
      button.pressed_ = false;
      break;
    }
    case ControlKind::kCheckBox: {
      auto& box = static_cast<CheckBox&>(control);
      box.SetValue(box.Value() == 0 ? 1 : 0);
      break;
    }
    case ControlKind::kOptionButton:
      static_cast<OptionButton&>(control).SetValue(true);
      break;
    default:
      break;
  }
}

void Form::PointTo(TextBox& box, int start, int length) {
  Run([&] {
    MoveFocusAndClick(box);
    if (focus_ == &box) box.Select(start, length);
  });
}

void Form::Pick(ComboBox& combo, int item) {
  Run([&] {
    MoveFocusAndClick(combo);
    if (focus_ == &combo) combo.SetListIndex(item);
  });
}

void Form::TurnTo(Tabs& tabs, int page) {
  Run([&] {
    MoveFocusAndClick(tabs);
    if (focus_ != &tabs) return;
    tabs.SetTab(page);
    Fire(tabs.On().click, tabs.Index());
  });
}

void Form::PointTo(Grid& grid, int row, int column) {
  Run([&] {
    MoveFocusAndClick(grid);
    if (focus_ == &grid) grid.SetCurrent(row, column);
  });
}

void Form::Paste(std::string_view text) {
  Run([&] {
    for (std::size_t i = 1; i <= Len(text); ++i) {
      if (!focus_ || focus_->Kind() != ControlKind::kTextBox) return;
      const int character = CodePoint(Mid(text, static_cast<int>(i), 1));
      if (character >= key::kSpace) Character(character);
    }
  });
}

void Form::MouseOver(Control& control, bool right_button_only) {
  if (control.Kind() == ControlKind::kImage) image_button_mark_ = right_button_only ? 0 : 1;
  Run([&] { Fire(control.On().mouse_move, control.Index()); });
}

}  // namespace zendara

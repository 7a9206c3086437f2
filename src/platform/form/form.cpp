#include "zendara/forms/form.hpp"

#include <algorithm>
#include <utility>

#include "platform/form/form_drafts.hpp"
#include "runtime/failure.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

// Whether it stands on the front page of those tabs.
bool StandsInFrontOf(const Control& control, const Control* tabs) {
  int page = control.Page();
  for (const Control* outer = control.Container(); outer; outer = outer->Container()) {
    if (outer == tabs) return outer->FrontPage() == page;
    page = outer->Page();
  }
  return false;
}

template <typename Handler, typename... Args>
void Fire(const Handler& handler, Args&&... args) {
  if (handler) handler(std::forward<Args>(args)...);
}

}  // namespace

Form::Form(FormHost& host, Dialogs& dialogs, std::string_view name)
    : host_(host), dialogs_(dialogs), name_(name), drafts_(std::make_unique<FormDrafts>(*this)) {}

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
    const auto begin = static_cast<std::ptrdiff_t>(tab_order_.size());
    PutInto(layout.children[i], contains ? layout.control : container, child_page);
    if (layout.kind != LayoutKind::kTabs) continue;
    std::stable_partition(tab_order_.begin() + begin, tab_order_.end(), [&](const Control* control) {
      return !control->ClickedBy(key::kEnter) || control->PagesAround() != layout.control;
    });
  }
}

// The record.

void Form::AddToRecord(Control& control, bool key) { drafts_->Sheet().Add(control, key); }
void Form::AddBeside(Control& control, Button& opener) { drafts_->Sheet().Add(control, false, &opener); }
void Form::RecordComesWhole() { drafts_->Sheet().ComesWhole(); }
void Form::Settle(const Control& control) { drafts_->Sheet().Settle(control, true); }
void Form::SettleIn(const Control& frame) { drafts_->Sheet().SettleIn(frame); }
void Form::Stored(const Control& control) { drafts_->Sheet().Settle(control, false); }
void Form::Saved() { drafts_->Saved(false); }
void Form::SavedBeside() { drafts_->Saved(true); }
bool Form::Unsaved() const { return drafts_->AnythingUnsaved(); }
std::vector<KeptDraft> Form::Drafts() const { return drafts_->Left(); }
std::string Form::WhyNotHere(const Draft& draft) const { return drafts_->WhyNotHere(draft); }
void Form::RemoveDraft(const std::string& id) { drafts_->Remove(id); }

void Form::RestoreDraft(const std::string& id) {
  Input([&] { drafts_->Restore(id); });
}

// Life.

void Form::Show() {
  if (Shown()) return;
  const bool before = std::exchange(showing_, true);
  const struct Ending {
    Form& form;
    bool before;
    ~Ending() { form.showing_ = before; }
  } ending{*this, before};
  if (!loaded_) {
    loaded_ = true;
    drafts_->Begin();
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
  Run([this] { drafts_->End(); });
  if (view_) view_->FormChanged();
}

// Events.

void Form::Run(const std::function<void()>& event) {
  ++events_;
  try {
    event();
  } catch (...) {
    ShowCurrentError();
  }
  if (--events_ == 0 && loaded_) FollowDraft();
}

void Form::FollowDraft() noexcept {
  try {
    drafts_->EventEnded();
  } catch (...) {
    LogCurrentError();
  }
}

void Form::Input(const std::function<void()>& event) {
  if (loaded_) Run(event);
}

// Nothing gets out of here: there is nobody to take it.
void Form::ShowCurrentError() noexcept {
  try {
    const RuntimeError error = CurrentError();
    LogDetail(error);
    try {
      host_.Untrapped(error.number(), error.text());
    } catch (...) {
      LogCurrentError();
    }
    dialogs_.Show({.text = "Error en tiempo de ejecución '" + std::to_string(error.number()) + "':\n" + error.text()});
  } catch (...) {
    LogCurrentError();
  }
}

// Focus.
//
// Moving the focus is leaving one control and entering another. The rules of leaving may set the focus themselves:
// while they run, SetFocus notes its control in `aimed_` and does no more, and the last one noted is where the focus
// goes. The control first aimed at then gets no event. The control that was left is entered again when it was noted
// itself, or when its rules have hidden or disabled the one that the focus was to go to. When they unload the form
// nothing is entered.

void Form::SetFocus(Control& control) {
  if (!control.CanFocus()) throw RuntimeError(kInvalidCall);
  if (leaving_) {
    aimed_ = &control;
    return;
  }
  if (focus_ == &control) return;
  Control* target = &control;
  if (focus_) {
    const bool loaded = loaded_;
    Leave(*focus_);
    if (loaded && !loaded_) return;
    if (aimed_) target = std::exchange(aimed_, nullptr);
    if (!target->CanFocus()) target = focus_;
    if (!target->CanFocus()) return;
  }
  Enter(*target);
}

void Form::Leave(const Control& control) {
  leaving_ = true;
  aimed_ = nullptr;
  const bool changed = drafts_->Sheet().IsChanged(control);
  Run([&control] { Fire(control.On().lost_focus, control.Index()); });
  drafts_->Sheet().Left(control, changed);
  leaving_ = false;
}

void Form::Enter(Control& control) {
  focus_ = &control;
  int page = control.Page();
  for (Control* outer = control.Container(); outer; outer = outer->Container()) {
    outer->BringUp(page);
    page = outer->Page();
  }
  if (view_) view_->FocusMoved();
  const bool changed = drafts_->Sheet().IsChanged(control);
  Run([&control] { Fire(control.On().got_focus, control.Index()); });
  drafts_->Sheet().Entered(control, changed);
}

void Form::FocusNext(bool backwards) {
  FocusStop([](const Control&) { return true; }, backwards);
}

void Form::FocusNextField() {
  FocusStop([](const Control& stop) { return !stop.ClickedBy(key::kEnter) || !stop.PagesAround(); }, false);
}

void Form::FocusStop(const std::function<bool(const Control& stop)>& wanted, bool backwards) {
  std::vector<Control*> order = tab_order_.empty() ? controls_ : tab_order_;
  const auto is_stop = [&](const Control* control) {
    return control->IsTabStop() && control->CanFocus() && wanted(*control);
  };
  // From the pages themselves the way goes into the page that is in front.
  const auto in_front = [&](const Control* control) { return is_stop(control) && StandsInFrontOf(*control, focus_); };
  if (const auto inside = std::ranges::find_if(order, in_front); inside != order.end()) return SetFocus(**inside);
  if (backwards) std::ranges::reverse(order);
  const auto here = std::ranges::find(order, focus_);
  if (here != order.end()) std::ranges::rotate(order, here + 1);
  if (const auto stop = std::ranges::find_if(order, is_stop); stop != order.end()) SetFocus(**stop);
}

// Keys.

void Form::OnKeyDown(int&, int) {}

void Form::OnKeyPress(int&) {}

// A key goes this way and ends at the first that takes it:
//
//   Tab                       moves the focus; no handler sees it
//   Insert                    changes the state of all forms, and goes on
//   key_down of the form, of the control that has the focus
//   F1, Alt with the access key of a button, Ctrl with Page Up or Page Down, Ctrl with Z or Y
//   Enter on a button         clicks it
//   what types a character    key_press of the form, of the control; then a blank clicks, the rest goes into the text
//   any other key             the control itself: caret, selection, current cell
//   key_up of the control
//
// A handler cancels a key or character by setting it to 0. It may also hide the control, move the focus, unload the
// form: then too the rest of the way is not gone, since a key belongs to the control that had the focus when it was
// pressed.
void Form::Press(const Key& pressed) {
  Input([&] {
    if (pressed.code == key::kTab && !(pressed.shift & (key::kControl | key::kAlt))) {
      return FocusNext((pressed.shift & key::kShift) != 0);
    }
    if (pressed.code == key::kInsert && pressed.shift == 0) host_.insert_on = !host_.insert_on;
    Control* control = focus_;
    int code = pressed.code;
    const auto cancelled = [&] { return !loaded_ || (code == 0 && pressed.code != 0); };
    OnKeyDown(code, pressed.shift);
    if (!cancelled() && control) Fire(control->On().key_down, control->Index(), code, pressed.shift);
    if (cancelled()) return;
    if (code == key::kF1) {
      const HelpPlace place = HelpOnFocus();
      if (HelpContext || !place.link.empty()) host_.ShowHelp(HelpFile, HelpContext, place);
      return;
    }
    if (PressAccessKey(pressed)) return;
    if (pressed.shift == key::kControl && (code == key::kPageUp || code == key::kPageDown)) {
      return TurnPage(code == key::kPageUp ? -1 : 1);
    }
    if (pressed.shift == key::kControl && code == 'Z') return Undo(control);
    if (pressed.shift == key::kControl && code == 'Y') {
      if (control && control->TakesInput()) control->Redo();
      return;
    }
    if (pressed.shift == (key::kControl | key::kShift) && code == 'Z') return host_.ShowDrafts(*this);
    if (control) PressOn(*control, code, pressed);
  });
}

void Form::Undo(Control* control) {
  if (control && control->TakesInput() && control->Undo()) return;
  drafts_->RestoreOffered();
}

void Form::PressOn(Control& control, int code, const Key& pressed) {
  if (!control.TakesInput()) return;
  if (code == key::kEnter && control.ClickedBy(code)) return control.Click();
  const bool typed = !pressed.text.empty() && !(pressed.shift & (key::kControl | key::kAlt));
  if (typed) {
    Type(control, CodePoint(pressed.text));
  } else if (code == key::kEnter || code == key::kEsc || code == key::kBack) {
    Type(control, code);
  } else {
    control.PressKey(code, pressed.shift);
  }
  if (control.TakesInput()) Fire(control.On().key_up, control.Index(), code, pressed.shift);
}

void Form::Type(Control& control, int character) {
  OnKeyPress(character);
  if (!character || !control.TakesInput()) return;
  Fire(control.On().key_press, control.Index(), character);
  if (!character || !control.TakesInput()) return;
  if (character == key::kSpace && control.ClickedBy(character)) return control.Click();
  control.Type(character);
}

bool Form::PressAccessKey(const Key& pressed) {
  if (pressed.shift != key::kAlt || pressed.text.empty()) return false;
  const std::string letter = LCase(pressed.text);
  const auto control = std::ranges::find_if(
      controls_, [&](const Control* button) { return button->AccessKey() == letter && button->CanFocus(); });
  if (control == controls_.end()) return false;
  MoveFocusAndClick(**control);
  return true;
}

void Form::TurnPage(int step) {
  Control* tabs = nullptr;
  for (Control* outer = focus_; outer; outer = outer->Container()) {
    if (outer->PageCount() > 0) tabs = outer;
  }
  if (!tabs) tabs = FirstTabs([](const Control& control) { return !control.PagesAround(); });
  if (!tabs) return;
  while (Control* inner = TabsInFront(*tabs)) tabs = inner;
  const auto last = [&] { return tabs->FrontPage() == (step > 0 ? tabs->PageCount() - 1 : 0); };
  while (last() && tabs->PagesAround()) tabs = tabs->PagesAround();
  TurnInto(*tabs, (tabs->FrontPage() + step + tabs->PageCount()) % tabs->PageCount(), step);
}

void Form::TurnInto(Control& tabs, int page, int step) {
  TurnTo(tabs, page);
  if (!loaded_ || tabs.FrontPage() != page) return;
  if (Control* inner = TabsInFront(tabs)) TurnInto(*inner, step > 0 ? 0 : inner->PageCount() - 1, step);
}

Control* Form::TabsInFront(const Control& tabs) const {
  return FirstTabs([&](const Control& inner) { return inner.PagesAround() == &tabs && StandsInFrontOf(inner, &tabs); });
}

Control* Form::FirstTabs(const std::function<bool(const Control& tabs)>& wanted) const {
  const auto found = std::ranges::find_if(controls_, [&](const Control* control) {
    return control->PageCount() > 0 && control->CanFocus() && wanted(*control);
  });
  return found == controls_.end() ? nullptr : *found;
}

void Form::Paste(std::string_view text) {
  Input([&] {
    if (focus_ && focus_->TakesInput()) focus_->Paste(text);
  });
}

// Clicks.

bool Form::MoveFocusTo(Control& control) {
  if (!control.Usable()) return false;
  if (!control.TakesFocus()) return true;
  SetFocus(control);
  // What that has called up is there before the user changes it.
  if (drafts_->Sheet().Settled()) FollowDraft();
  return control.TakesInput();
}

// The focus comes first, and the click only if it came to rest there.
void Form::MoveFocusAndClick(Control& control) {
  if (MoveFocusTo(control)) control.Click();
}

void Form::Click(Control& control) {
  Input([&] { MoveFocusAndClick(control); });
}

void Form::PointTo(TextBox& box, int start, int length) {
  Input([&] {
    MoveFocusAndClick(box);
    if (box.TakesInput()) box.Select(start, length);
  });
}

void Form::Pick(ComboBox& combo, int item) {
  Input([&] {
    MoveFocusAndClick(combo);
    if (combo.TakesInput()) combo.SetListIndex(item);
  });
}

void Form::TurnTo(Control& tabs, int page) {
  Input([&] {
    MoveFocusAndClick(tabs);
    if (!tabs.TakesInput()) return;
    tabs.BringUp(page);
    Fire(tabs.On().click, tabs.Index());
  });
}

void Form::PointTo(Grid& grid, int row, int column) {
  Input([&] {
    if (MoveFocusTo(grid)) grid.SetCurrent(row, column);
  });
}

void Form::MouseOver(Control& control, bool right_button_only) {
  Input([&] {
    if (control.MarksMouseButton()) image_button_mark_ = right_button_only ? 0 : 1;
    Fire(control.On().mouse_move, control.Index());
  });
}

void Form::Close() {
  Input([this] { OnClose(); });
}

}  // namespace zendara

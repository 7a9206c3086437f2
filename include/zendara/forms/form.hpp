// A screen: its controls, its focus, and what becomes of keys and clicks.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zendara/export.h"
#include "zendara/forms/control.hpp"
#include "zendara/forms/drafts.hpp"
#include "zendara/forms/layout.hpp"
#include "zendara/ports.hpp"

namespace zendara {

// Where a control stands in the window of its form, from the window's upper left corner, in twips, 15 to the pixel.
struct ControlPlace {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

// Where the help is opened: a place on the page of the form's help context, or behind it.
struct HelpPlace {
  std::string link;   // from that page: "#section", "other.md#section"; empty: its start
  std::string words;  // to be marked there, behind the section's heading; may be empty
};

// The place that shows forms, as zendara/forms.hpp describes it.
class FormHost {
 public:
  virtual ~FormHost() = default;

  // Shows the form over the others and returns when it was unloaded; unloads it if it ends before. The form's focus is
  // on its first control that can have it, unless its load has put it elsewhere.
  virtual void ShowModal(Form& form) = 0;
  // Lets pending events run, so that what has changed is seen before a long action; keys and clicks wait for its end.
  virtual void DoEvents() = 0;
  // F1 on a form with a help context. The help may stay open beside the form.
  virtual void ShowHelp(const std::string& file, int context, const HelpPlace& place) = 0;
  // A run-time error that no routine trapped, before its box.
  virtual void Untrapped(int /*number*/, const std::string& /*text*/) {}
  // The window of a form, for neighbours that paint on it: the same from the first call in the form's load to its end.
  // 0 if there are no windows.
  virtual std::int32_t WindowHandle(Form& /*form*/) { return 0; }
  // In that window; nothing if there is none, or if the control does not stand on the form.
  virtual std::optional<ControlPlace> PlaceOf(const Control& /*control*/) { return std::nullopt; }
  // Where what was typed and not saved is kept; nullptr if it is not.
  virtual DraftKeeper* Drafts() { return nullptr; }
  // Lets the user choose among the drafts of the form, to restore or remove them.
  virtual void ShowDrafts(Form& /*form*/) {}

  // State of the Insert key, one for all forms: off at first, so that typing replaces.
  bool insert_on = false;
};

// Whoever shows a form: called when something has to be shown anew.
class FormView {
 public:
  virtual ~FormView() = default;
  virtual void ControlChanged(const Control& control) = 0;
  virtual void FocusMoved() = 0;
  virtual void FormChanged() = 0;  // pointer, title, status, unloaded
};

enum class MousePointer { kDefault = 0, kHourglass = 11 };

class Form {
 public:
  // `dialogs`: where the form's boxes and beeps go. Neither is owned.
  Form(FormHost& host, Dialogs& dialogs, std::string_view name);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Name() const { return name_; }
  const std::string& Title() const { return title_; }
  void SetTitle(std::string_view title);
  // A line that the user may read and does not have to answer; it stands until the next one. Empty: nothing.
  const std::string& Status() const { return status_; }
  ZENDARA_EXPORT void SetStatus(std::string_view status);
  // What a front end shows about the record, asked after every event, so each answers from what it has at hand. Empty:
  // nothing.
  // Who or what is on the screen, for the title bar: "00900 Peña Güell, Begoña".
  virtual std::string Subject() const { return {}; }
  // Which one of how many: "Trabajador 3 de 12".
  virtual std::string Position() const { return {}; }
  // What the control with the focus expects and the keys that matter there: "ddmmaa", "F2 lista".
  virtual std::string Expected() const { return {}; }
  // What the drafts of its records belong to: other records may have the same keys there.
  virtual std::string DraftScope() const { return {}; }
  // The same for the user: "00001, año 01, Talleres Sur".
  virtual std::string DraftPlace() const { return {}; }
  // What the unsaved record needs besides its controls to go on as it stands, for a draft of it: a short text of the
  // form's own. Empty: nothing. Asked at the end of every event that leaves something unsaved.
  virtual std::string DraftNote() const { return {}; }
  // A draft with that note was put back. What the form had to itself before is another record's and goes, also with an
  // empty note. The text comes from a file: one that DraftNote never gave counts as empty.
  virtual void RestoreNote(std::string_view /*note*/) {}
  FormHost& Host() const { return host_; }
  Dialogs& Boxes() const { return dialogs_; }
  MousePointer Pointer() const { return pointer_; }
  void SetPointer(MousePointer pointer);
  // Fixed size in twips, 15 to the pixel before scaling.
  int Width() const { return width_; }
  int Height() const { return height_; }
  void SetSize(int width, int height) {
    width_ = width;
    height_ = height;
  }
  std::string HelpFile;
  int HelpContext = 0;  // 0: none; F1 opens the help all the same where HelpOnFocus has a link
  // What the help has on the control with the focus.
  virtual HelpPlace HelpOnFocus() const { return {}; }

  // Controls in the order of creation.
  const std::vector<Control*>& Controls() const { return controls_; }
  ZENDARA_EXPORT Control* Find(std::string_view id) const;  // "Text1(7)"; case counts; nullptr if there is none
  const Layout& GetLayout() const { return layout_; }
  // The controls know from it what they stand in. Its order is the tab order, but the buttons of a page come after the
  // page's fields.
  void SetLayout(Layout layout);
  const std::vector<Control*>& TabOrder() const { return tab_order_; }
  void SetTabOrder(std::vector<Control*> order) { tab_order_ = std::move(order); }

  // The record. Whoever shows, empties and stores rows says which controls hold them; `key`: of those that say which
  // record it is, in their order. The user types over these to call up another one.
  void AddToRecord(Control& control, bool key = false);
  // The key alone does not call a record up again: its drafts hold all of it.
  void RecordComesWhole();
  // Figures of the record that are worked on in a frame of their own and stored by themselves. `opener` brings the
  // frame up and fills it. They are settled whenever the frame is shown or hidden.
  void AddBeside(Control& control, Button& opener);
  // A row or nothing was put there; what other code puts there in the same event belongs to it.
  void Settle(const Control& control);
  // What stands there was stored: in that control, in all of the record.
  void Stored(const Control& control);
  void Saved();
  void SavedBeside();
  // Something of the record stands there that was not stored, as of the end of the last event.
  ZENDARA_EXPORT bool Unsaved() const;
  // What was left unsaved, now or earlier, on this screen and on others: first what can be restored here, and the last
  // first in each part.
  ZENDARA_EXPORT std::vector<KeptDraft> Drafts() const;
  // A line for the user that says where it can be restored; empty: here.
  ZENDARA_EXPORT std::string WhyNotHere(const Draft& draft) const;
  ZENDARA_EXPORT void RestoreDraft(const std::string& id);
  ZENDARA_EXPORT void RemoveDraft(const std::string& id);

  // Life. Show loads the form if it is not loaded, and is modal; on a form that is being shown it returns at once.
  // Unload ends the show.
  void Show();
  ZENDARA_EXPORT void Unload();
  bool Loaded() const { return loaded_; }
  bool Shown() const { return loaded_ && showing_; }

  // Focus. Moving it: the control that has it runs its lost_focus first; if that sets the focus, there it goes, and the
  // control first aimed at gets no event. A control that takes its own focus back runs got_focus again. The page of
  // the control that gains the focus comes to the front. nullptr: none yet.
  Control* Focus() const { return focus_; }
  // What the box in front is about: the control with the focus, unless the routine that shows it has said another one.
  // nullptr: none.
  const Control* Concerned() const { return concerned_ ? concerned_ : focus_; }
  void SetConcerned(const Control* control) { concerned_ = control; }
  ZENDARA_EXPORT void SetFocus(Control& control);
  void FocusNext(bool backwards = false);
  // Past the buttons of the pages: whoever fills in the fields comes from the last one of a page to the next page.
  void FocusNextField();

  // What a front end passes in. Each runs as an event, on a form that is loaded: otherwise nothing happens. Items,
  // pages and cells are those of the control and exist; the cells are not fixed.
  // Ctrl with Page Up or Page Down turns pages, as a click on them does: all in turn and around, those of inner tabs
  // when the outer page is in front. Ctrl+Z takes back what was typed in the field, Ctrl+Y does it again; where nothing
  // was, Ctrl+Z restores the draft that the record brought up, and Ctrl+Shift+Z shows all.
  ZENDARA_EXPORT void Press(const Key& key);
  ZENDARA_EXPORT void Click(Control& control);                       // mouse; the focus moves there first
  ZENDARA_EXPORT void PointTo(TextBox& box, int start, int length);  // mouse in a text, once the focus is there
  ZENDARA_EXPORT void Pick(ComboBox& combo, int item);
  ZENDARA_EXPORT void TurnTo(Control& tabs, int page);
  ZENDARA_EXPORT void PointTo(Grid& grid, int row, int column);  // to a cell, which is no click of a RowPicker yet
  // Into the text box that has the focus: no key press, so the form's keys are not asked. As much as the field has room
  // for, each character through its key_press, as one change.
  ZENDARA_EXPORT void Paste(std::string_view text);
  ZENDARA_EXPORT void MouseOver(Control& control, bool right_button_only = false);
  // The user closes the window.
  ZENDARA_EXPORT void Close();
  // Runs a routine as an event: whatever exception escapes it ends it and is shown in a box, an error that is none of
  // the run-time library as error 51. The form stays as it is.
  ZENDARA_EXPORT void Run(const std::function<void()>& event);

  // 0 if the last mouse movement over a look-up image was with the right button alone held, otherwise 1; 0 at start.
  int ImageButtonMark() const { return image_button_mark_; }

  void SetView(FormView* view) { view_ = view; }
  FormView* View() const { return view_; }

 protected:
  virtual void OnLoad() {}
  virtual void OnUnload() {}
  // The user closes the window: the button that leaves the screen decides.
  virtual void OnClose() { Unload(); }
  // The form sees keys before the control that has the focus. Setting them to 0 cancels them.
  virtual void OnKeyDown(int& code, int shift);
  virtual void OnKeyPress(int& character);

 private:
  friend class Control;

  void SettleIn(const Control& frame);
  void FollowDraft() noexcept;
  void Undo(Control* control);
  void Add(Control& control) { controls_.push_back(&control); }
  void Input(const std::function<void()>& event);
  void ShowCurrentError() noexcept;
  void Leave(const Control& control);
  void Enter(Control& control);
  void FocusStop(const std::function<bool(const Control& stop)>& wanted, bool backwards);
  Control* FirstTabs(const std::function<bool(const Control& tabs)>& wanted) const;
  Control* TabsInFront(const Control& tabs) const;  // on the front page of these
  void PressOn(Control& control, int code, const Key& pressed);
  void Type(Control& control, int character);
  bool PressAccessKey(const Key& key);
  // Of the tabs around the focus, or of the first ones when there are none around it.
  void TurnPage(int step);
  // Tabs on that page are turned to their first page, or going back to their last.
  void TurnInto(Control& tabs, int page, int step);
  // True if the control is usable and the focus, if it ever has it, came to rest there.
  bool MoveFocusTo(Control& control);
  void MoveFocusAndClick(Control& control);
  void PutInto(const Layout& layout, Control* container, int page);

  FormHost& host_;
  Dialogs& dialogs_;
  std::string name_;
  std::string title_;
  std::string status_;
  MousePointer pointer_ = MousePointer::kDefault;
  int width_ = 0;
  int height_ = 0;
  std::vector<Control*> controls_;
  std::vector<Control*> tab_order_;
  Layout layout_;
  bool loaded_ = false;
  bool showing_ = false;  // ShowModal has not returned, though the form may be unloaded
  Control* focus_ = nullptr;
  bool leaving_ = false;      // lost_focus of the control with the focus is running
  Control* aimed_ = nullptr;  // where that handler has set it
  const Control* concerned_ = nullptr;
  int image_button_mark_ = 0;
  FormView* view_ = nullptr;
  std::unique_ptr<FormDrafts> drafts_;
  int events_ = 0;  // that run, one within the other
};

}  // namespace zendara

// The controls of a screen as a model: state and events, no toolkit. A front end shows the state and passes keys and
// clicks to the form; everything that follows from them happens here. What sets the state is for the screens.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "zendara/export.h"
#include "zendara/forms/text_field.hpp"
#include "zendara/keys.hpp"

namespace zendara {

class Form;
class FormDrafts;
class Control;
class Screen;
class DrawingSurface;

// Red, green and blue from the lowest byte up.
using Color = std::int32_t;
inline constexpr Color kWhite = 16777215;
inline constexpr Color kGrey = 8421504;
inline constexpr Color kBlack = 0;

// Index of a control that belongs to no array.
inline constexpr int kNoIndex = -1;

// Handlers of a control, or of all controls of an array, which get the index of the one concerned. A handler sets a key
// or character to 0 to cancel it. The characters of a paste go through key_press alone.
struct Events {
  std::function<void(int index)> got_focus;
  std::function<void(int index)> lost_focus;
  std::function<void(int index)> click;   // buttons, images, lists, check and option buttons, pages turned by the user
  std::function<void(int index)> change;  // the text or value changed, by whatever cause
  std::function<void(int index)> mouse_move;
  std::function<void(int index, int& code, int shift)> key_down;
  std::function<void(int index, int& character)> key_press;
  std::function<void(int index, int code, int shift)> key_up;
  std::function<void(int index)> selection;  // a grid's current cell moved
};

enum class ControlKind {
  kTextBox,
  kComboBox,
  kCheckBox,
  kOptionButton,
  kButton,
  kTabs,
  kGrid,
  kRowPicker,
  kFrame,
  kLabel,
  kPicture,
  kImage
};

// What the kinds of controls have in common. Where they differ a control answers for itself: the defaults are those of
// one that takes no input.
class ZENDARA_EXPORT Control {
 public:
  Control(Form& form, ControlKind kind, std::string_view name, int index = kNoIndex);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  ControlKind Kind() const { return kind_; }
  const std::string& Name() const { return name_; }
  int Index() const { return index_; }
  std::string Id() const;  // "Text1(7)", "Grabar"
  Form& Owner() const { return form_; }
  Events& On() { return *events_; }
  const Events& On() const { return *events_; }

  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  // The words beside a field, or on a button, frame, check or option button; "&" stands before the access key.
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string_view caption);
  const std::string& ToolTipText() const { return hint_; }
  void SetToolTipText(std::string_view hint);
  // What is on the screen cannot be saved without it: marked for the user, and no more than that.
  bool Required() const { return required_; }
  void SetRequired(bool required) { required_ = required; }
  Color BackColor() const { return back_color_; }
  void SetBackColor(Color color);
  Color ForeColor() const { return fore_color_; }
  void SetForeColor(Color color);

  // Neither hidden nor disabled, itself or a frame around it: otherwise it takes no input. Pages that are not in front
  // do not count: the focus brings them up.
  bool Usable() const;
  // Whether the kind of control ever has the focus, and is a stop of the keys that walk from field to field.
  virtual bool TakesFocus() const { return true; }
  virtual bool IsTabStop() const { return TakesFocus(); }
  bool CanFocus() const { return TakesFocus() && Usable(); }
  bool HasFocus() const;
  // It has the focus and can have it, on a form that is loaded. Handlers may end that at any moment of an event.
  bool TakesInput() const;
  // Error 5 when the control cannot have it. See Form::SetFocus.
  void SetFocus();

  // Where it stands, set by the layout.
  Control* Container() const { return container_; }  // frame or tabs, nullptr for the form itself
  int Page() const { return page_; }                 // of the tabs that contain it
  Control* PagesAround() const;                      // the innermost tabs that it stands in, nullptr if in none
  void PutInto(Control* container, int page = 0) {
    container_ = container;
    page_ = page;
  }
  virtual bool HoldsControls() const { return false; }
  virtual bool HasCaptionBefore() const { return false; }  // the words beside a field; others show theirs themselves

  // What the user reads there: the text of a field or list, 0 to 2 of a check box, 0 or 1 of an option, the page in
  // front of tabs, the current cell of a grid, the caption of the rest.
  virtual std::string ShownText() const { return caption_; }
  virtual bool IsEntered() const { return false; }   // holds what the user enters
  virtual bool IsUnmarked() const { return false; }  // a check box or option that is not chosen

  // The values that it holds, each under a name: that of the control, or those of the cells of a grid that are not
  // fixed, "Grid1(0)[1,2]".
  virtual int ValueCount() const { return 1; }
  virtual std::string ValueId(int /*value*/) const { return Id(); }
  virtual std::string ValueText(int /*value*/) const { return ShownText(); }
  // The user's hand, not code, was the last to change it.
  virtual bool ChangedByHand() const { return false; }

  // What the user's hand did to the text. False when there is nothing to take back, or to do again.
  virtual bool CanUndo() const { return false; }
  virtual bool CanRedo() const { return false; }

  // Pages of tabs, from 0; other controls have none.
  virtual int PageCount() const { return 0; }
  virtual int FrontPage() const { return 0; }
  virtual void BringUp(int /*page*/) {}

  // Another one was chosen of those that exclude each other in its container.
  virtual void Unchoose() {}

 protected:
  void Changed() const;  // for the view

  // Input as the form passes it on: the control is usable, has the focus if it ever does, and no handler has cancelled
  // what comes.
  friend class Form;
  virtual void Click() {}
  virtual bool ClickedBy(int /*code*/) const { return false; }  // Enter or blank
  virtual std::string AccessKey() const { return {}; }          // a small letter; Alt with it clicks
  virtual void Type(int /*character*/) {}                       // backspace is one too
  virtual void PressKey(int /*code*/, int /*shift*/) {}         // one that types nothing
  virtual void Paste(std::string_view /*text*/) {}
  virtual bool Undo() { return false; }
  virtual bool Redo() { return false; }
  // A value that the user had put there before, with what follows from it; a locked text takes it too. Error 380 for
  // one that the control cannot have.
  friend class FormDrafts;
  virtual void PutBack(int /*value*/, const std::string& /*text*/) {}
  virtual bool MarksMouseButton() const { return false; }  // see Form::ImageButtonMark

 private:
  template <typename T>
  friend class ControlArray;

  Form& form_;
  ControlKind kind_;
  std::string name_;
  int index_;
  Events own_events_;
  Events* events_ = &own_events_;  // those of the array for its members
  bool visible_ = true;
  bool enabled_ = true;
  bool required_ = false;
  std::string caption_;
  std::string hint_;
  Color back_color_ = kWhite;
  Color fore_color_ = kBlack;
  Control* container_ = nullptr;
  int page_ = 0;
};

enum class Alignment { kLeft, kRight, kCenter };

// A line of text. Positions count characters.
class ZENDARA_EXPORT TextBox : public Control, public TextField {
 public:
  TextBox(Form& form, std::string_view name, int index = kNoIndex)
      : Control(form, ControlKind::kTextBox, name, index) {}
  ~TextBox() override;

  std::string Text() const override { return text_; }
  // Cut to MaxLength. The caret goes to the start, as after any text set by code.
  void SetText(const std::string& text) override;
  void SetFocus() override { Control::SetFocus(); }
  int MaxLength() const { return max_length_; }  // 0: any
  void SetMaxLength(int length) { max_length_ = length; }
  zendara::Alignment Alignment() const { return alignment_; }
  void SetAlignment(zendara::Alignment alignment);
  bool Locked() const { return locked_; }  // shows and selects, does not type, and is no stop
  void SetLocked(bool locked) { locked_ = locked; }
  bool IsTabStop() const override { return !locked_; }
  // An amount: while it has not the focus a front end shows its thousands apart. The text is as it was entered.
  bool Grouped() const { return grouped_; }
  void SetGrouped(bool grouped) { grouped_ = grouped; }
  // Characters that the field shows; 0: as many as its maximum length.
  int Width() const { return width_ ? width_ : max_length_; }
  void SetWidth(int characters) { width_ = characters; }

  int SelStart() const override { return sel_start_; }
  int SelLength() const { return sel_length_; }
  // Both are brought into the text.
  void Select(int start, int length);
  // The end of the selection that moves, for a front end's caret.
  int Caret() const { return caret_at_start_ ? sel_start_ : sel_start_ + sel_length_; }

  std::string SelectedText() const;

  bool HasCaptionBefore() const override { return true; }
  std::string ShownText() const override { return text_; }
  bool IsEntered() const override { return true; }
  bool ChangedByHand() const override { return by_hand_; }
  bool CanUndo() const override { return !locked_ && !undo_.empty(); }
  bool CanRedo() const override { return !locked_ && !redo_.empty(); }

 protected:
  // Typed in place of the selection, unless the text is full.
  void Type(int character) override;
  // Delete; Left, Right, Home and End move the caret, with Shift they select.
  void PressKey(int code, int shift) override;
  // In place of the selection goes what the field has room for, each character through key_press first, as one change.
  // Nothing of it comes when that fails or lets nothing pass.
  void Paste(std::string_view text) override;
  // A run of characters typed is one step, so is a run of them taken out, and each paste. A text set by code ends the
  // history, as there is nothing of the user's left in it.
  bool Undo() override { return Step(undo_, redo_); }
  bool Redo() override { return Step(redo_, undo_); }
  void PutBack(int value, const std::string& text) override;

 private:
  struct State {
    std::string text;
    int sel_start;
    int sel_length;
  };
  enum class Edit { kNone, kTyped, kErased, kPasted };

  State Now() const { return {text_, sel_start_, sel_length_}; }
  void MoveCaret(int caret, bool selecting);
  void Replace(int start, int length, std::string_view text);
  // Whatever the user's hand changes in the text ends here; `before` is how it stood.
  void Edited(Edit edit, State before);
  bool Step(std::vector<State>& from, std::vector<State>& to);
  void Forget();
  std::size_t Byte(int character) const;  // where it begins in the text

  std::string text_;
  int max_length_ = 0;
  int width_ = 0;
  zendara::Alignment alignment_ = zendara::Alignment::kLeft;
  bool locked_ = false;
  bool grouped_ = false;
  int sel_start_ = 0;
  int sel_length_ = 0;
  bool caret_at_start_ = false;
  int texts_set_ = 0;  // by code
  bool by_hand_ = false;
  std::vector<State> undo_, redo_;
  Edit last_edit_ = Edit::kNone;
  int last_caret_ = 0;  // where that edit left it
};

// A list of which one entry shows. Not editable: the text is that of the entry, typing picks the next entry that begins
// with the character. Editable: the text is free.
class ZENDARA_EXPORT ComboBox : public Control {
 public:
  ComboBox(Form& form, std::string_view name, int index = kNoIndex)
      : Control(form, ControlKind::kComboBox, name, index) {}
  ~ComboBox() override;

  const std::vector<std::string>& Items() const { return items_; }
  void SetItems(std::vector<std::string> items);
  bool Editable() const { return editable_; }
  void SetEditable(bool editable) { editable_ = editable; }
  int ListIndex() const { return list_index_; }  // -1: none
  // Error 380 for no entry. Fires click, as picking by the user does.
  void SetListIndex(int index);
  const std::string& Text() const { return text_; }
  // Error 380 when not editable and no entry has that text; the empty text is no entry.
  void SetText(std::string_view text);

  bool HasCaptionBefore() const override { return true; }
  std::string ShownText() const override { return text_; }
  bool IsEntered() const override { return true; }

 protected:
  void Type(int character) override;
  void PutBack(int /*value*/, const std::string& text) override { SetText(text); }

 private:
  void PickNext(std::string_view beginning);

  std::vector<std::string> items_;
  bool editable_ = false;
  int list_index_ = -1;
  std::string text_;
};

class ZENDARA_EXPORT CheckBox : public Control {
 public:
  CheckBox(Form& form, std::string_view name, int index = kNoIndex)
      : Control(form, ControlKind::kCheckBox, name, index) {}
  ~CheckBox() override;
  int Value() const { return value_; }  // 0, 1, 2 (greyed)
  void SetValue(int value);             // error 380 for others; fires click when it changes

  std::string ShownText() const override { return std::to_string(value_); }
  bool IsEntered() const override { return true; }
  bool IsUnmarked() const override { return value_ == 0; }

 protected:
  void Click() override { SetValue(value_ == 0 ? 1 : 0); }
  bool ClickedBy(int code) const override { return code == key::kSpace; }
  void PutBack(int value, const std::string& text) override;

 private:
  int value_ = 0;
};

// Options in one container exclude each other.
class ZENDARA_EXPORT OptionButton : public Control {
 public:
  OptionButton(Form& form, std::string_view name, int index = kNoIndex)
      : Control(form, ControlKind::kOptionButton, name, index) {}
  ~OptionButton() override;
  bool Value() const { return value_; }
  void SetValue(bool value);  // true clears the others and fires click
  void Unchoose() override { SetValue(false); }

  std::string ShownText() const override { return value_ ? "1" : "0"; }
  bool IsEntered() const override { return true; }
  bool IsUnmarked() const override { return !value_; }

 protected:
  void Click() override { SetValue(true); }
  bool ClickedBy(int code) const override { return code == key::kSpace; }
  void PutBack(int /*value*/, const std::string& text) override { SetValue(text == "1"); }

 private:
  bool value_ = false;
};

class ZENDARA_EXPORT Button : public Control {
 public:
  Button(Form& form, std::string_view name, int index = kNoIndex) : Control(form, ControlKind::kButton, name, index) {}
  ~Button() override;
  // True while its click runs because the user pressed it.
  bool Value() const { return pressed_; }

 protected:
  void Click() override;
  bool ClickedBy(int code) const override { return code == key::kEnter || code == key::kSpace; }
  std::string AccessKey() const override;

 private:
  bool pressed_ = false;
};

// A lookup image: it is clicked, never focused. Its button mark is that of the last mouse movement over it.
class ZENDARA_EXPORT Image : public Control {
 public:
  Image(Form& form, std::string_view name, int index = kNoIndex) : Control(form, ControlKind::kImage, name, index) {}
  ~Image() override;

  bool TakesFocus() const override { return false; }

 protected:
  void Click() override;
  bool MarksMouseButton() const override { return true; }
};

class ZENDARA_EXPORT Label : public Control {
 public:
  Label(Form& form, std::string_view name, int index = kNoIndex) : Control(form, ControlKind::kLabel, name, index) {}
  ~Label() override;

  bool TakesFocus() const override { return false; }
};

class ZENDARA_EXPORT Frame : public Control {
 public:
  Frame(Form& form, std::string_view name, int index = kNoIndex) : Control(form, ControlKind::kFrame, name, index) {}
  ~Frame() override;

  bool TakesFocus() const override { return false; }
  bool HoldsControls() const override { return true; }
};

// A surface that a routine of the screen paints on, as often as the front end has to show it.
class ZENDARA_EXPORT Picture : public Control {
 public:
  using Painter = std::function<void(const Screen& screen, DrawingSurface& surface)>;

  Picture(Form& form, std::string_view name, int index = kNoIndex)
      : Control(form, ControlKind::kPicture, name, index) {}
  ~Picture() override;

  bool TakesFocus() const override { return false; }
  void SetPainter(Painter painter) {
    painter_ = std::move(painter);
    Changed();
  }
  // What it shows, in words, for those who do not see it. The picture is painted anew.
  const std::string& Description() const { return description_; }
  void SetDescription(std::string_view description) {
    description_ = description;
    Changed();
  }
  // A routine that fails leaves the picture as far as it came, and is not called again.
  void Paint(const Screen& screen, DrawingSurface& surface);

 private:
  Painter painter_;
  std::string description_;
};

class ZENDARA_EXPORT Tabs : public Control {
 public:
  Tabs(Form& form, std::string_view name, int index = kNoIndex) : Control(form, ControlKind::kTabs, name, index) {}
  ~Tabs() override;
  const std::vector<std::string>& Titles() const { return titles_; }
  void SetTitles(std::vector<std::string> titles);
  int Tab() const { return tab_; }
  // By code: no event. Error 380 for no page.
  void SetTab(int page);

  bool IsTabStop() const override { return false; }
  bool HoldsControls() const override { return true; }
  std::string ShownText() const override { return std::to_string(tab_); }
  int PageCount() const override { return static_cast<int>(titles_.size()); }
  int FrontPage() const override { return tab_; }
  void BringUp(int page) override { SetTab(page); }

 private:
  std::vector<std::string> titles_;
  int tab_ = 0;
};

// Cells of text with fixed rows and columns at the top and left. Widths in twips before scaling. Left and Right move
// the current cell in its row, Page Up and Page Down to another row: the screens have other uses for Up and Down.
class ZENDARA_EXPORT Grid : public Control {
 public:
  struct Column {
    int width = 960;
    zendara::Alignment alignment = zendara::Alignment::kLeft;
  };

  Grid(Form& form, std::string_view name, int index = kNoIndex) : Grid(form, ControlKind::kGrid, name, index) {}
  ~Grid() override;

  // Empties all cells. The current cell is the first that is not fixed. This and Clear settle it (Form::Settle).
  void Resize(int rows, int columns, int fixed_rows, int fixed_columns);
  int Rows() const { return rows_; }
  int Columns() const { return static_cast<int>(columns_.size()); }
  int FixedRows() const { return fixed_rows_; }
  int FixedColumns() const { return fixed_columns_; }
  Column& ColumnAt(int column);
  const Column& ColumnAt(int column) const;

  std::string CellId(int row, int column) const;  // "Grid1(0)[1,2]"
  // Error 9 outside of the grid.
  const std::string& Cell(int row, int column) const;
  void SetCell(int row, int column, std::string_view text);
  void Clear();  // all cells

  bool IsCell(int row, int column) const;  // one that is not fixed

  int Row() const { return row_; }
  int Col() const { return col_; }
  // The current cell; fires selection when it moves. Error 380 for a fixed cell or none.
  void SetRow(int row);
  void SetCol(int column);
  void SetCurrent(int row, int column);
  const std::string& Text() const { return Cell(row_, col_); }
  void SetText(std::string_view text) { SetCell(row_, col_, text); }

  std::string ShownText() const override { return rows_ == 0 ? std::string() : Text(); }
  bool IsEntered() const override { return true; }
  int ValueCount() const override { return (rows_ - fixed_rows_) * (Columns() - fixed_columns_); }
  std::string ValueId(int value) const override { return CellId(RowOf(value), ColumnOf(value)); }
  std::string ValueText(int value) const override { return Cell(RowOf(value), ColumnOf(value)); }

 protected:
  Grid(Form& form, ControlKind kind, std::string_view name, int index) : Control(form, kind, name, index) {}
  void PressKey(int code, int shift) override;
  void PutBack(int value, const std::string& text) override { SetCell(RowOf(value), ColumnOf(value), text); }

 private:
  int RowOf(int value) const { return fixed_rows_ + value / (Columns() - fixed_columns_); }
  int ColumnOf(int value) const { return fixed_columns_ + value % (Columns() - fixed_columns_); }
  std::size_t At(int row, int column) const;

  int rows_ = 0;
  int fixed_rows_ = 0;
  int fixed_columns_ = 0;
  std::vector<Column> columns_;
  std::vector<std::string> cells_;
  int row_ = 0;
  int col_ = 0;
};

// Rows to choose one from, under one row of headings: Enter, a blank or a double click on a row is its click. It holds
// nothing that is entered, so whoever goes by Enter from field to field passes it by.
class ZENDARA_EXPORT RowPicker : public Grid {
 public:
  static constexpr int kNoRow = -1;

  RowPicker(Form& form, std::string_view name, int index = kNoIndex)
      : Grid(form, ControlKind::kRowPicker, name, index) {}
  ~RowPicker() override;
  // The row of what is on the screen, which becomes the current one.
  int Marked() const { return marked_; }
  void Mark(int row);
  // To the row that many below; false, and nothing happens, when there is none.
  bool Step(int rows);

  bool IsEntered() const override { return false; }

 protected:
  bool ClickedBy(int code) const override { return code == key::kEnter || code == key::kSpace; }
  void Click() override;

 private:
  int marked_ = kNoRow;
};

}  // namespace zendara

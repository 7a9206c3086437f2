#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include "runtime/text.hpp"
#include "zendara/forms/control.hpp"

namespace zendara {
namespace {

// Line ends, tabs and the like, which no field holds.
bool IsControlCharacter(int character) { return character < key::kSpace || (character >= 0x7F && character < 0xA0); }

}  // namespace

void TextBox::SetText(const std::string& text) {
  std::string cut = max_length_ ? Left(text, max_length_) : text;
  const bool same = cut == text_;
  text_ = std::move(cut);
  sel_start_ = sel_length_ = 0;
  ++texts_set_;
  by_hand_ = false;
  Forget();
  Changed();
  if (!same && On().change) On().change(Index());
}

void TextBox::SetAlignment(zendara::Alignment alignment) {
  alignment_ = alignment;
  Changed();
}

// Selection and caret.

void TextBox::Select(int start, int length) {
  const int size = static_cast<int>(Len(text_));
  sel_start_ = std::clamp(start, 0, size);
  sel_length_ = std::clamp(length, 0, size - sel_start_);
  caret_at_start_ = false;
  Changed();
}

std::string TextBox::SelectedText() const { return Mid(text_, sel_start_ + 1, sel_length_); }

void TextBox::MoveCaret(int caret, bool selecting) {
  const int anchor = !selecting ? caret : caret_at_start_ ? sel_start_ + sel_length_ : sel_start_;
  sel_start_ = std::min(anchor, caret);
  sel_length_ = std::max(anchor, caret) - sel_start_;
  caret_at_start_ = caret < anchor;
  Changed();
}

// What the user does.

void TextBox::PressKey(int code, int shift) {
  const int size = static_cast<int>(Len(text_));
  const bool selecting = (shift & key::kShift) != 0;
  const bool collapses = !selecting && sel_length_ > 0;
  switch (code) {
    case key::kDelete:
      return Replace(sel_start_, sel_length_ ? sel_length_ : 1, {});
    case key::kHome:
      return MoveCaret(0, selecting);
    case key::kEnd:
      return MoveCaret(size, selecting);
    case key::kLeft:
      return MoveCaret(collapses ? sel_start_ : std::max(Caret() - 1, 0), selecting);
    case key::kRight:
      return MoveCaret(collapses ? sel_start_ + sel_length_ : std::min(Caret() + 1, size), selecting);
    default:
      return;
  }
}

void TextBox::Type(int character) {
  if (character == key::kBack) {
    if (sel_length_ > 0) return Replace(sel_start_, sel_length_, {});
    if (sel_start_ > 0) Replace(sel_start_ - 1, 1, {});
  } else if (character >= key::kSpace) {
    if (max_length_ && static_cast<int>(Len(text_)) - sel_length_ >= max_length_) return;
    Replace(sel_start_, sel_length_, Utf8(character));
  }
}

void TextBox::Replace(int start, int length, std::string_view text) {
  const std::size_t begin = Byte(start);
  const std::size_t end = Byte(start + length);
  if (locked_ || (begin == end && text.empty())) return;
  State before = Now();
  text_.replace(begin, end - begin, text);
  sel_start_ = start + static_cast<int>(Len(text));
  sel_length_ = 0;
  Edited(text.empty() ? Edit::kErased : Edit::kTyped, std::move(before));
}

void TextBox::Paste(std::string_view pasted) {
  if (locked_) return;
  const State before = Now();
  const int start = sel_start_;
  const int length = sel_length_;
  const int texts_set = texts_set_;

  // The rules of key_press see the field as it stands with what has come so far.
  std::size_t at = Byte(start);
  text_.erase(at, Byte(start + length) - at);
  int room = max_length_ ? max_length_ - static_cast<int>(Len(text_)) : std::numeric_limits<int>::max();
  int caret = start;
  const auto place = [&](int selected) {
    sel_start_ = caret;
    sel_length_ = selected;
  };
  const auto put_back = [&] {
    if (texts_set_ != texts_set) return;
    text_ = before.text;
    caret = start;
    place(length);
  };
  try {
    while (room > 0 && !pasted.empty()) {
      int character = CodePoint(TakeCharacter(pasted));
      if (IsControlCharacter(character)) continue;
      place(0);  // a rule that goes over the text with the keys selects
      if (On().key_press) On().key_press(Index(), character);
      if (texts_set_ != texts_set) return;  // it has put a text of its own there
      if (!TakesInput()) break;
      if (character < key::kSpace) continue;
      const std::string added = Utf8(character);
      text_.insert(at, added);
      at += added.size();
      ++caret;
      --room;
    }
  } catch (...) {
    put_back();
    throw;
  }
  if (caret == start) return put_back();
  place(0);
  Edited(Edit::kPasted, before);
}

void TextBox::Edited(Edit edit, State before) {
  // Going over a text with the keys selects the character that each of them replaces.
  const bool goes_on = edit == last_edit_ && edit != Edit::kPasted && before.sel_start == last_caret_ &&
                       before.sel_length <= (edit == Edit::kTyped ? 1 : 0);
  if (!goes_on) undo_.push_back(std::move(before));
  redo_.clear();
  last_edit_ = edit;
  last_caret_ = sel_start_;
  by_hand_ = true;
  Changed();
  if (On().change) On().change(Index());
}

bool TextBox::Step(std::vector<State>& from, std::vector<State>& to) {
  if (locked_ || from.empty()) return false;
  to.push_back(Now());
  auto& [text, sel_start, sel_length] = from.back();
  text_ = std::move(text);
  sel_start_ = sel_start;
  sel_length_ = sel_length;
  caret_at_start_ = false;
  from.pop_back();
  last_edit_ = Edit::kNone;
  by_hand_ = true;
  Changed();
  if (On().change) On().change(Index());
  return true;
}

void TextBox::Forget() {
  undo_.clear();
  redo_.clear();
  last_edit_ = Edit::kNone;
}

void TextBox::PutBack(int /*value*/, const std::string& text) {
  SetText(text);
  sel_start_ = static_cast<int>(Len(text_));
  by_hand_ = true;
  Changed();
}

std::size_t TextBox::Byte(int character) const { return BytesOf(text_, static_cast<std::size_t>(character)); }

}  // namespace zendara

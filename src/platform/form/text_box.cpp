#include <algorithm>

#include "platform/form/control.hpp"
#include "runtime/text.hpp"

namespace zendara {

void TextBox::SetText(const std::string& text) {
  const std::string cut = max_length_ ? Left(text, max_length_) : text;
  const bool same = cut == text_;
  text_ = cut;
  sel_start_ = sel_length_ = 0;
  Changed();
  if (!same && On().change) On().change(Index());
}

void TextBox::SetAlignment(zendara::Alignment alignment) {
  alignment_ = alignment;
  Changed();
}

void TextBox::Select(int start, int length) {
  const int size = static_cast<int>(Len(text_));
  sel_start_ = std::clamp(start, 0, size);
  sel_length_ = std::clamp(length, 0, size - sel_start_);
  caret_at_start_ = false;
  Changed();
}

void TextBox::Replace(int start, int length, std::string_view text, int caret) {
  text_ = Left(text_, start) + std::string(text) + Mid(text_, start + length + 1);
  sel_start_ = caret;
  sel_length_ = 0;
  Changed();
  if (On().change) On().change(Index());
}

void TextBox::Type(std::string_view character) {
  if (locked_) return;
  const int rest = static_cast<int>(Len(text_)) - sel_length_;
  if (max_length_ && rest + static_cast<int>(Len(character)) > max_length_) return;
  Replace(sel_start_, sel_length_, character, sel_start_ + static_cast<int>(Len(character)));
}

void TextBox::Backspace() {
  if (locked_) return;
  if (sel_length_) return Replace(sel_start_, sel_length_, {}, sel_start_);
  if (sel_start_ > 0) Replace(sel_start_ - 1, 1, {}, sel_start_ - 1);
}

void TextBox::Delete() {
  if (locked_) return;
  if (sel_length_) return Replace(sel_start_, sel_length_, {}, sel_start_);
  if (sel_start_ < static_cast<int>(Len(text_))) Replace(sel_start_, 1, {}, sel_start_);
}

bool TextBox::MoveCaret(int code, int shift) {
  const int size = static_cast<int>(Len(text_));
  const bool selecting = (shift & key::kShift) != 0;
  int caret = Caret();
  switch (code) {
    case key::kHome:
      caret = 0;
      break;
    case key::kEnd:
      caret = size;
      break;
    case key::kLeft:
      caret = !selecting && sel_length_ ? sel_start_ : std::max(caret - 1, 0);
      break;
    case key::kRight:
      caret = !selecting && sel_length_ ? sel_start_ + sel_length_ : std::min(caret + 1, size);
      break;
    default:
      return false;
  }
  const int anchor = !selecting ? caret : caret_at_start_ ? sel_start_ + sel_length_ : sel_start_;
  sel_start_ = std::min(anchor, caret);
  sel_length_ = std::max(anchor, caret) - sel_start_;
  caret_at_start_ = caret < anchor;
  Changed();
  return true;
}

}  // namespace zendara

#include <algorithm>

#include "runtime/text.hpp"
#include "zendara/forms/control.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

void ComboBox::SetItems(std::vector<std::string> items) {
  items_ = std::move(items);
  list_index_ = -1;
  text_.clear();
  Changed();
}

void ComboBox::SetListIndex(int index) {
  if (index < -1 || index >= static_cast<int>(items_.size())) throw RuntimeError(kInvalidPropertyValue);
  if (index == list_index_ && index >= 0) return;
  const std::string text = index < 0 ? std::string() : items_[static_cast<std::size_t>(index)];
  const bool changed = text != text_;
  list_index_ = index;
  text_ = text;
  Changed();
  if (changed && On().change) On().change(Index());
  if (index >= 0 && On().click) On().click(Index());
}

void ComboBox::SetText(std::string_view text) {
  const auto item = std::ranges::find(items_, text);
  if (item != items_.end()) return SetListIndex(static_cast<int>(item - items_.begin()));
  if (!editable_ && !text.empty()) throw RuntimeError(kInvalidPropertyValue);
  const bool changed = text != text_;
  list_index_ = -1;
  text_ = text;
  Changed();
  if (changed && On().change) On().change(Index());
}

void ComboBox::Type(int character) {
  if (character >= key::kSpace) {
    const std::string typed = Utf8(character);
    editable_ ? SetText(text_ + typed) : PickNext(typed);
  } else if (character == key::kBack && editable_) {
    SetText(Left(text_, std::max(static_cast<int>(Len(text_)) - 1, 0)));
  }
}

void ComboBox::PickNext(std::string_view beginning) {
  const int count = static_cast<int>(items_.size());
  for (int step = 1; step <= count; ++step) {
    const int item = (list_index_ + step) % count;
    if (LCase(items_[static_cast<std::size_t>(item)]).starts_with(LCase(beginning))) return SetListIndex(item);
  }
}

}  // namespace zendara

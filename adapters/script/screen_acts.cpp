#include "adapters/script/screen_acts.hpp"

#include <algorithm>
#include <charconv>

#include "adapters/script/script.hpp"
#include "adapters/script/script_keys.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

// "[1,2]": what stands behind the name of a grid.
const std::string& CellOf(const Grid& grid, std::string_view place) {
  int row = 0;
  int column = 0;
  const char* end = place.data() + place.size();
  const auto first = std::from_chars(place.data() + 1, end, row);
  const auto second = std::from_chars(first.ptr + (first.ptr < end ? 1 : 0), end, column);
  if (grid.CellId(row, column) != grid.Id() + std::string(place) || second.ec != std::errc() || row < 0 ||
      row >= grid.Rows() || column < 0 || column >= grid.Columns()) {
    throw ActError(kInvalidPropertyValue, grid.Id() + " has no cell " + std::string(place));
  }
  return grid.Cell(row, column);
}

void CheckText(std::string_view text) {
  if (!IsUtf8(text)) throw ActError(kInvalidCall, "a text is not UTF-8");
}

// No key types control characters, but for Enter and the tabulator.
void CheckTyped(std::string_view text) {
  CheckText(text);
  while (!text.empty()) {
    const int character = CodePoint(TakeCharacter(text));
    const bool control = character < ' ' || (character >= 0x7F && character < 0xA0);
    if (control && character != '\n' && character != '\t') {
      throw ActError(kInvalidCall, "no key types the character " + std::to_string(character));
    }
  }
}

}  // namespace

Control& ScreenActs::Find(std::string_view id) const {
  Control* control = form_.Find(id);
  if (!control) throw ActError(kItemNotFound, "screen " + form_.Name() + " has no control " + std::string(id));
  return *control;
}

template <typename T>
T& ScreenActs::FindKind(std::string_view id, std::string_view kind) const {
  auto* control = dynamic_cast<T*>(&Find(id));
  if (!control) throw ActError(kInvalidCall, std::string(id) + " is no " + std::string(kind));
  return *control;
}

std::string ScreenActs::Read(const std::string& id) const {
  const std::size_t bracket = id.find('[');
  const std::string_view name = std::string_view(id).substr(0, bracket);
  if (bracket == std::string::npos) return Find(name).ShownText();
  return CellOf(FindKind<Grid>(name, "grid"), std::string_view(id).substr(bracket));
}

void ScreenActs::Focus(std::string_view id) {
  Control& control = Find(id);
  if (!control.TakesFocus()) throw ActError(kInvalidCall, control.Id() + " never has the focus");
  driver_.Focus(form_, control);
}

void ScreenActs::Type(std::string_view text, const std::function<bool()>& ended) {
  CheckTyped(text);
  while (!text.empty() && form_.Loaded() && !ended()) driver_.Press(form_, KeyOfCharacter(TakeCharacter(text)));
}

void ScreenActs::Press(const Key& key) {
  CheckText(key.text);
  if (Len(key.text) > 1) throw ActError(kInvalidCall, "a key types one character at most");
  driver_.Press(form_, key);
}

void ScreenActs::Paste(std::string_view text) {
  CheckText(text);
  form_.Paste(text);
}

void ScreenActs::Click(std::string_view id) { driver_.Click(form_, Find(id)); }

void ScreenActs::Choose(std::string_view id, std::size_t item) {
  auto& list = FindKind<ComboBox>(id, "list");
  if (item >= list.Items().size()) {
    throw ActError(kInvalidPropertyValue, list.Id() + " has no item of number " + std::to_string(item));
  }
  driver_.Pick(form_, list, static_cast<int>(item));
}

void ScreenActs::Choose(std::string_view id, std::string_view text) {
  const auto& items = FindKind<ComboBox>(id, "list").Items();
  const auto same = [&](const std::string& item) { return RTrim(item) == RTrim(text); };
  const auto item = std::ranges::find_if(items, same);
  if (item == items.end()) {
    throw ActError(kInvalidPropertyValue, std::string(id) + " has no item " + Quoted(text));
  }
  Choose(id, static_cast<std::size_t>(item - items.begin()));
}

void ScreenActs::Point(std::string_view id, int row, int column) {
  auto& grid = FindKind<Grid>(id, "grid");
  if (!grid.IsCell(row, column)) {
    throw ActError(kInvalidPropertyValue,
                   grid.Id() + " has no cell " + std::to_string(row) + " " + std::to_string(column) + " to click");
  }
  driver_.PointTo(form_, grid, row, column);
}

void ScreenActs::Turn(std::string_view id, int page) {
  auto& tabs = FindKind<Tabs>(id, "set of pages");
  if (page < 0 || page >= tabs.PageCount()) {
    throw ActError(kInvalidPropertyValue, tabs.Id() + " has no page " + std::to_string(page));
  }
  driver_.TurnTo(form_, tabs, page);
}

void ForEachValue(Control& control, const std::function<void(const std::string& id, const std::string& text)>& take) {
  const auto* grid = dynamic_cast<const Grid*>(&control);
  if (!grid) return take(control.Id(), control.ShownText());
  for (int row = grid->FixedRows(); row < grid->Rows(); ++row) {
    for (int column = grid->FixedColumns(); column < grid->Columns(); ++column) {
      if (!grid->Cell(row, column).empty()) take(grid->CellId(row, column), grid->Cell(row, column));
    }
  }
}

}  // namespace zendara

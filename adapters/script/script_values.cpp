#include "adapters/script/script_values.hpp"

#include <charconv>

#include "adapters/script/script.hpp"

namespace zendara {
namespace {

std::string CellId(const Grid& grid, int row, int column) {
  return grid.Id() + "[" + std::to_string(row) + "," + std::to_string(column) + "]";
}

// "[1,2]": what stands behind the name of a grid.
const std::string& CellOf(const Grid& grid, std::string_view place) {
  int row = 0;
  int column = 0;
  const char* end = place.data() + place.size();
  const auto first = std::from_chars(place.data() + 1, end, row);
  const auto second = std::from_chars(first.ptr + (first.ptr < end ? 1 : 0), end, column);
  if (CellId(grid, row, column) != grid.Id() + std::string(place) || second.ec != std::errc() || row < 0 ||
      row >= grid.Rows() || column < 0 || column >= grid.Columns()) {
    throw ScriptError(grid.Id() + " has no cell " + std::string(place));
  }
  return grid.Cell(row, column);
}

std::string ControlValue(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::kTextBox:
      return static_cast<const TextBox&>(control).Text();
    case ControlKind::kComboBox:
      return static_cast<const ComboBox&>(control).Text();
    case ControlKind::kCheckBox:
      return std::to_string(static_cast<const CheckBox&>(control).Value());
    case ControlKind::kOptionButton:
      return static_cast<const OptionButton&>(control).Value() ? "1" : "0";
    case ControlKind::kTabs:
      return std::to_string(static_cast<const Tabs&>(control).Tab());
    case ControlKind::kGrid: {
      const auto& grid = static_cast<const Grid&>(control);
      return grid.Rows() == 0 ? std::string() : grid.Text();
    }
    default:
      return control.Caption();
  }
}

}  // namespace

Control& FindControl(const Form& form, std::string_view id) {
  Control* control = form.Find(id);
  if (!control) throw ScriptError("screen " + form.Name() + " has no control " + std::string(id));
  return *control;
}

std::string ValueOf(const Form& form, const std::string& id) {
  const std::size_t bracket = id.find('[');
  const Control& control = FindControl(form, std::string_view(id).substr(0, bracket));
  if (bracket == std::string::npos) return ControlValue(control);
  if (control.Kind() != ControlKind::kGrid) throw ScriptError(control.Id() + " is no grid");
  return CellOf(static_cast<const Grid&>(control), std::string_view(id).substr(bracket));
}

void ForEachValue(Control& control, const std::function<void(const std::string& id, const std::string& text)>& tell) {
  if (control.Kind() != ControlKind::kGrid) return tell(control.Id(), ControlValue(control));
  const auto& grid = static_cast<const Grid&>(control);
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    for (int column = grid.FixedColumns(); column < grid.Columns(); ++column) {
      if (!grid.Cell(row, column).empty()) tell(CellId(grid, row, column), grid.Cell(row, column));
    }
  }
}

bool TakesFocus(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::kButton:
    case ControlKind::kTabs:
      return true;
    default:
      return IsEntered(control);
  }
}

bool IsEntered(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::kTextBox:
    case ControlKind::kComboBox:
    case ControlKind::kCheckBox:
    case ControlKind::kOptionButton:
    case ControlKind::kGrid:
      return true;
    default:
      return false;
  }
}

bool IsEmptyValue(const Control& control, const std::string& text) {
  const bool mark = control.Kind() == ControlKind::kCheckBox || control.Kind() == ControlKind::kOptionButton;
  return text.empty() || (mark && text == "0");
}

}  // namespace zendara

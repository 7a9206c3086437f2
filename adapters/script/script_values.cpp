#include "adapters/script/script_values.hpp"

#include <charconv>

#include "adapters/script/script.hpp"

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
    throw ScriptError(grid.Id() + " has no cell " + std::string(place));
  }
  return grid.Cell(row, column);
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
  if (bracket == std::string::npos) return control.ShownText();
  const auto* grid = dynamic_cast<const Grid*>(&control);
  if (!grid) throw ScriptError(control.Id() + " is no grid");
  return CellOf(*grid, std::string_view(id).substr(bracket));
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

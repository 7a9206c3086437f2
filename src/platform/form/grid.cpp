#include "zendara/forms/control.hpp"
#include "zendara/forms/form.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

void Grid::Resize(int rows, int columns, int fixed_rows, int fixed_columns) {
  rows_ = rows;
  columns_.assign(static_cast<std::size_t>(columns), {});
  cells_.assign(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns), {});
  fixed_rows_ = fixed_rows;
  fixed_columns_ = fixed_columns;
  row_ = fixed_rows;
  col_ = fixed_columns;
  Owner().Settle(*this);
  Changed();
}

std::size_t Grid::At(int row, int column) const {
  if (row < 0 || row >= rows_ || column < 0 || column >= Columns()) throw RuntimeError(kSubscriptOutOfRange);
  return static_cast<std::size_t>(row) * columns_.size() + static_cast<std::size_t>(column);
}

Grid::Column& Grid::ColumnAt(int column) {
  At(0, column);
  return columns_[static_cast<std::size_t>(column)];
}

const Grid::Column& Grid::ColumnAt(int column) const {
  At(0, column);
  return columns_[static_cast<std::size_t>(column)];
}

std::string Grid::CellId(int row, int column) const {
  return Id() + "[" + std::to_string(row) + "," + std::to_string(column) + "]";
}

const std::string& Grid::Cell(int row, int column) const { return cells_[At(row, column)]; }

void Grid::SetCell(int row, int column, std::string_view text) {
  cells_[At(row, column)] = text;
  Changed();
}

void Grid::Clear() {
  for (std::string& cell : cells_) cell.clear();
  Owner().Settle(*this);
  Changed();
}

bool Grid::IsCell(int row, int column) const {
  return row >= fixed_rows_ && row < rows_ && column >= fixed_columns_ && column < Columns();
}

void Grid::SetRow(int row) { SetCurrent(row, col_); }

void Grid::SetCol(int column) { SetCurrent(row_, column); }

void Grid::SetCurrent(int row, int column) {
  if (!IsCell(row, column)) throw RuntimeError(kInvalidPropertyValue);
  if (row == row_ && column == col_) return;
  row_ = row;
  col_ = column;
  Changed();
  if (On().selection) On().selection(Index());
}

void Grid::PressKey(int code, int /*shift*/) {
  const int row = row_ + (code == key::kPageDown) - (code == key::kPageUp);
  const int column = col_ + (code == key::kRight) - (code == key::kLeft);
  if (IsCell(row, column)) SetCurrent(row, column);
}

void RowPicker::Mark(int row) {
  marked_ = IsCell(row, FixedColumns()) ? row : kNoRow;
  if (marked_ != kNoRow) SetCurrent(row, FixedColumns());
  Changed();
}

bool RowPicker::Step(int rows) {
  if (!IsCell(Row() + rows, Col())) return false;
  SetRow(Row() + rows);
  return true;
}

void RowPicker::Click() {
  if (IsCell(Row(), Col()) && On().click) On().click(Index());
}

}  // namespace zendara

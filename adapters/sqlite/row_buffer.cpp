#include "adapters/sqlite/row_buffer.hpp"

#include <sqlite3.h>

namespace zendara::sqlite {

RowBuffer::Cell RowBuffer::CellOf(const Statement& statement, int column) {
  Cell cell;
  const int type = sqlite3_column_type(statement.get(), column);
  cell.null = type == SQLITE_NULL;
  cell.number = type == SQLITE_FLOAT || type == SQLITE_INTEGER;
  if (cell.number) cell.value = sqlite3_column_double(statement.get(), column);
  return cell;
}

void RowBuffer::Assign(const Statement& statement, int columns) {
  id_ = statement.Integer(0);
  cells_.clear();
  texts_.clear();
  for (int i = 1; i <= columns; ++i) {
    Cell cell = CellOf(statement, i);
    if (!cell.null && !cell.number) {
      const std::string_view text = statement.Text(i);
      cell.offset = texts_.size();
      cell.length = text.size();
      texts_ += text;
    }
    cells_.push_back(cell);
  }
}

bool RowBuffer::SameAs(const Statement& statement) const {
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const Cell& mine = cells_[i];
    const int column = static_cast<int>(i) + 1;
    const Cell other = CellOf(statement, column);
    if (mine.null != other.null || mine.number != other.number || mine.value != other.value) return false;
    if (!mine.null && !mine.number && TextOf(mine) != statement.Text(column)) return false;
  }
  return true;
}

Value RowBuffer::Read(int column, ColumnType type) const {
  const Cell& cell = cells_[static_cast<std::size_t>(column)];
  if (cell.null) return {};
  if (type == ColumnType::kDate && !cell.number) return Value(ReadDate(TextOf(cell)));
  if (cell.number) return Value(cell.value);
  return Value(TextOf(cell));
}

}  // namespace zendara::sqlite

// A row of a statement kept after the statement has moved on, in one block of memory that is used again.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "adapters/sqlite/statement.hpp"

namespace zendara::sqlite {

class RowBuffer {
 public:
  // Keeps `columns` columns of the statement's row, the row number before them.
  void Assign(const Statement& statement, int columns);
  // True when the statement's row is the same to the letter.
  bool SameAs(const Statement& statement) const;

  Value Read(int column, ColumnType type) const;
  std::int64_t id() const { return id_; }

 private:
  struct Cell {
    bool null = false;
    bool number = false;
    double value = 0;
    std::size_t offset = 0;
    std::size_t length = 0;
  };

  static Cell CellOf(const Statement& statement, int column);
  std::string_view TextOf(const Cell& cell) const { return std::string_view(texts_).substr(cell.offset, cell.length); }

  std::int64_t id_ = 0;
  std::vector<Cell> cells_;
  std::string texts_;
};

}  // namespace zendara::sqlite

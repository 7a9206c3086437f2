// Rows that were read together, each with its place in an index.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "adapters/postgres/wire.hpp"

namespace zendara::postgres {

// Columns of the answer: the row number, the version if it was asked for, the keys of the index, then columns of the
// table: those of `columns`.
struct RowBlock {
  Answer answer;
  int first_key = 1;
  int keys = 0;
  std::shared_ptr<const std::vector<int>> columns;  // where each column of the table is in the answer, or -1
};

// A row of a block, none at first.
struct Row {
  std::shared_ptr<const RowBlock> block;
  int at = 0;

  explicit operator bool() const { return block != nullptr; }
  std::int64_t Number() const { return block->answer.Integer(at, 0); }
  std::string_view Key(int key) const { return block->answer.Bytes(at, block->first_key + key); }
  bool Has(int ordinal) const { return (*block->columns)[static_cast<std::size_t>(ordinal)] >= 0; }
  Value Column(int ordinal, ColumnType type) const {
    return block->answer.Read(at, (*block->columns)[static_cast<std::size_t>(ordinal)], type);
  }
};

}  // namespace zendara::postgres

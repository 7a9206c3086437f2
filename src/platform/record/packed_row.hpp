// A row of a query kept after the query has gone on, in one block of memory.
#pragma once

#include <string>

#include "platform/record/cursor.hpp"

namespace zendara {

class PackedRow {
 public:
  PackedRow() = default;
  // The row on which the query stands.
  explicit PackedRow(const QueryCursor& query);

  Value Read(int column) const;

 private:
  std::string bytes_;  // where each column starts; then of each column its kind and what it holds, nothing for Null
};

}  // namespace zendara

// A query that was prepared before.
#pragma once

#include <vector>

#include "adapters/sqlite/statement.hpp"

namespace zendara::sqlite {

// Whoever reads it holds the connection, so that nobody else runs the statement meanwhile.
struct PreparedQuery {
  std::vector<ColumnDef> columns;
  Statement statement;
};

}  // namespace zendara::sqlite

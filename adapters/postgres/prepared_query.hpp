// A query that was printed before; the server's statement of it is kept by its text.
#pragma once

#include <string>
#include <vector>

#include "adapters/postgres/dialect.hpp"

namespace zendara::postgres {

struct PreparedQuery {
  std::vector<ColumnDef> columns;
  std::string text;
  std::vector<Argument> arguments;
  std::vector<const Relation*> relations;  // that it reads
};

}  // namespace zendara::postgres

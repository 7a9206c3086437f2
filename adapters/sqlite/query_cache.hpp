// Statements of queries that were prepared before, by their text without the values of its literals.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/statement.hpp"

namespace zendara::sqlite {

// Whoever reads it holds the connection, so that nobody else runs the statement meanwhile.
struct PreparedQuery {
  std::string shape;  // sql::Tokens::shape
  std::vector<ColumnDef> columns;
  Statement statement;
};

// The tables of a connection keep their definitions as long as it is open, so what was checked once stays right.
class QueryCache {
 public:
  // nullptr if it is not there.
  std::shared_ptr<PreparedQuery> Find(std::string_view shape);
  // The query that was not used for longest goes when there are many. One of a very long text is not kept.
  void Keep(const std::shared_ptr<PreparedQuery>& query);
  void Clear() { queries_.clear(); }

 private:
  std::vector<std::shared_ptr<PreparedQuery>> queries_;  // the last used first
};

}  // namespace zendara::sqlite

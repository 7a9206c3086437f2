// Rows that are still to come, in a temporary file of the store's own that goes with them: it takes a cache of fixed
// size, whatever the number of rows, and no lock of the database.
#pragma once

#include <memory>
#include <string>

#include "adapters/sqlite/statement.hpp"

namespace zendara::sqlite {

class RowsAside {
 public:
  // Takes the row on which the statement stands and all that follow. `file` is the name for errors.
  RowsAside(Statement& rows, const std::string& file);

  // The same rows, before the first of them.
  Statement& Rows() { return rows_; }

 private:
  struct CloseDatabase {
    void operator()(sqlite3* database) const;
  };

  std::unique_ptr<sqlite3, CloseDatabase> database_;
  Statement rows_;
};

}  // namespace zendara::sqlite

#include "adapters/sqlite/rows_aside.hpp"

#include <sqlite3.h>

namespace zendara::sqlite {

void RowsAside::CloseDatabase::operator()(sqlite3* database) const { sqlite3_close_v2(database); }

RowsAside::RowsAside(Statement& rows, const std::string& file) {
  sqlite3* database = nullptr;
  // A database without a name is temporary.
  const int code = sqlite3_open_v2("", &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  database_.reset(database);
  if (code != SQLITE_OK) Fail(code, file, database ? sqlite3_errmsg(database) : "");

  const int columns = sqlite3_column_count(rows.get());
  std::string names;
  std::string places;
  for (int i = 0; i < columns; ++i) {
    names += (i > 0 ? ", c" : "c") + std::to_string(i);
    places += i > 0 ? ", ?" : "?";
  }
  for (const std::string& preparation :
       {std::string("PRAGMA journal_mode = OFF"), "CREATE TABLE aside (" + names + ")", std::string("BEGIN")}) {
    Statement(database, file, preparation).Run();
  }
  Statement insert(database, file, "INSERT INTO aside VALUES (" + places + ")");
  do {
    for (int i = 0; i < columns; ++i) insert.BindColumn(i + 1, rows, i);
    insert.Run();
  } while (rows.Step());
  Statement(database, file, "COMMIT").Run();
  rows_ = Statement(database, file, "SELECT * FROM aside ORDER BY rowid");
}

}  // namespace zendara::sqlite

// How a stored table stands on the server.
//
// The rows of all companies stand in one relation: the name of the database file, the number of the row, the columns of
// the table, and for each column that is in an index its sort key, made here (sort_key.hpp). Indexes are on file name,
// keys and row number, so their order is that of bytes, whatever the server thinks of languages.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zendara/record_engine.hpp"

namespace zendara::postgres {

inline constexpr std::string_view kFileColumn = "zendara_file";
inline constexpr std::string_view kRowColumn = "zendara_row";

struct Relation {
  // `name`: of the relation, unquoted.
  Relation(TableDef table, std::string_view relation);

  TableDef definition;
  std::string plain_name;
  // For statements, quoted.
  std::string name;
  std::vector<std::string> columns;
  std::vector<std::string> keys;  // of each column; empty for one that is in no index
  std::vector<bool> never_null;   // the column belongs to the primary key

  // What an index is ordered by behind the file name: keys, Nulls as the least of all, and the row number unless the
  // index is the primary key's.
  std::vector<std::string> OrderOf(const IndexDef& index) const;

  // The statements that make it: the relation, then its indexes.
  std::vector<std::string> Creation() const;
  // Of these indexes, quoted.
  std::vector<std::string> IndexNames() const;
};

// What relations have in common whose tables are the same but for widths and letter case: these share one.
std::string ShapeOf(const TableDef& table);
// The relation of a table, before others of that name but another shape.
std::string PlainName(const TableDef& table);

}  // namespace zendara::postgres

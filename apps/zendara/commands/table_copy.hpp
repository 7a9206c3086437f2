// The tables of one database copied into another one, and the two compared.
#pragma once

#include <cstdint>
#include <string>

#include "apps/zendara/commands/console.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

// A database that is read, and the one of the same name that is written. Rows are read forward-only, in the order of
// the primary key or, of a table without one, in that of writing.
struct DatabasePair {
  std::string name;  // of the file, for messages
  Database& from;
  Database& to;
};

// All rows and the query definition of the component. REQUIRES: `to` has the tables of `from`. CommandError for what
// is no value of its column.
void CopyAll(const DatabasePair& files, Console& console);
// The rows with that value in their first column that `to` has no row with the same primary key of; how many these
// were. A table that one of the two does not have, or has with other columns, is left out.
std::int64_t CopyMissing(const DatabasePair& files, const std::string& table, const std::string& code,
                         Console& console);

// "1 row", "12 rows".
std::string RowsText(std::int64_t count);

// How many rows the two have in common. CommandError with the first difference: file, table, key and column.
std::int64_t CompareAll(const DatabasePair& files, Console& console);
// A line for each table of `from` whose rows are not all there with the same values.
std::string Differences(const DatabasePair& files, Console& console);

}  // namespace zendara

// Rows of a table as they stand in the file, for messages and for output: what other programs wrote into them too.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zendara/record_engine.hpp"

namespace zendara {

struct StoredCell {
  Value value;        // a date that is none: its text
  std::string fault;  // why it cannot be a value of its column; empty: it is one
};

// A column of the current row.
StoredCell ReadCell(Recordset& rows, int ordinal);

// The current row by its primary key, "key 00001 002"; by `number`, counted from 1, where the table has none.
std::string NameOfRow(Recordset& rows, const TableDef& table, std::int64_t number);

// On one line and in UTF-8 whatever the text holds: other bytes as \xNN.
std::string Printable(std::string_view text);
// The same in quotes.
std::string InQuotes(std::string_view text);

}  // namespace zendara

// One statement of the dialect, read and checked against the tables of a database.
#pragma once

#include <functional>
#include <string_view>

#include "platform/sql/statement.hpp"
#include "platform/sql/tokenizer.hpp"

namespace zendara::sql {

// Definition of a table by its name in any case, nullptr if the database has none. The definition must outlive the
// statement.
using Catalogue = std::function<const TableDef*(std::string_view name)>;

// One SELECT, or the name of a table for all of it. Errors: 3078 unknown table, 3061 unknown or doubtful column, 3421 a
// comparison of different types or a sum of what are no numbers, 3075 everything else. They depend on the types of the
// literals, never on their values.
Select ParseSelect(const Tokens& tokens, const Catalogue& catalogue);

// One DELETE * FROM table [WHERE ...], with the same errors.
Delete ParseDelete(const Tokens& tokens, const Catalogue& catalogue);

}  // namespace zendara::sql

// One statement of the dialect, read and checked against the tables of a database.
#pragma once

#include <functional>
#include <string_view>

#include "platform/sql/statement.hpp"

namespace zendara::sql {

// Definition of a table by its name in any case, nullptr if the database has none. The definition must outlive the
// statement.
using Catalogue = std::function<const TableDef*(std::string_view name)>;

// `window`: what the two-digit years of dates mean.

// One SELECT, or the name of a table for all of it. Errors: 3078 unknown table, 3061 unknown or doubtful column, 3421 a
// comparison of different types, 3075 everything else.
Select ParseSelect(std::string_view sql, const Catalogue& catalogue, YearWindow window);

// One DELETE * FROM table [WHERE ...], with the same errors.
Delete ParseDelete(std::string_view sql, const Catalogue& catalogue, YearWindow window);

}  // namespace zendara::sql

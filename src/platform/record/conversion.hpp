// What becomes of a value that is assigned to a column.
#pragma once

#include "zendara/record_engine.hpp"

namespace zendara {

// Null stays Null. Text column: number and date as their texts, 3163 when longer than the width. Number column: a text
// by CDbl, a date as its serial. Date column: a text in any order that ReadDate knows, a number as a serial. 3421 for
// whatever does not fit.
Value ConvertForColumn(const Value& value, const ColumnDef& column, YearWindow window);

}  // namespace zendara

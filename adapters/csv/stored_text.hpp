// Stored values as the fields of a CSV file: Null unquoted and empty, dates as yyyy-mm-dd, with a time of day
// yyyy-mm-ddThh:mm:ss, numbers with a decimal point. What is written reads back as the same value.
#pragma once

#include <optional>
#include <string>

#include "adapters/csv/csv.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

void AppendStored(const Value& value, std::string& row);
// Nothing when the field is no value of that type.
std::optional<Value> ReadStored(const CsvField& field, ColumnType type);

}  // namespace zendara

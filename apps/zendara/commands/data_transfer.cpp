#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>

#include "adapters/csv/csv.hpp"
#include "adapters/csv/stored_text.hpp"
#include "apps/zendara/commands/command_error.hpp"
#include "apps/zendara/commands/company_data.hpp"
#include "apps/zendara/commands/stored_row.hpp"
#include "platform/record/names.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

struct OpenTable {
  CompanyData data;
  std::shared_ptr<Database> database;
  std::shared_ptr<Recordset> rows;
  TableDef stored;    // as it stands in the file
  std::string place;  // for messages
};

const StoredFile& FileFor(const TableOptions& options, const CompanyData& data) {
  if (options.file.empty()) {
    const StoredFile* file = FileWithTable(options.table);
    if (!file) throw CommandError("no database file holds a table " + options.table);
    return *file;
  }
  for (const StoredFile& file : StoredFiles()) {
    if (SameName(data.FileName(file.kind), options.file)) return file;
  }
  throw CommandError(options.file + " is no database file of this company and year");
}

OpenTable Open(const TableOptions& options, Console& console) {
  OpenTable table{.data = CompanyData(options.company), .database = {}, .rows = {}, .stored = {}, .place = {}};
  const StoredFile& file = FileFor(options, table.data);
  table.place = table.data.FileName(file.kind) + ": " + options.table;
  table.database = table.data.Open(file.kind, console);
  console.Doing("opening " + table.place);
  table.rows = table.database->OpenRecordset(options.table, RecordsetType::kTable);
  for (const TableDef& stored : table.database->Tables()) {
    if (SameName(stored.name, options.table)) table.stored = stored;
  }
  return table;
}

// Ordinals of the columns that the header names.
std::vector<int> ReadHeader(CsvReader& reader, const std::vector<ColumnDef>& columns) {
  std::vector<CsvField> header;
  if (!reader.Next(header)) throw CsvError(1, "there is no header of column names");
  std::vector<int> ordinals;
  for (const CsvField& name : header) {
    const auto found = std::ranges::find_if(columns, [&](const ColumnDef& c) { return SameName(c.name, name.text); });
    if (found == columns.end()) throw CsvError(1, "the table has no column \"" + name.text + "\"");
    const int ordinal = static_cast<int>(found - columns.begin());
    if (std::ranges::count(ordinals, ordinal) > 0) throw CsvError(1, "column " + found->name + " is named twice");
    ordinals.push_back(ordinal);
  }
  return ordinals;
}

void SetField(Recordset& rows, int ordinal, const CsvField& field) {
  const ColumnDef& column = rows.Columns()[static_cast<std::size_t>(ordinal)];
  const std::optional<Value> value = ReadStored(field, column.type);
  if (!value) {
    const std::string wanted = column.type == ColumnType::kDate ? "date as yyyy-mm-dd" : "number with a decimal point";
    throw CommandError(column.name + ": \"" + field.text + "\" is no " + wanted);
  }
  try {
    rows.Fields(ordinal).Set(*value);
  } catch (const RuntimeError& error) {
    throw CommandError(column.name + ": " + error.what());
  }
}

std::int64_t LoadRows(CsvReader& reader, Recordset& rows, Console& console) {
  const std::vector<int> ordinals = ReadHeader(reader, rows.Columns());
  std::vector<CsvField> row;
  std::int64_t count = 0;
  while (reader.Next(row)) {
    const bool blank_line = row.size() == 1 && row[0].IsNull() && ordinals.size() > 1;
    if (blank_line) continue;
    if (row.size() != ordinals.size()) {
      throw CsvError(reader.Line(),
                     std::to_string(row.size()) + " fields, the header has " + std::to_string(ordinals.size()));
    }
    try {
      rows.AddNew();
      for (std::size_t i = 0; i < ordinals.size(); ++i) SetField(rows, ordinals[i], row[i]);
      rows.Update();
    } catch (const CommandError& error) {
      throw CsvError(reader.Line(), error.what());
    } catch (const RuntimeError& error) {
      throw CsvError(reader.Line(), error.what());
    }
    ++count;
    console.Progress("rows loaded", count);
  }
  return count;
}

// Prints the rows. What cannot be a value of its column goes out as it stands, so that no row is lost; a load refuses
// it by its line. The first such value, and how many there are, or nothing.
std::string DumpRows(const OpenTable& table, Console& console) {
  Recordset& rows = *table.rows;
  const std::vector<ColumnDef>& columns = rows.Columns();
  std::string line;
  std::string first_fault;
  std::int64_t faults = 0;
  for (std::int64_t number = 1; !rows.Eof(); rows.MoveNext(), ++number) {
    console.Doing("reading " + table.place + ": row " + std::to_string(number));
    line.clear();
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (i > 0) line += ',';
      const StoredCell cell = ReadCell(rows, static_cast<int>(i));
      AppendStored(cell.value, line);
      if (cell.fault.empty() || faults++ > 0) continue;
      first_fault = NameOfRow(rows, table.stored, number) + ": " + columns[i].name + ": " + cell.fault;
    }
    console.Out(line += kCsvLineEnd);
    console.Progress("rows dumped", number);
  }
  if (faults < 2) return first_fault;
  return first_fault + "; " + std::to_string(faults - 1) + " more, all shown by `data check`";
}

}  // namespace

int DataLoad(const TableOptions& options, const std::string& csv_path, Console& console) {
  std::ifstream file(csv_path, std::ios::binary);
  if (!file) throw CommandError("opening " + csv_path + ": " + std::strerror(errno));
  const OpenTable table = Open(options, console);
  console.Doing("loading " + table.place);
  try {
    Transaction transaction(*table.database);
    CsvReader reader(file);
    const std::int64_t count = LoadRows(reader, *table.rows, console);
    transaction.Commit();
    console.Out(table.place + ": " + std::to_string(count) + (count == 1 ? " row" : " rows") + " loaded\n");
  } catch (const CsvError& error) {
    throw CommandError(csv_path + ": line " + std::to_string(error.line()) + ": " + error.what() +
                       "; no row was loaded");
  }
  return 0;
}

int DataDump(const TableOptions& options, Console& console) {
  const OpenTable table = Open(options, console);
  std::string header;
  for (const ColumnDef& column : table.rows->Columns()) {
    if (!header.empty()) header += ',';
    AppendCsvText(column.name, header);
  }
  console.Out(header += kCsvLineEnd);
  const std::string fault = DumpRows(table, console);
  if (!fault.empty()) throw CommandError(table.place + ": " + fault);
  return 0;
}

}  // namespace zendara

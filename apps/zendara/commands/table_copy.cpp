#include "apps/zendara/commands/table_copy.hpp"

#include <algorithm>
#include <memory>
#include <vector>

#include "apps/zendara/commands/command_error.hpp"
#include "apps/zendara/commands/stored_row.hpp"
#include "platform/record/names.hpp"
#include "runtime/number.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr const char* kQuery = "Consulta";  // the one that the component keeps in a file

std::shared_ptr<Recordset> Forward(Database& database, const TableDef& table) {
  return database.OpenRecordset(table.name, RecordsetType::kForward);
}

int Columns(const TableDef& table) { return static_cast<int>(table.columns.size()); }

void CopyRow(const std::string& place, const TableDef& table, std::int64_t number, Recordset& from, Recordset& to) {
  to.AddNew();
  for (int i = 0; i < Columns(table); ++i) {
    const StoredCell cell = ReadCell(from, i);
    if (!cell.fault.empty()) {
      throw CommandError(place + ": " + NameOfRow(from, table, number) + ": " + from.Fields(i).Column().name + ": " +
                         cell.fault + "; nothing was written");
    }
    if (!cell.value.IsNull()) to.Fields(i).Set(cell.value);
  }
  to.Update();
}

std::string Shown(const Value& value) { return value.IsNull() ? "Null" : InQuotes(CStr(value)); }

// The first column in which two rows differ, or none.
int FirstOtherColumn(const TableDef& table, Recordset& a, Recordset& b) {
  for (int i = 0; i < Columns(table); ++i) {
    if (ReadCell(a, i).value != ReadCell(b, i).value) return i;
  }
  return -1;
}

std::int64_t CompareTables(const std::string& place, const TableDef& table, Recordset& from, Recordset& to,
                           Console& console) {
  std::int64_t number = 1;
  for (; !from.Eof() && !to.Eof(); from.MoveNext(), to.MoveNext(), ++number) {
    if (const int other = FirstOtherColumn(table, from, to); other >= 0) {
      throw CommandError(place + ": " + NameOfRow(from, table, number) + ": " + from.Fields(other).Column().name +
                         ": " + Shown(ReadCell(from, other).value) + " was read, " + Shown(ReadCell(to, other).value) +
                         " was written");
    }
    console.Progress(place + ": rows compared", number);
  }
  if (!from.Eof()) throw CommandError(place + ": " + NameOfRow(from, table, number) + ": was not written");
  if (!to.Eof()) throw CommandError(place + ": " + NameOfRow(to, table, number) + ": was written and is no row there");
  return number - 1;
}

std::shared_ptr<QueryDef> FindQuery(Database& database) try {
  return database.QueryDefs(kQuery);
} catch (const RuntimeError& error) {
  if (error.number() != kItemNotFound) throw;
  return nullptr;
}

const TableDef* Find(const std::vector<TableDef>& tables, const std::string& name) {
  const auto found = std::ranges::find_if(tables, [&](const TableDef& table) { return SameName(table.name, name); });
  return found == tables.end() ? nullptr : &*found;
}

// Looks for rows of one table in the other by the primary key, which both have.
class RowFinder {
 public:
  RowFinder(Database& to, const TableDef& table)
      : key_(table.Primary()->columns), rows_(to.OpenRecordset(table.name, RecordsetType::kTable)) {
    rows_->SetIndex(table.Primary()->name);
  }

  // It is the current one of Rows() then.
  bool Find(Recordset& row) {
    std::vector<Value> key;
    for (const int column : key_) key.push_back(ReadCell(row, column).value);
    rows_->Seek(key);
    return !rows_->NoMatch();
  }
  Recordset& Rows() { return *rows_; }

 private:
  std::vector<int> key_;
  std::shared_ptr<Recordset> rows_;
};

// What is to say of a table that stays as it is; nothing if it has all rows.
std::string Difference(const DatabasePair& files, const TableDef& table, Console& console) {
  const std::string place = files.name + ": " + table.name;
  const std::shared_ptr<Recordset> from = Forward(files.from, table);
  if (!table.Primary()) {
    try {
      CompareTables(place, table, *from, *Forward(files.to, table), console);
      return {};
    } catch (const CommandError&) {
      return "other rows";
    }
  }
  RowFinder finder(files.to, table);
  std::int64_t missing = 0;
  std::int64_t others = 0;
  for (std::int64_t number = 1; !from->Eof(); from->MoveNext(), ++number) {
    if (!finder.Find(*from)) {
      ++missing;
    } else if (FirstOtherColumn(table, *from, finder.Rows()) >= 0) {
      ++others;
    }
    console.Progress(place + ": rows compared", number);
  }
  std::string said = missing ? RowsText(missing) + " missing" : "";
  if (others) said += (missing ? ", " : "") + RowsText(others) + " with other values";
  return said;
}

}  // namespace

std::string RowsText(std::int64_t count) { return std::to_string(count) + (count == 1 ? " row" : " rows"); }

void CopyAll(const DatabasePair& files, Console& console) {
  for (const TableDef& table : files.from.Tables()) {
    const std::string place = files.name + ": " + table.name;
    console.Doing("copying " + place);
    const std::shared_ptr<Recordset> from = Forward(files.from, table);
    const std::shared_ptr<Recordset> to = files.to.OpenRecordset(table.name, RecordsetType::kTable);
    for (std::int64_t number = 1; !from->Eof(); from->MoveNext(), ++number) {
      CopyRow(place, table, number, *from, *to);
      console.Progress(place + ": rows copied", number);
    }
  }
  if (const auto query = FindQuery(files.from)) files.to.CreateQueryDef(query->Name(), query->Sql());
}

std::int64_t CopyMissing(const DatabasePair& files, const std::string& name, const std::string& code,
                         Console& console) {
  const std::vector<TableDef> tables = files.from.Tables();
  const std::vector<TableDef> there = files.to.Tables();
  const TableDef* table = Find(tables, name);
  const TableDef* other = Find(there, name);
  if (!table || !other || *table != *other || !table->Primary()) return 0;
  const std::string place = files.name + ": " + name;
  console.Doing("entering the company in " + place);
  RowFinder finder(files.to, *table);
  std::int64_t added = 0;
  const std::shared_ptr<Recordset> from = Forward(files.from, *table);
  for (std::int64_t number = 1; !from->Eof(); from->MoveNext(), ++number) {
    if (ReadCell(*from, 0).value != Value(code) || finder.Find(*from)) continue;
    CopyRow(place, *table, number, *from, finder.Rows());
    ++added;
  }
  return added;
}

std::int64_t CompareAll(const DatabasePair& files, Console& console) {
  console.Doing("comparing " + files.name);
  const std::vector<TableDef> tables = files.from.Tables();
  if (files.to.Tables() != tables) throw CommandError(files.name + ": the tables are others than those that were read");
  const auto query = FindQuery(files.from);
  const auto copied = FindQuery(files.to);
  if ((query ? query->Sql() : "") != (copied ? copied->Sql() : "")) {
    throw CommandError(files.name + ": query " + kQuery + ": is another one than the one that was read");
  }
  std::int64_t rows = 0;
  for (const TableDef& table : tables) {
    const std::string place = files.name + ": " + table.name;
    console.Doing("comparing " + place);
    rows += CompareTables(place, table, *Forward(files.from, table), *Forward(files.to, table), console);
  }
  return rows;
}

std::string Differences(const DatabasePair& files, Console& console) {
  const std::vector<TableDef> there = files.to.Tables();
  std::string lines;
  for (const TableDef& table : files.from.Tables()) {
    console.Doing("comparing " + files.name + ": " + table.name);
    const TableDef* other = Find(there, table.name);
    const std::string said = !other            ? "missing table"
                             : *other != table ? "other columns or indexes"
                                               : Difference(files, table, console);
    if (!said.empty()) lines += files.name + ": " + table.name + ": " + said + "\n";
  }
  return lines;
}

}  // namespace zendara

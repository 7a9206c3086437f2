#include "adapters/sqlite/connection.hpp"

#include <sqlite3.h>

#include <charconv>
#include <utility>

#include "platform/record/names.hpp"
#include "platform/sql/printer.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::sqlite {
namespace {

using sql::QuoteName;

constexpr int kApplicationId = 0x5a454e44;  // "ZEND", tells the system's files from others of the same store
constexpr int kBusyMilliseconds = 5000;
constexpr std::string_view kOwnTables = "zendara_";  // prefix of tables that are not the host's

int CompareTexts(void* order, int a_size, const void* a, int b_size, const void* b) {
  return static_cast<const SpanishOrder*>(order)->Compare(
      {static_cast<const char*>(a), static_cast<std::size_t>(a_size)},
      {static_cast<const char*>(b), static_cast<std::size_t>(b_size)});
}

std::string TypeText(const ColumnDef& column) {
  switch (column.type) {
    case ColumnType::kText:
      return "TEXT(" + std::to_string(column.width) + ") COLLATE es";
    case ColumnType::kNumber:
      return "DOUBLE";
    case ColumnType::kDate:
      return "DATE";
  }
  return {};
}

ColumnDef ReadColumn(std::string name, std::string_view type) {
  if (type.starts_with("DOUBLE")) return {std::move(name), ColumnType::kNumber, 0};
  if (type.starts_with("DATE")) return {std::move(name), ColumnType::kDate, 0};
  int width = 0;
  if (const auto open = type.find('('); open != std::string_view::npos) {
    std::from_chars(type.data() + open + 1, type.data() + type.size(), width);
  }
  return {std::move(name), ColumnType::kText, width};
}

// Index names are the database's in this store and the table's in the system's.
std::string StoredIndexName(std::string_view table, std::string_view index) {
  return std::string(table) + "." + std::string(index);
}

}  // namespace

Connection::Connection(const std::filesystem::path& path, std::string name, std::shared_ptr<const SpanishOrder> order,
                       int flags)
    : name_(std::move(name)), order_(std::move(order)) {
  const int code = sqlite3_open_v2(path.c_str(), &database_, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  try {
    if (code != SQLITE_OK) Fail(code, name_, database_ ? sqlite3_errmsg(database_) : "");
    sqlite3_extended_result_codes(database_, 1);
    sqlite3_busy_timeout(database_, kBusyMilliseconds);
    sqlite3_create_collation_v2(database_, "es", SQLITE_UTF8, const_cast<SpanishOrder*>(order_.get()), CompareTexts,
                                nullptr);
    Run("PRAGMA synchronous = FULL");
  } catch (...) {
    sqlite3_close_v2(database_);
    throw;
  }
}

Connection::~Connection() {
  tables_.clear();
  queries_.Clear();
  data_version_ = Statement();
  sqlite3_close_v2(database_);
}

std::shared_ptr<Connection> Connection::Open(const std::filesystem::path& path, const std::string& name,
                                             std::shared_ptr<const SpanishOrder> order) {
  std::shared_ptr<Connection> connection(new Connection(path, name, std::move(order), SQLITE_OPEN_READWRITE));
  Statement id = connection->Prepare("PRAGMA application_id");
  if (!id.Step() || id.Integer(0) != kApplicationId) throw RuntimeError(kForeignFile, {name});
  return connection;
}

std::shared_ptr<Connection> Connection::Create(const std::filesystem::path& path, const std::string& name,
                                               std::shared_ptr<const SpanishOrder> order) {
  try {
    std::shared_ptr<Connection> connection(
        new Connection(path, name, std::move(order), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE));
    connection->Run("PRAGMA journal_mode = WAL");
    connection->Begin();
    connection->Run("PRAGMA application_id = " + std::to_string(kApplicationId));
    connection->Run("CREATE TABLE zendara_queries (name TEXT PRIMARY KEY COLLATE NOCASE, sql TEXT NOT NULL)");
    connection->Commit();
    return connection;
  } catch (...) {
    std::error_code ignored;
    for (const std::string_view suffix : {"", "-wal", "-shm", "-journal"}) {
      std::filesystem::remove(std::filesystem::path(path) += suffix, ignored);
    }
    throw;
  }
}

std::size_t Connection::Limit(int number) const {
  return static_cast<std::size_t>(sqlite3_limit(database_, number, -1));
}

std::int64_t Connection::Changes() const { return sqlite3_changes64(database_); }

void Connection::Acquire(Holder* next) {
  Holder* holder = std::exchange(holder_, nullptr);
  if (holder) holder->Park();
  holder_ = next;
}

void Connection::Release(const Holder* holder) {
  if (holder_ == holder) holder_ = nullptr;
}

TableInfo* Connection::FindTable(std::string_view name) {
  const std::string key = LCase(name);
  if (const auto known = tables_.find(key); known != tables_.end()) return known->second.get();
  Acquire(nullptr);
  for (const std::string& table : TableNames()) {
    if (!SameName(table, name)) continue;
    return tables_.emplace(key, ReadDefinition(table)).first->second.get();
  }
  return nullptr;
}

std::vector<std::string> Connection::TableNames() {
  std::vector<std::string> names;
  Statement tables = Prepare("SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY rowid");
  while (tables.Step()) {
    const std::string_view name = tables.Text(0);
    if (!name.starts_with(kOwnTables) && !name.starts_with("sqlite_")) names.emplace_back(name);
  }
  return names;
}

std::unique_ptr<TableInfo> Connection::ReadDefinition(const std::string& table) {
  auto info = std::make_unique<TableInfo>();
  info->definition.name = table;
  info->columns = "rowid";
  Statement columns = Prepare("PRAGMA table_info(" + QuoteName(table) + ")");
  while (columns.Step()) {
    info->definition.columns.push_back(ReadColumn(std::string(columns.Text(1)), columns.Text(2)));
    info->columns += ", " + QuoteName(columns.Text(1));
  }
  Statement indexes =
      Prepare("SELECT name, \"unique\" FROM pragma_index_list(" + QuoteName(table) + ") ORDER BY seq DESC");
  while (indexes.Step()) {
    const std::string stored(indexes.Text(0));
    IndexDef index;
    index.name = stored.starts_with(table + ".") ? stored.substr(table.size() + 1) : stored;
    index.primary = indexes.Integer(1) != 0;
    Statement keys = Prepare("PRAGMA index_info(" + QuoteName(stored) + ")");
    while (keys.Step()) index.columns.push_back(static_cast<int>(keys.Integer(1)));
    info->definition.indexes.push_back(std::move(index));
  }
  return info;
}

void Connection::CreateTable(const TableDef& table) {
  if (FindTable(table.name)) throw RuntimeError(kTableExists, {table.name});
  Acquire(nullptr);
  const IndexDef* primary = table.Primary();
  std::string columns;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const ColumnDef& column = table.columns[i];
    columns += (i ? ", " : "") + QuoteName(column.name) + " " + TypeText(column);
    for (const int key : primary ? primary->columns : std::vector<int>()) {
      if (static_cast<std::size_t>(key) == i) columns += " NOT NULL";
    }
  }
  Run("SAVEPOINT create_table");
  try {
    Run("CREATE TABLE " + QuoteName(table.name) + " (" + columns + ")");
    for (const IndexDef& index : table.indexes) {
      std::string keys;
      for (const int key : index.columns) {
        keys += (keys.empty() ? "" : ", ") + QuoteName(table.columns[static_cast<std::size_t>(key)].name);
      }
      Run(std::string("CREATE ") + (index.primary ? "UNIQUE " : "") + "INDEX " +
          QuoteName(StoredIndexName(table.name, index.name)) + " ON " + QuoteName(table.name) + " (" + keys + ")");
    }
    Run("RELEASE create_table");
  } catch (...) {
    if (!sqlite3_get_autocommit(database_)) {
      Run("ROLLBACK TO create_table");
      Run("RELEASE create_table");
    }
    throw;
  }
}

std::int64_t Connection::Count(TableInfo& table) {
  Acquire(nullptr);
  if (!data_version_) data_version_ = Prepare("PRAGMA data_version");
  data_version_.Step();
  const std::int64_t version = data_version_.Integer(0);
  data_version_.Reset();
  if (table.count < 0 || table.count_version != version) {
    Statement count = Prepare("SELECT count(*) FROM " + QuoteName(table.definition.name));
    count.Step();
    table.count = count.Integer(0);
    table.count_version = version;
  }
  return table.count;
}

void Connection::AddToCount(TableInfo& table, std::int64_t rows) {
  if (table.count >= 0) table.count += rows;
}

void Connection::Begin() {
  Acquire(nullptr);
  Run("BEGIN IMMEDIATE");
  in_transaction_ = true;
}

void Connection::Commit() {
  Acquire(nullptr);
  // A failure such as a full disk may have undone the transaction already.
  if (!in_transaction_ || sqlite3_get_autocommit(database_)) {
    in_transaction_ = false;
    throw RuntimeError(kNoTransaction);
  }
  Run("COMMIT");
  in_transaction_ = false;
}

void Connection::Rollback() {
  Acquire(nullptr);
  if (!in_transaction_) throw RuntimeError(kNoTransaction);
  in_transaction_ = false;
  for (auto& [name, table] : tables_) table->count = -1;
  if (!sqlite3_get_autocommit(database_)) Run("ROLLBACK");
}

}  // namespace zendara::sqlite

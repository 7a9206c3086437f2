#include "adapters/sqlite/connection.hpp"

#include <sqlite3.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <utility>

#include "adapters/sqlite/stale_log.hpp"
#include "platform/record/names.hpp"
#include "platform/sql/printer.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::sqlite {
namespace {

namespace fs = std::filesystem;
using sql::QuoteName;

constexpr int kApplicationId = 0x5a454e44;  // "ZEND", tells the system's files from others of the same store
// Of the header of a file.
constexpr int kHeaderSize = 100;
constexpr std::string_view kMagic = "SQLite format 3";
constexpr std::size_t kWriteVersion = 18;
constexpr std::size_t kReadVersion = 19;
constexpr std::size_t kIdAt = 68;

// Asking whether the file was replaced costs a tenth of a look-up: those that follow each other at once do not ask.
constexpr auto kCheckAgain = std::chrono::milliseconds(1);

constexpr int kBloomFilter = 0x80000;  // one of the ways in which the store speeds up joins, by its number for that

constexpr int kPrimaryCode = 0xff;  // of an extended result code

// Waiting for another writer: short sleeps of random lengths, so that none of many is left behind. Who had to wait lets
// the others first for a while, else the one that has just written, being awake, would be the next one again.
constexpr auto kCrowded = std::chrono::seconds(1);
constexpr int kShortestSleep = 500;  // microseconds
constexpr int kLongestSleep = 2000;

// The log is folded into the file each time that it has grown by so many pages. It can begin anew only when nobody
// reads it any more; whoever folds it waits for that, but not for long, since he keeps the writers out meanwhile.
constexpr int kPagesToFold = 1000;
constexpr int kWaitForReaders = 50'000;  // microseconds

constexpr std::string_view kCreateNumbers =
    "CREATE TABLE IF NOT EXISTS zendara_numbers (name TEXT PRIMARY KEY COLLATE NOCASE, last INTEGER NOT NULL)";
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

fs::path LogOf(fs::path file) { return file += "-wal"; }

std::string UnchangingUri(const fs::path& path) {
  std::error_code none;
  std::string uri = "file://";
  for (const char c : fs::absolute(path, none).string()) {
    uri += c == '%' ? "%25" : c == '?' ? "%3f" : c == '#' ? "%23" : std::string(1, c);
  }
  return uri + "?immutable=1";
}

}  // namespace

Connection::Connection(const char* path, std::string name, std::shared_ptr<const SpanishOrder> order, int flags)
    : name_(std::move(name)), order_(std::move(order)) {
  const int code = sqlite3_open_v2(path, &database_, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  try {
    if (code != SQLITE_OK) Fail(code, name_, database_ ? sqlite3_errmsg(database_) : "");
    sqlite3_extended_result_codes(database_, 1);
    sqlite3_busy_handler(database_, WaitForLock, this);
    sqlite3_wal_hook(database_, FoldGrownLog, this);
    sqlite3_create_collation_v2(database_, "es", SQLITE_UTF8, const_cast<SpanishOrder*>(order_.get()), CompareTexts,
                                nullptr);
    // Up to 3.40 it loses rows of a join whose texts are equal in the order and differ in their number of bytes.
    sqlite3_test_control(SQLITE_TESTCTRL_OPTIMIZATIONS, database_, kBloomFilter);
  } catch (...) {
    sqlite3_close_v2(database_);
    throw;
  }
}

int Connection::WaitForLock(void* connection, int attempt) {
  auto& self = *static_cast<Connection*>(connection);
  if (attempt == 0) self.waited_ = 0;
  if (self.waited_ >= self.longest_wait_) return 0;
  self.crowded_until_ = Clock::now() + kCrowded;
  self.waited_ += self.Sleep();
  return 1;
}

int Connection::FoldGrownLog(void* connection, sqlite3* database, const char*, int pages) {
  auto& self = *static_cast<Connection*>(connection);
  const int before = std::exchange(self.log_pages_, pages);
  if (pages / kPagesToFold <= before / kPagesToFold) return SQLITE_OK;
  // Most of it beside the writers. What cannot be done now is done at the next time: the commit is durable already.
  sqlite3_wal_checkpoint_v2(database, nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
  self.longest_wait_ = kWaitForReaders;
  sqlite3_wal_checkpoint_v2(database, nullptr, SQLITE_CHECKPOINT_RESTART, nullptr, nullptr);
  self.longest_wait_ = kLongestWait;
  return SQLITE_OK;
}

int Connection::Sleep() {
  const int microseconds = std::uniform_int_distribution(kShortestSleep, kLongestSleep)(random_);
  sqlite3_vfs* machine = sqlite3_vfs_find(nullptr);
  machine->xSleep(machine, microseconds);
  return microseconds;
}

Connection::~Connection() {
  tables_.clear();
  queries_.Clear();
  data_version_ = Statement();
  sqlite3_close_v2(database_);
}

std::shared_ptr<Connection> Connection::Open(const fs::path& path, const std::string& name,
                                             std::shared_ptr<const SpanishOrder> order) {
  try {
    return OpenShared(path, name, order);
  } catch (const RuntimeError& error) {
    const int code = error.native() & kPrimaryCode;
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    if ((code != SQLITE_CANTOPEN && code != SQLITE_READONLY) || access(folder.c_str(), W_OK) == 0) throw;
  }
  return OpenUnchanging(path, name, std::move(order));
}

std::shared_ptr<Connection> Connection::OpenShared(const fs::path& path, const std::string& name,
                                                   std::shared_ptr<const SpanishOrder> order) {
  std::shared_ptr<Connection> connection(new Connection(path.c_str(), name, std::move(order), SQLITE_OPEN_READWRITE));
  DropStaleLog(connection->database_, path);
  connection->Run("PRAGMA synchronous = FULL");
  connection->CheckFormat();
  return connection;
}

// A read-only medium, a folder without the permission to write, or one of another machine. Sharing the file would take
// a log beside it, and memory.
std::shared_ptr<Connection> Connection::OpenUnchanging(const fs::path& path, const std::string& name,
                                                       std::shared_ptr<const SpanishOrder> order) {
  std::error_code none;
  const auto log = fs::file_size(LogOf(path), none);
  if (!none && log > 0) {
    throw RuntimeError(kCannotOpenFile, {name},
                       "its newest rows are in the log beside it, which cannot be read from here");
  }
  std::shared_ptr<Connection> connection(
      new Connection(UnchangingUri(path).c_str(), name, std::move(order), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI));
  connection->unchanging_ = path;
  connection->last_written_ = fs::last_write_time(path, none);
  connection->CheckFormat();
  return connection;
}

void Connection::CheckFormat() {
  Statement id = Prepare("PRAGMA application_id");
  if (!id.Step() || id.Integer(0) != kApplicationId) throw RuntimeError(kForeignFile, {name_});
}

std::string Connection::NewFile(const std::vector<TableDef>& tables, std::shared_ptr<const SpanishOrder> order) {
  const std::shared_ptr<Connection> memory(
      new Connection(":memory:", "", std::move(order), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE));
  memory->Run("PRAGMA application_id = " + std::to_string(kApplicationId));
  memory->Run("CREATE TABLE zendara_queries (name TEXT PRIMARY KEY COLLATE NOCASE, sql TEXT NOT NULL)");
  memory->Run(kCreateNumbers);
  for (const TableDef& table : tables) memory->CreateTable(table);
  sqlite3_int64 size = 0;
  const std::unique_ptr<unsigned char, decltype(&sqlite3_free)> image(
      sqlite3_serialize(memory->database_, "main", &size, 0), sqlite3_free);
  if (!image) throw RuntimeError(kOutOfMemory);
  std::string file(reinterpret_cast<const char*>(image.get()), static_cast<std::size_t>(size));
  file[kWriteVersion] = file[kReadVersion] = 2;  // with a write-ahead log from the start
  return file;
}

bool Connection::IsDatabase(const fs::path& path) {
  // Read through the store: to open and close the file here would drop the locks that this program has on it.
  sqlite3* database = nullptr;
  sqlite3_file* file = nullptr;
  std::array<char, kHeaderSize> header = {};
  const bool read = sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK &&
                    sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file) == SQLITE_OK &&
                    file->pMethods && file->pMethods->xRead(file, header.data(), kHeaderSize, 0) == SQLITE_OK;
  sqlite3_close_v2(database);
  if (!read || !std::string_view(header.data(), header.size()).starts_with(kMagic)) return false;
  std::uint32_t id = 0;
  for (int i = 0; i < 4; ++i) id = id << 8 | static_cast<unsigned char>(header[kIdAt + static_cast<std::size_t>(i)]);
  return id == kApplicationId;
}

void Connection::FoldLog(const fs::path& path, const std::string& name, std::shared_ptr<const SpanishOrder> order) {
  {
    const auto connection = Open(path, name, std::move(order));
    Statement fold = connection->Prepare("PRAGMA wal_checkpoint(TRUNCATE)");
    if (fold.Step() && fold.Integer(0) != 0) throw RuntimeError(kFileInUse, {name});
  }
  // The last one who closes the file takes the log away.
  std::error_code none;
  if (fs::exists(LogOf(path), none)) throw RuntimeError(kFileInUse, {name});
}

bool Connection::FileIsGone() const {
  int moved = 0;
  sqlite3_file_control(database_, "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  std::error_code none;
  return moved != 0 || (!unchanging_.empty() && fs::last_write_time(unchanging_, none) != last_written_);
}

std::size_t Connection::Limit(int number) const {
  return static_cast<std::size_t>(sqlite3_limit(database_, number, -1));
}

std::int64_t Connection::Changes() const { return sqlite3_changes64(database_); }

std::int64_t Connection::LastNumber() const { return sqlite3_last_insert_rowid(database_); }

void Connection::Acquire(Holder* next) {
  if (gone_ || Clock::now() > checked_ + kCheckAgain) RequireFile();
  Park();
  holder_ = next;
}

void Connection::RequireFile() {
  gone_ = gone_ || FileIsGone();
  if (gone_) throw RuntimeError(kObjectClosed, {}, name_ + " was replaced");
  checked_ = Clock::now();
}

void Connection::Park() {
  if (Holder* holder = std::exchange(holder_, nullptr)) holder->Park();
}

void Connection::Release(const Holder* holder) {
  if (holder_ == holder) holder_ = nullptr;
}

TableInfo* Connection::FindTable(std::string_view name) {
  RequireFile();
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
  info->indexed.resize(info->definition.columns.size());
  Statement indexes =
      Prepare("SELECT name, \"unique\" FROM pragma_index_list(" + QuoteName(table) + ") ORDER BY seq DESC");
  while (indexes.Step()) {
    const std::string stored(indexes.Text(0));
    IndexDef index;
    index.name = stored.starts_with(table + ".") ? stored.substr(table.size() + 1) : stored;
    index.primary = indexes.Integer(1) != 0;
    Statement keys = Prepare("PRAGMA index_info(" + QuoteName(stored) + ")");
    while (keys.Step()) {
      index.columns.push_back(static_cast<int>(keys.Integer(1)));
      info->indexed[static_cast<std::size_t>(index.columns.back())] = true;
    }
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
  PrepareWrite();
  Run("BEGIN IMMEDIATE");
  in_transaction_ = true;
  Run("SAVEPOINT rows");
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
  try {
    // Numbers that were given stay given.
    Run("ROLLBACK TO rows");
    for (auto& [name, table] : tables_) {
      if (table->given > 0) KeepNumber(*table, table->given);
    }
    Run("COMMIT");
  } catch (const RuntimeError&) {
    // The store has undone everything already, or is about to.
  }
  Undo();
}

void Connection::Undo() {
  in_transaction_ = false;
  for (auto& [name, table] : tables_) table->count = -1;
  if (!sqlite3_get_autocommit(database_)) Run("ROLLBACK");
}

void Connection::AsOne(const std::function<void()>& writes) {
  Acquire(nullptr);
  if (in_transaction_) return writes();
  PrepareWrite();
  Run("BEGIN IMMEDIATE");
  in_transaction_ = true;
  try {
    writes();
    Commit();
  } catch (...) {
    Undo();
    throw;
  }
}

void Connection::PrepareWrite() {
  if (in_transaction_) return;
  RequireFile();
  if (Clock::now() < crowded_until_) Sleep();
  if (keeps_numbers_) return;
  Run(kCreateNumbers);
  keeps_numbers_ = true;
}

std::int64_t Connection::Delete(TableInfo& table, Statement& statement) {
  std::int64_t deleted = 0;
  AsOne([&] {
    if (!table.highest) table.highest = Prepare("SELECT max(rowid) FROM " + QuoteName(table.definition.name));
    table.highest.Step();
    const std::int64_t highest = table.highest.Integer(0);
    table.highest.Reset();
    statement.Run();
    deleted = Changes();
    KeepNumber(table, highest);
  });
  AddToCount(table, -deleted);
  return deleted;
}

// Writes nothing as long as the table has a row of that number or a higher one.
void Connection::KeepNumber(TableInfo& table, std::int64_t number) {
  if (!table.keep_number) {
    table.keep_number =
        Prepare("INSERT INTO zendara_numbers SELECT ?1, ?2 WHERE ?2 > (SELECT coalesce(max(rowid), 0) FROM " +
                QuoteName(table.definition.name) +
                ") ON CONFLICT (name) DO UPDATE SET last = excluded.last WHERE excluded.last > last");
  }
  table.keep_number.Bind(1, Value(table.definition.name));
  table.keep_number.Bind(2, number);
  table.keep_number.Run();
}

}  // namespace zendara::sqlite

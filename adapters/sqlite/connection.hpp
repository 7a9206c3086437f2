// One open file: the store's connection, what is known of its tables, and the rule that keeps reads fresh.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "adapters/icu/spanish_order.hpp"
#include "adapters/sqlite/prepared_query.hpp"
#include "adapters/sqlite/statement.hpp"
#include "platform/sql/query_cache.hpp"
#include "zendara/record_engine.hpp"

struct sqlite3;

namespace zendara::sqlite {

// A table with the statements that were prepared for it. Positions on the same table share them, since only one
// statement of a connection is open at a time.
struct TableInfo {
  TableDef definition;
  std::string columns;                                     // rowid and all columns, for a select list
  std::vector<bool> indexed;                               // by column: it is in an index
  std::unordered_map<std::uint64_t, Statement> positions;  // kept by table_cursor.cpp
  Statement by_row;
  Statement insert;
  Statement replace;  // the columns that are in no index
  Statement replace_with_keys;
  Statement erase;
  Statement highest;      // number of its last row
  Statement keep_number;  // that it has had a number

  std::int64_t given = 0;          // the highest row number that this program gave
  std::int64_t count = -1;         // -1: unknown
  std::int64_t count_version = 0;  // data version of the file when it was counted
};

// Whoever steps a statement holds the connection: it acquires it before the first step and releases it after the last
// one. When somebody else acquires it in between, the holder is parked first, and holds nothing from then on. A
// position in a table keeps its row; its next move acquires the connection again and finds its place by key. A query
// lets its recordset keep what it needs, has the rows that are left put aside (RowsAside), and steps through those
// without the connection.
class Holder {
 public:
  // Keeps what it still needs and resets the statement.
  virtual void Park() = 0;

 protected:
  ~Holder() = default;
};

// An open statement holds a snapshot of the file: what other programs finish stays unseen, and a write that follows
// fails at once. So at most one statement is open on a connection, and every other operation parks it first.
class Connection {
 public:
  // `name` is the path as the caller spelled it, for errors. A file that is not of this store is 3343. Where nothing
  // can be written beside the file it is opened for reading.
  static std::shared_ptr<Connection> Open(const std::filesystem::path& path, const std::string& name,
                                          std::shared_ptr<const SpanishOrder> order);
  // For reading, without locks and without the memory that programs of one machine share. 3051 when a log with rows
  // lies beside the file.
  static std::shared_ptr<Connection> OpenUnchanging(const std::filesystem::path& path, const std::string& name,
                                                    std::shared_ptr<const SpanishOrder> order);
  // The bytes of a new file with these tables.
  static std::string NewFile(const std::vector<TableDef>& tables, std::shared_ptr<const SpanishOrder> order);
  // True when the file is a database of this system.
  static bool IsDatabase(const std::filesystem::path& path);
  // Makes the file alone the whole database, without a log beside it. 3045 when somebody has it open.
  static void FoldLog(const std::filesystem::path& path, const std::string& name,
                      std::shared_ptr<const SpanishOrder> order);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  const std::string& name() const { return name_; }
  Statement Prepare(std::string_view sql) { return Statement(database_, name_, sql); }
  void Run(std::string_view sql) { Prepare(sql).Run(); }
  // From here on writing is error 3027.
  void RefuseWrites() { Run("PRAGMA query_only = ON"); }
  // Its tables keep their definitions as long as it is open.
  sql::QueryCache<PreparedQuery>& queries() { return queries_; }
  // What the store allows at most, by its number for that.
  std::size_t Limit(int number) const;
  // Rows changed by the last write.
  std::int64_t Changes() const;
  // The number that the last insertion gave.
  std::int64_t LastNumber() const;

  // True when the path names another file by now, or none; also when a file that nobody should write was written.
  bool FileIsGone() const;

  // Parks whoever has a statement open, and makes `next` (or nobody) the one. 3420 when the file is gone.
  void Acquire(Holder* next);
  void Park();
  void Release(const Holder* holder);

  // nullptr if the file has no such table. The pointer stays good for the life of the connection.
  TableInfo* FindTable(std::string_view name);
  std::vector<std::string> TableNames();
  void CreateTable(const TableDef& table);

  // Exact, counted again only when the file changed.
  std::int64_t Count(TableInfo& table);
  // After an own write of so many rows more or less.
  void AddToCount(TableInfo& table, std::int64_t rows);

  void Begin();
  void Commit();
  void Rollback();
  // Writes as one, or as a part of the transaction that runs.
  void AsOne(const std::function<void()>& writes);

  // Row numbers are never used again. A new row gets the one behind the highest that the table ever had: its last row
  // shows it, or, when rows went from its end, the number that was kept then.

  // Before a write. A file of an earlier version gets what keeps the numbers.
  void PrepareWrite();
  // Runs a statement that deletes rows of the table.
  std::int64_t Delete(TableInfo& table, Statement& statement);

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr int kLongestWait = 5'000'000;  // microseconds, for a lock

  Connection(const char* path, std::string name, std::shared_ptr<const SpanishOrder> order, int flags);

  static std::shared_ptr<Connection> OpenShared(const std::filesystem::path& path, const std::string& name,
                                                std::shared_ptr<const SpanishOrder> order);
  void RequireFile();
  void CheckFormat();
  void Undo();
  // The store's callbacks: while a lock is taken, and after each commit with the pages that the log has by now.
  static int WaitForLock(void* connection, int attempt);
  static int FoldGrownLog(void* connection, sqlite3* database, const char* name, int pages);
  int Sleep();
  std::unique_ptr<TableInfo> ReadDefinition(const std::string& table);
  void KeepNumber(TableInfo& table, std::int64_t number);

  std::string name_;
  std::filesystem::path unchanging_;                   // the file, if it is read without locks
  std::filesystem::file_time_type last_written_ = {};  // when it was opened so
  std::shared_ptr<const SpanishOrder> order_;
  sqlite3* database_ = nullptr;
  Holder* holder_ = nullptr;
  bool in_transaction_ = false;
  bool gone_ = false;  // known to be
  Clock::time_point checked_ = {};
  bool keeps_numbers_ = false;  // known to
  int waited_ = 0;              // microseconds, for the lock that is being waited for
  int longest_wait_ = kLongestWait;
  int log_pages_ = 0;  // at its last commit
  Clock::time_point crowded_until_ = {};
  std::minstd_rand random_{std::random_device()()};
  Statement data_version_;
  sql::QueryCache<PreparedQuery> queries_;
  std::unordered_map<std::string, std::unique_ptr<TableInfo>> tables_;  // by lower-case name
};

}  // namespace zendara::sqlite

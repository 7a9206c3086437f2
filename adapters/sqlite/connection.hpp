// One open file: the store's connection, what is known of its tables, and the rule that keeps reads fresh.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "adapters/icu/spanish_order.hpp"
#include "adapters/sqlite/query_cache.hpp"
#include "adapters/sqlite/statement.hpp"
#include "zendara/record_engine.hpp"

struct sqlite3;

namespace zendara::sqlite {

// A table with the statements that were prepared for it. Positions on the same table share them, since only one
// statement of a connection is open at a time.
struct TableInfo {
  TableDef definition;
  std::string columns;                                     // rowid and all columns, for a select list
  std::unordered_map<std::uint64_t, Statement> positions;  // kept by table_cursor.cpp
  Statement by_row;
  Statement insert;
  Statement replace;
  Statement erase;

  std::int64_t count = -1;         // -1: unknown
  std::int64_t count_version = 0;  // data version of the file when it was counted
};

// Somebody who has a statement open. Parked, it keeps what it still needs and resets the statement.
class Holder {
 public:
  virtual void Park() = 0;

 protected:
  ~Holder() = default;
};

// An open statement holds a snapshot of the file: what other programs finish stays unseen, and a write that follows
// fails at once. So at most one statement is open on a connection, and every other operation parks it first.
class Connection {
 public:
  // `name` is the path as the caller spelled it, for errors. A file that is not of this store is 3343.
  static std::shared_ptr<Connection> Open(const std::filesystem::path& path, const std::string& name,
                                          std::shared_ptr<const SpanishOrder> order);
  // REQUIRES: the file does not exist. Nothing of it stays after a failure.
  static std::shared_ptr<Connection> Create(const std::filesystem::path& path, const std::string& name,
                                            std::shared_ptr<const SpanishOrder> order);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  const std::string& name() const { return name_; }
  Statement Prepare(std::string_view sql) { return Statement(database_, name_, sql); }
  void Run(std::string_view sql) { Prepare(sql).Run(); }
  QueryCache& queries() { return queries_; }
  // What the store allows at most, by its number for that.
  std::size_t Limit(int number) const;
  // Rows changed by the last write.
  std::int64_t Changes() const;

  // Parks whoever has a statement open, and makes `next` (or nobody) the one.
  void Acquire(Holder* next);
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
  bool InTransaction() const { return in_transaction_; }

 private:
  Connection(const std::filesystem::path& path, std::string name, std::shared_ptr<const SpanishOrder> order, int flags);

  std::unique_ptr<TableInfo> ReadDefinition(const std::string& table);

  std::string name_;
  std::shared_ptr<const SpanishOrder> order_;
  sqlite3* database_ = nullptr;
  Holder* holder_ = nullptr;
  bool in_transaction_ = false;
  Statement data_version_;
  QueryCache queries_;
  std::unordered_map<std::string, std::unique_ptr<TableInfo>> tables_;  // by lower-case name
};

}  // namespace zendara::sqlite

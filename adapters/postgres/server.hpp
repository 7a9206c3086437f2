// What the databases of one engine share: the connection, the catalogue, the order of texts.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/icu/spanish_order.hpp"
#include "adapters/postgres/conninfo.hpp"
#include "adapters/postgres/link.hpp"
#include "adapters/postgres/relation.hpp"
#include "platform/sql/query_cache.hpp"

namespace zendara::postgres {

class OpenFile;
struct PreparedQuery;

class Server {
 public:
  explicit Server(std::string_view conninfo, Access access);

  const std::string& name() const { return place_.Name(); }
  Access access() const { return place_.access(); }
  const SpanishOrder& order() const { return order_; }

  Link& main() { return main_; }
  // A connection beside the main one, for a transaction.
  std::unique_ptr<Link> Take();
  void GiveBack(std::unique_ptr<Link> link);

  // Moves on whenever rows that were read ahead may be no longer those that are stored: after each write of this
  // engine, and when it idles.
  std::uint64_t Tick() const { return tick_; }
  void Changed() { ++tick_; }

  // By shape and by the tables of the file, so files of the same tables have them in common.
  sql::QueryCache<PreparedQuery>& queries() { return queries_; }

  // Catalogue.
  // Definitions by number, which never change; those that are not known yet are read, all of them at once.
  void ReadTables(Link& link, const std::vector<int>& numbers);
  // REQUIRES: it was read.
  const Relation& Table(int number) const { return tables_.at(number); }
  // Makes the catalogue and the relations that are missing; the numbers of the tables. Error 3027 for who only reads.
  std::vector<int> EnsureTables(const std::vector<TableDef>& tables);
  void RequireWrites() const;

  // Who has a file open holds a lock on its name, so that nobody renames it. This is what
  // is locked, in SQL.
  static std::string LockOf(std::string_view file_parameter);
  // And every engine holds one on the whole, so that nobody changes that under it.
  static std::string LockOfStore() { return LockOf("'zendara_store'"); }
  void Opened(const std::string& file);
  void Closed(const std::string& file) noexcept;

 private:
  void Greet(Link& link);

  Conninfo place_;
  SpanishOrder order_;
  Link::Greeting greeting_;
  Link main_;
  std::vector<std::unique_ptr<Link>> spare_;
  std::uint64_t tick_ = 0;
  std::map<int, Relation> tables_;
  sql::QueryCache<PreparedQuery> queries_;
  std::vector<std::string> open_;  // names of files
};

}  // namespace zendara::postgres

// A database file that is open: its tables, and the connection that its statements go through.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/postgres/new_rows.hpp"
#include "adapters/postgres/server.hpp"

namespace zendara::postgres {

// Handles on one file of an engine share it. Outside of a transaction its statements go through the engine's own
// connection, each for itself; a transaction has a connection of its own, so what is done with other files meanwhile is
// no part of it.
class OpenFile {
 public:
  // `maker`: nobody, or who makes the file, which does not exist for others yet: all goes through that link.
  OpenFile(std::shared_ptr<Server> server, std::string file, std::vector<int> tables, Link* maker = nullptr);
  ~OpenFile();
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  // The file's name as the server has it, the value of the first column everywhere.
  const std::string& name() const { return file_; }
  Server& server() { return *server_; }

  // nullptr if the file has no such table. Good for the life of the engine. What other programs have added is seen.
  const Relation* FindTable(std::string_view table);
  const std::vector<int>& tables() const { return tables_; }
  void AddTable(int table) { tables_.push_back(table); }
  // Whoever made the file is done with it: whatever is still open on it is 3420.
  void Detach() { detached_ = true; }
  // What was written in the last transaction is committed.
  void RefreshFigures(Link& link) { waiting_.RefreshFigures(link); }

  // Where a statement goes to, once all rows that wait were sent.
  Link& Reach();
  // For a statement that reads these tables alone: rows that wait for others go on waiting.
  Link& ReachFor(const std::vector<const Relation*>& tables);
  // In a transaction and for a table that refuses no row, or in a new file: true, and the row is sent later, with
  // others.
  bool Defer(const Relation& relation, const std::vector<Value>& row);

  // Who still reads has what is left of it.
  void Settle();

  bool InTransaction() const { return transaction_ || maker_; }
  // Errors as Database names them.
  void Begin();
  void Commit();
  void Rollback();

 private:
  Link& CurrentLink();
  const Relation* FindKnown(std::string_view table) const;
  void EndTransaction();

  std::shared_ptr<Server> server_;
  std::string file_;
  std::vector<int> tables_;  // numbers in the catalogue, in the order of creation
  Link* const maker_;
  bool detached_ = false;
  std::unique_ptr<Link> transaction_;  // its link
  NewRows waiting_;
};

}  // namespace zendara::postgres

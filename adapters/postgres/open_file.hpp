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
  OpenFile(std::shared_ptr<Server> server, std::string file, std::vector<int> tables);
  // Rows of a file that does not exist for others yet: all of it goes through the link of whoever makes it.
  OpenFile(std::shared_ptr<Server> server, std::string file, std::vector<int> tables, Link& maker);
  ~OpenFile();

  // The file's name as the server has it, the value of the first column everywhere.
  const std::string& name() const { return file_; }
  Server& server() { return *server_; }

  // nullptr if the file has no such table. Good for the life of the engine.
  const Relation* FindTable(std::string_view table);
  const std::vector<int>& tables() const { return tables_; }
  void AddTable(int table) { tables_.push_back(table); }

  // Where a statement goes to, once all rows that wait were sent.
  Link& Reach();
  // In a transaction and for a table that refuses no row, or in a new file: the row is sent later, with others.
  bool Defers(const Relation& relation) const;
  void Defer(const Relation& relation, const std::vector<Value>& row);

  bool InTransaction() const { return link_ != nullptr; }
  // Errors as Database names them.
  void Begin();
  void Commit();
  void Rollback();

 private:
  std::shared_ptr<Server> server_;
  std::string file_;
  std::vector<int> tables_;  // numbers in the catalogue, in the order of creation
  std::unique_ptr<Link> own_;
  Link* link_ = nullptr;  // of the transaction, or of the maker
  bool made_elsewhere_ = false;
  NewRows waiting_;
};

}  // namespace zendara::postgres

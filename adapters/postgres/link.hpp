// One connection to the server. Statements are prepared at their first use and known by their text.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

#include "adapters/postgres/conninfo.hpp"
#include "adapters/postgres/wire.hpp"

namespace zendara::postgres {

// Whoever has a statement running whose rows it takes later: read ahead, or a long listing. It gets them when it asks,
// or all that are left when somebody else needs the connection.
class Reader {
 public:
  virtual void Arrived(Answer rows) = 0;
  // There are no more, because of this.
  virtual void Failed(std::exception_ptr error) = 0;

 protected:
  ~Reader() = default;
};

// Every error is a RuntimeError with the server's own words as the detail. One that ends the connection is 3043; the
// next statement connects again. Nothing is sent a second time.
class Link {
 public:
  // Runs on each new connection before anything else.
  using Greeting = std::function<void(Link&)>;

  // REQUIRES: what is given outlives it.
  Link(const Conninfo& place, const Greeting& greeting) : place_(place), greeting_(greeting) {}
  ~Link();
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;

  // Prepared: for statements that come again. Its parameters have the same types each time.
  Answer Run(std::string_view sql, const Parameters& parameters = {});
  // Not prepared.
  Answer RunOnce(const std::string& sql, const Parameters& parameters = {});

  // Starts a statement, whose rows `reader` takes: together, or one by one with an answer each. Who starts or runs
  // anything lets the reader before have its rows first.
  enum class Rows { kTogether, kOneByOne };
  void Start(std::string_view sql, const Parameters& parameters, Reader& reader, Rows rows);
  // Waits for the next rows of the statement that `reader` has started and gives them to it; false when it has had all,
  // or somebody else has needed the connection. Never calls Failed: an error is thrown.
  bool Next(Reader& reader);
  // Gives up what is left of its rows.
  void Leave(const Reader& reader);

  void Begin();
  void Commit();
  void Rollback();
  bool InTransaction() const { return in_transaction_; }
  // The connection was lost, or a statement failed for good, since Begin: all of the transaction is undone.
  bool IsBroken() const { return broken_; }

  // Counts the connections: what was prepared or held on an earlier one is gone.
  int Connections() const { return connections_; }
  // The number of the server's process, for asking who waits for whom.
  int Backend() const;

 private:
  struct Prepared {
    std::string name;
    std::list<std::string>::iterator use;  // in uses_
  };

  void Connect();
  void Drop();
  void RequireConnection();
  const std::string& Prepare(std::string_view sql, const Parameters& parameters);
  void Send(const std::string& name, const Parameters& parameters);
  Answer Receive();
  Answer Wait();
  [[noreturn]] void Fail(const PGresult* result);
  void LetReaderHave();

  const Conninfo& place_;
  const Greeting& greeting_;
  PGconn* connection_ = nullptr;
  int connections_ = 0;
  std::unordered_map<std::string, Prepared> prepared_;  // by text
  std::list<std::string> uses_;                         // texts, the latest first
  std::int64_t names_ = 0;
  Reader* reader_ = nullptr;
  bool in_transaction_ = false;
  bool broken_ = false;
  std::string blocker_;  // who holds what this waits for, once it has been asked
};

}  // namespace zendara::postgres

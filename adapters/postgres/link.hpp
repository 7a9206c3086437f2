// One connection to the server. Statements are prepared at their first use and known by their text.
#pragma once

#include <chrono>
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
  // Somebody else needs the connection: all that is left arrives now.
  virtual void Hurry() {}
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
  // Of the last statement that failed: it was sent, and nobody knows what became of it.
  bool AnswerWasLost() const { return answer_lost_; }
  bool IsConnected() const { return connection_ != nullptr; }
  // 150018 is version 15.18. REQUIRES: it is connected.
  int ServerVersion() const { return PQserverVersion(connection_); }

  // Which plans the server may make from here on for statements that it has not planned yet. Without figures of a new
  // relation it takes its companies for small and would sort all of one for each batch of a walk.
  enum class Plans { kAny, kInIndexOrder };
  void Allow(Plans plans);

  // Starts a statement, whose rows `reader` takes: together, or one by one with an answer each. Who starts or runs
  // anything lets the reader before have its rows first.
  enum class Rows { kTogether, kOneByOne };
  void Start(std::string_view sql, const Parameters& parameters, Reader& reader, Rows rows);
  // Waits for the next rows of the statement that `reader` has started and gives them to it; false when it has had all,
  // or somebody else has needed the connection. Never calls Failed: an error is thrown.
  bool Next(Reader& reader);
  // Gives up what is left of its rows.
  void Leave(const Reader& reader);
  // Lets the reader have its rows.
  void Settle();

  // Whether a commit whose answer was lost was done is asked on a new connection. 3146 when that cannot be had: the
  // same call once more asks again.
  void Begin();
  void Commit();
  void Rollback();
  bool InTransaction() const { return in_transaction_; }
  bool IsInDoubt() const { return in_doubt_; }
  // Writes that leave the transaction, if there is one, as it was when one of them fails.
  void AsOne(const std::function<void()>& writes);

 private:
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };
  struct Prepared {
    std::string name;
    std::list<std::string_view>::iterator use;  // in uses_
  };
  // A statement that made a transaction useless.
  struct Fault {
    int number = 0;
    std::string words;
  };

  void Connect();
  void Drop();
  void RequireConnection();
  const std::string& Prepare(std::string_view sql, const Parameters& parameters);
  void Send(const std::string& name, const Parameters& parameters);
  Answer Receive();
  Answer Wait();
  void Drain();
  bool DrainFor(std::chrono::milliseconds time);
  void Check(const PGresult* result);
  [[noreturn]] void FailLost(bool sent);
  void FindBlocker();
  void AskOutcome();

  const Conninfo& place_;
  const Greeting& greeting_;
  PGconn* connection_ = nullptr;
  std::unordered_map<std::string, Prepared, TextHash, std::equal_to<>> prepared_;  // by text
  std::list<std::string_view> uses_;                                               // texts, the latest first
  std::int64_t names_ = 0;
  Reader* reader_ = nullptr;
  Plans plans_ = Plans::kAny;
  Plans plans_before_ = Plans::kAny;  // the transaction
  bool answer_lost_ = false;
  bool in_transaction_ = false;
  int guarded_ = 0;        // AsOne
  Fault fault_;            // of the transaction
  std::string number_;     // of the transaction on the server
  bool in_doubt_ = false;  // its commit
  std::string blocker_user_;
  std::string blocker_machine_;
};

}  // namespace zendara::postgres

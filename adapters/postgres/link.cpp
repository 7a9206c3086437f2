#include "adapters/postgres/link.hpp"

#include <poll.h>

#include <cerrno>
#include <chrono>
#include <memory>
#include <thread>
#include <utility>

#include "adapters/postgres/failure.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::postgres {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kMostPrepared = 500;
// Bytes of a text. What the server makes of a longer one takes megabytes there, and it hardly comes again.
constexpr std::size_t kLongestKept = 16384;
constexpr int kBinary = 1;
// Who waits for so long is about to be told for whom. In milliseconds.
constexpr int kLongWait = 2000;
// What is left of a statement that nobody wants any more is taken for so long before it is cancelled.
constexpr auto kQuickEnd = 20ms;
// A commit that was under way when the connection was lost comes to its end within this.
constexpr auto kEndOfCommit = 2000ms;
constexpr auto kAskAgain = 50ms;

constexpr std::string_view kDesk = "zendara ";  // what the name of a desk's connection begins with

// The same format for each of them.
const int* Binary(std::size_t parameters) {
  static thread_local std::vector<int> formats;
  if (formats.size() < parameters) formats.resize(parameters, kBinary);
  return formats.data();
}

int Count(const Parameters& parameters) { return static_cast<int>(parameters.Types().size()); }

// A server that answers and refuses says so in these words.
bool IsRefusal(const PGconn* connection) {
  const std::string words = WordsOf(connection);
  return PQconnectionNeedsPassword(connection) != 0 ||
         (words.find("FATAL") != std::string::npos && words.find("the database system is") == std::string::npos &&
          words.find("too many") == std::string::npos);
}

using Connection = std::unique_ptr<PGconn, decltype(&PQfinish)>;

// What the server says beside its answers is for its own log.
Connection Open(const Conninfo& place) {
  Connection opened(PQconnectdbParams(place.Keywords().data(), place.Values().data(), 0), PQfinish);
  PQsetNoticeReceiver(
      opened.get(), [](void*, const PGresult*) {}, nullptr);
  return opened;
}

}  // namespace

Link::~Link() { PQfinish(connection_); }

// Connections.

void Link::Connect() {
  Connection opened = Open(place_);
  if (PQstatus(opened.get()) != CONNECTION_OK) {
    const int number = IsRefusal(opened.get()) ? kCannotOpenFile : kDiskOrNetwork;
    throw RuntimeError(number, {place_.Name()}, WordsOf(opened.get()));
  }
  connection_ = opened.release();
  plans_ = Plans::kAny;
  try {
    greeting_(*this);
  } catch (...) {
    Drop();
    throw;
  }
}

void Link::Drop() {
  PQfinish(std::exchange(connection_, nullptr));
  prepared_.clear();
  uses_.clear();
  if (in_transaction_ && fault_.number == 0) fault_ = {kDiskOrNetwork, "the connection was lost in the transaction"};
}

void Link::RequireConnection() {
  answer_lost_ = false;
  if (fault_.number != 0) throw RuntimeError(fault_.number, {}, fault_.words);
  if (!connection_) Connect();
}

void Link::FailLost(bool sent) {
  const std::string words = WordsOf(connection_);
  Drop();
  answer_lost_ = sent;
  throw RuntimeError(kDiskOrNetwork, {}, place_.Name() + ": " + words);
}

// Statements.

Answer Link::Run(std::string_view sql, const Parameters& parameters) {
  Settle();
  RequireConnection();
  Send(Prepare(sql, parameters), parameters);
  return Receive();
}

Answer Link::RunOnce(const std::string& sql, const Parameters& parameters) {
  Settle();
  RequireConnection();
  if (PQsendQueryParams(connection_, sql.c_str(), Count(parameters), parameters.Types().data(),
                        parameters.Values().data(), parameters.Lengths().data(), Binary(parameters.Types().size()),
                        kBinary) == 0) {
    FailLost(false);
  }
  return Receive();
}

const std::string& Link::Prepare(std::string_view sql, const Parameters& parameters) {
  if (const auto known = prepared_.find(sql); known != prepared_.end()) {
    uses_.splice(uses_.begin(), uses_, known->second.use);
    return known->second.name;
  }
  const bool keep = sql.size() <= kLongestKept;
  if (keep && prepared_.size() >= kMostPrepared) {
    const auto oldest = prepared_.find(uses_.back());
    const std::string forget = "DEALLOCATE " + oldest->second.name;
    uses_.pop_back();
    prepared_.erase(oldest);
    if (PQsendQuery(connection_, forget.c_str()) == 0) FailLost(false);
    Receive();
  }
  const std::string text(sql);
  // The statement without a name is there until the next one.
  const std::string name = keep ? "z" + std::to_string(++names_) : std::string();
  if (PQsendPrepare(connection_, name.c_str(), text.c_str(), Count(parameters), parameters.Types().data()) == 0) {
    FailLost(false);
  }
  try {
    Receive();
  } catch (...) {
    answer_lost_ = false;  // nothing was done yet
    throw;
  }
  static const std::string kNoName;
  if (!keep) return kNoName;
  const auto kept = prepared_.emplace(text, Prepared{name, {}}).first;
  uses_.push_front(kept->first);
  kept->second.use = uses_.begin();
  return kept->second.name;
}

void Link::Send(const std::string& name, const Parameters& parameters) {
  if (PQsendQueryPrepared(connection_, name.c_str(), Count(parameters), parameters.Values().data(),
                          parameters.Lengths().data(), Binary(parameters.Types().size()), kBinary) == 0) {
    FailLost(true);  // some of it may have gone
  }
}

Answer Link::Receive() {
  Answer answer = Wait();
  Check(answer.get());
  Drain();
  return answer;
}

// The next result of the statement that runs, none behind the last one.
Answer Link::Wait() {
  for (bool asked = false; PQisBusy(connection_) != 0;) {
    pollfd socket = {PQsocket(connection_), POLLIN, 0};
    const int ready = poll(&socket, 1, asked ? -1 : kLongWait);
    if (ready == 0 && !std::exchange(asked, true)) FindBlocker();
    if (ready > 0 && PQconsumeInput(connection_) == 0) FailLost(true);
    if (ready < 0 && errno != EINTR) FailLost(true);
  }
  return Answer(PQgetResult(connection_));
}

void Link::Drain() {
  while (Wait()) {
  }
}

void Link::Check(const PGresult* result) {
  const ExecStatusType status = PQresultStatus(result);
  if (result && status != PGRES_FATAL_ERROR && status != PGRES_BAD_RESPONSE) return;
  const char* given = result ? PQresultErrorField(result, PG_DIAG_SQLSTATE) : nullptr;
  const std::string state = given ? given : "";
  const std::string words = WordsOf(result);
  const int number = NumberOf(state);
  // Without a state of the server the fault is the connection's. A server that is going down says so, but not what it
  // has done before.
  if (state.empty()) FailLost(true);
  if (number == kDiskOrNetwork) {
    Drop();
    answer_lost_ = true;
    throw RuntimeError(number, {}, words);
  }
  Drain();
  // A primary that has become a standby: the next statement looks for the new one.
  if (state == "25006" && place_.access() == Access::kWrite) Drop();
  if (in_transaction_ && guarded_ == 0 && fault_.number == 0) fault_ = {number, words};
  if (number == kLocked && !blocker_user_.empty()) {
    throw RuntimeError(kLockedByUser, {std::exchange(blocker_user_, {}), std::exchange(blocker_machine_, {})}, words);
  }
  throw RuntimeError(number, {}, words);
}

// On a connection of its own, since this one waits.
void Link::FindBlocker() {
  const Connection other = Open(place_);
  const std::string question =
      "SELECT usename, application_name FROM pg_stat_activity WHERE pid = ANY (pg_blocking_pids(" +
      std::to_string(PQbackendPID(connection_)) + ")) LIMIT 1";
  const Answer answer(PQexec(other.get(), question.c_str()));
  if (PQresultStatus(answer.get()) != PGRES_TUPLES_OK || answer.Rows() == 0) return;
  blocker_user_ = answer.Bytes(0, 0);
  std::string_view name = answer.Bytes(0, 1);
  blocker_machine_ = name;
  if (!name.starts_with(kDesk)) return;
  name.remove_prefix(kDesk.size());
  const std::size_t at = name.find('@');
  if (at == std::string_view::npos) return;
  blocker_user_ = name.substr(0, at);
  blocker_machine_ = name.substr(at + 1);
}

void Link::Allow(Plans plans) {
  RequireConnection();
  if (plans == plans_) return;
  Run(plans == Plans::kAny ? "SET enable_bitmapscan = on" : "SET enable_bitmapscan = off");
  plans_ = plans;
}

// Whether that was the end of the statement.
bool Link::DrainFor(std::chrono::milliseconds time) {
  const auto until = std::chrono::steady_clock::now() + time;
  for (;;) {
    while (PQisBusy(connection_) == 0) {
      if (!Answer(PQgetResult(connection_))) return true;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - std::chrono::steady_clock::now());
    if (left.count() <= 0) return false;
    pollfd socket = {PQsocket(connection_), POLLIN, 0};
    const int ready = poll(&socket, 1, static_cast<int>(left.count()));
    if (ready > 0 && PQconsumeInput(connection_) == 0) FailLost(true);
  }
}

// Readers.

void Link::Start(std::string_view sql, const Parameters& parameters, Reader& reader, Rows rows) {
  Settle();
  RequireConnection();
  Send(Prepare(sql, parameters), parameters);
  if (rows == Rows::kOneByOne) PQsetSingleRowMode(connection_);
  reader_ = &reader;
}

bool Link::Next(Reader& reader) {
  if (reader_ != &reader) return false;
  try {
    Answer answer = Wait();
    if (answer) Check(answer.get());
    if (answer && answer.Rows() > 0) {
      reader.Arrived(std::move(answer));
      return true;
    }
    // Behind the last row, or no row at all.
    reader_ = nullptr;
    if (answer) Drain();
    return false;
  } catch (...) {
    reader_ = nullptr;
    throw;
  }
}

void Link::Settle() {
  Reader* reader = reader_;
  if (!reader) return;
  try {
    reader->Hurry();
    while (Next(*reader)) {
    }
  } catch (...) {
    reader_ = nullptr;
    reader->Failed(std::current_exception());
  }
}

void Link::Leave(const Reader& reader) {
  if (reader_ != &reader) return;
  reader_ = nullptr;
  try {
    // To cancel takes a connection of its own, and in a transaction would end the transaction.
    if (!in_transaction_ && !DrainFor(kQuickEnd)) {
      const std::unique_ptr<PGcancel, decltype(&PQfreeCancel)> cancel(PQgetCancel(connection_), PQfreeCancel);
      char refusal[256];
      PQcancel(cancel.get(), refusal, sizeof refusal);
    }
    Drain();
  } catch (const RuntimeError&) {
    // The next statement will say so, if it still matters.
  }
}

// Transactions.

void Link::Begin() {
  Run("BEGIN");
  in_transaction_ = true;
  plans_before_ = plans_;
  if (place_.access() == Access::kRead) return;
  try {
    // The number by which the server can be asked for it later.
    number_ = Run("SELECT pg_current_xact_id()::text").Bytes(0, 0);
  } catch (...) {
    Rollback();
    throw;
  }
}

void Link::Commit() {
  if (in_doubt_) return AskOutcome();
  try {
    Run("COMMIT");
    in_transaction_ = false;
  } catch (const RuntimeError&) {
    if (!answer_lost_) {
      Rollback();
      throw;
    }
    in_doubt_ = true;
    AskOutcome();
  }
}

void Link::AskOutcome() {
  fault_ = {};
  const auto until = std::chrono::steady_clock::now() + kEndOfCommit;
  std::string outcome;
  try {
    do {
      in_transaction_ = false;
      if (!outcome.empty()) std::this_thread::sleep_for(kAskAgain);
      outcome = Run("SELECT pg_xact_status($1::xid8)", Parameters().Text(number_)).Bytes(0, 0);
    } while (outcome == "in progress" && std::chrono::steady_clock::now() < until);
  } catch (const RuntimeError& error) {
    // Another server, promoted, may never have heard of it.
    if (error.number() == kDataConversion) {
      in_doubt_ = false;
      throw RuntimeError(kDiskOrNetwork, {}, error.detail());
    }
    in_transaction_ = true;
    throw RuntimeError(kOutcomeUnknown, {}, error.detail());
  }
  in_doubt_ = false;
  if (outcome != "committed") throw RuntimeError(kDiskOrNetwork, {}, "the transaction was undone with its connection");
}

void Link::Rollback() {
  in_doubt_ = false;
  const bool lost = fault_.number != 0 && !connection_;
  fault_ = {};
  in_transaction_ = false;
  if (lost || !connection_) return;
  try {
    Run("ROLLBACK");
    plans_ = plans_before_;
  } catch (const RuntimeError&) {
    // With the connection the transaction is gone too.
    Drop();
  }
}

void Link::AsOne(const std::function<void()>& writes) {
  if (!in_transaction_) return writes();
  Run("SAVEPOINT writes");
  ++guarded_;
  try {
    writes();
    --guarded_;
  } catch (...) {
    --guarded_;
    if (fault_.number == 0) Run("ROLLBACK TO SAVEPOINT writes");
    throw;
  }
  Run("RELEASE SAVEPOINT writes");
}

}  // namespace zendara::postgres

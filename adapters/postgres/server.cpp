#include "adapters/postgres/server.hpp"

#include <algorithm>
#include <utility>

#include "adapters/postgres/catalogue.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::postgres {
namespace {

constexpr int kLooksForClients = 140000;  // from this version of the server on

}  // namespace

Server::Server(std::string_view conninfo, Access access)
    : place_(conninfo, access), greeting_([this](Link& link) { Greet(link); }), main_(place_, greeting_) {}

void Server::Greet(Link& link) {
  // What the server compiles of a statement is never worth it here.
  link.RunOnce("SET jit = off");
  link.RunOnce("SET lock_timeout = '5s'");
  // A program that was ended leaves no long query behind.
  if (link.ServerVersion() >= kLooksForClients) link.RunOnce("SET client_connection_check_interval = '10s'");
  if (access() == Access::kRead) link.RunOnce("SET default_transaction_read_only = on");
  if (&link != &main_) return;
  link.RunOnce("SELECT pg_advisory_lock_shared(" + LockOfStore() + ")");
  for (const std::string& file : open_) {
    link.RunOnce("SELECT pg_advisory_lock_shared(" + LockOf("$1") + ")", Parameters().Text(file));
  }
}

std::unique_ptr<Link> Server::Take() {
  if (spare_.empty()) return std::make_unique<Link>(place_, greeting_);
  auto link = std::move(spare_.back());
  spare_.pop_back();
  return link;
}

void Server::GiveBack(std::unique_ptr<Link> link) {
  // One stays for the next transaction.
  if (spare_.empty()) spare_.push_back(std::move(link));
}

void Server::RequireWrites() const {
  if (access() == Access::kRead) throw RuntimeError(kReadOnly);
}

std::vector<int> Server::EnsureTables(const std::vector<TableDef>& tables) {
  RequireWrites();
  auto link = Take();
  std::vector<int> numbers = postgres::EnsureTables(*link, tables, order_.KeyVersion());
  ReadTables(*link, numbers);
  GiveBack(std::move(link));
  return numbers;
}

void Server::ReadTables(Link& link, const std::vector<int>& numbers) {
  std::vector<int> unknown;
  std::ranges::copy_if(numbers, std::back_inserter(unknown), [this](int number) { return !tables_.contains(number); });
  if (unknown.empty()) return;
  const Answer answer =
      link.Run("SELECT number, relation, definition FROM zendara_tables WHERE number = ANY (('{' || $1 || '}')::int[])",
               Parameters().Text(NumbersText(unknown)));
  for (int row = 0; row < answer.Rows(); ++row) {
    tables_.emplace(static_cast<int>(answer.Integer(row, 0)),
                    Relation(ReadDefinition(answer.Bytes(row, 2)), answer.Bytes(row, 1)));
  }
}

std::string Server::LockOf(std::string_view file_parameter) {
  return "hashtextextended(current_schema() || '/' || " + std::string(file_parameter) + ", 0)";
}

void Server::Opened(const std::string& file) { open_.push_back(file); }

void Server::Closed(const std::string& file) noexcept {
  std::erase(open_, file);
  if (!main_.IsConnected()) return;
  try {
    main_.Run("SELECT pg_advisory_unlock_shared(" + LockOf("$1") + ")", Parameters().Text(file));
  } catch (...) {
    // The lock went with the connection.
  }
}

}  // namespace zendara::postgres

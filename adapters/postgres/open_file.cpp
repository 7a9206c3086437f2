#include "adapters/postgres/open_file.hpp"

#include <utility>

#include "adapters/postgres/catalogue.hpp"
#include "platform/record/names.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::postgres {

OpenFile::OpenFile(std::shared_ptr<Server> server, std::string file, std::vector<int> tables, Link* maker)
    : server_(std::move(server)), file_(std::move(file)), tables_(std::move(tables)), maker_(maker) {
  if (!maker_) server_->Opened(file_);
}

OpenFile::~OpenFile() {
  try {
    if (transaction_) Rollback();
  } catch (...) {
    // The server undoes it with the connection.
  }
  if (!maker_) server_->Closed(file_);
}

const Relation* OpenFile::FindKnown(std::string_view table) const {
  for (const int number : tables_) {
    const Relation& relation = server_->Table(number);
    if (SameName(relation.definition.name, table)) return &relation;
  }
  return nullptr;
}

const Relation* OpenFile::FindTable(std::string_view table) {
  const Relation* known = FindKnown(table);
  if (known || maker_) return known;
  Link& link = Reach();
  const Answer stored = link.Run("SELECT array_to_string(tables, ',') FROM zendara_files WHERE zendara_file = $1",
                                 Parameters().Text(file_));
  if (stored.Rows() == 0) throw RuntimeError(kObjectClosed, {}, file_ + " is gone");
  tables_ = ReadNumbers(stored.Bytes(0, 0));
  server_->ReadTables(link, tables_);
  return FindKnown(table);
}

Link& OpenFile::CurrentLink() {
  if (detached_) throw RuntimeError(kObjectClosed);
  return maker_ ? *maker_ : transaction_ ? *transaction_ : server_->main();
}

Link& OpenFile::Reach() {
  Link& link = CurrentLink();
  if (!waiting_.Empty()) waiting_.Send(link, file_, server_->order());
  return link;
}

Link& OpenFile::ReachFor(const std::vector<const Relation*>& tables) {
  return waiting_.HasAnyOf(tables) ? Reach() : CurrentLink();
}

void OpenFile::Settle() {
  if (transaction_) transaction_->Settle();
}

bool OpenFile::Defer(const Relation& relation, const std::vector<Value>& row) {
  const bool refuses_no_row = !relation.definition.Primary();
  if (!maker_ && !(transaction_ && refuses_no_row)) return false;
  if (detached_) throw RuntimeError(kObjectClosed);
  waiting_.Add(relation, row);
  server_->Changed();
  if (waiting_.Full()) Reach();
  return true;
}

void OpenFile::Begin() {
  server_->RequireWrites();
  if (InTransaction()) throw RuntimeError(kNoTransaction);
  auto link = server_->Take();
  try {
    link->Begin();
  } catch (const RuntimeError& error) {
    // The connection has waited for this since the last transaction, and nothing was done on it.
    if (error.number() != kDiskOrNetwork) throw;
    link->Begin();
  }
  transaction_ = std::move(link);
}

void OpenFile::Commit() {
  if (!transaction_) throw RuntimeError(kNoTransaction);
  server_->Changed();
  try {
    Reach().Commit();
  } catch (...) {
    // In doubt it stays, for the next try.
    if (transaction_->IsInDoubt()) throw;
    if (transaction_->InTransaction()) transaction_->Rollback();
    EndTransaction();
    throw;
  }
  try {
    RefreshFigures(*transaction_);
  } catch (const RuntimeError&) {
    // The rows are there all the same.
  }
  EndTransaction();
}

void OpenFile::Rollback() {
  if (!transaction_) throw RuntimeError(kNoTransaction);
  waiting_.Clear();
  server_->Changed();
  transaction_->Rollback();
  EndTransaction();
}

void OpenFile::EndTransaction() { server_->GiveBack(std::exchange(transaction_, nullptr)); }

}  // namespace zendara::postgres

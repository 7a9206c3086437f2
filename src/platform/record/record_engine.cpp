#include "zendara/record_engine.hpp"

#include "platform/record/names.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

template <typename Named>
int Ordinal(const std::vector<Named>& items, std::string_view name) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (SameName(items[i].name, name)) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace

const IndexDef* TableDef::Primary() const {
  for (const IndexDef& index : indexes) {
    if (index.primary) return &index;
  }
  return nullptr;
}

int TableDef::ColumnOrdinal(std::string_view column) const { return Ordinal(columns, column); }

int TableDef::IndexOrdinal(std::string_view index) const { return Ordinal(indexes, index); }

Value Field::Get() const { return owner_.GetColumn(ordinal_); }

void Field::Set(const Value& value) const { owner_.SetColumn(ordinal_, value); }

const ColumnDef& Field::Column() const { return owner_.Columns()[static_cast<std::size_t>(ordinal_)]; }

Field Recordset::Fields(int ordinal) {
  if (ordinal < 0 || static_cast<std::size_t>(ordinal) >= Columns().size()) throw RuntimeError(kItemNotFound);
  return Field(*this, ordinal);
}

Field Recordset::Fields(std::string_view name) { return Fields(Ordinal(Columns(), name)); }

Transaction::Transaction(Database& database) : database_(&database) { database.BeginTrans(); }

Transaction::~Transaction() {
  if (!database_) return;
  try {
    database_->Rollback();
  } catch (...) {
    // The store has undone it, or does when the database is closed.
  }
}

void Transaction::Commit() {
  database_->CommitTrans();
  database_ = nullptr;
}

}  // namespace zendara

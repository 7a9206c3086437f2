// What a record engine supplies below the recordsets of zendara/record_engine.hpp: positions in one table and running
// queries. The rules of the current record stand above it, in table_recordset.cpp,
// query_recordset.cpp and forward_recordset.cpp.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "zendara/record_engine.hpp"

namespace zendara {

// One position in the rows of a table. The row on which it stands can be read until the next call of any of its other
// operations, whatever else happens to the file in the meantime.
class TableCursor {
 public:
  virtual ~TableCursor() = default;

  virtual const TableDef& Table() const = 0;
  // A second position on the same table, on no row, in no chosen index.
  virtual std::unique_ptr<TableCursor> Fork() const = 0;

  // Order of the moves and columns of `Find`: an ordinal of Table().indexes, or -1 for the primary key's order, which
  // without a primary key is the order of writing. The position is lost.
  virtual void UseIndex(int index) = 0;

  // Each moves to a row and returns true, or returns false and leaves no row.
  virtual bool First() = 0;
  virtual bool Last() = 0;
  // From the row on which it stands or stood: a row that was deleted keeps its place in the order.
  virtual bool Next() = 0;
  virtual bool Previous() = 0;
  // First row in index order whose leading key columns equal `keys`. REQUIRES: an index, keys of the columns' types.
  virtual bool Find(std::span<const Value> keys) = 0;
  virtual bool GoTo(Bookmark row) = 0;
  // Reads the row on which it stands again from the store; false if it is gone.
  virtual bool Refresh() = 0;

  // REQUIRES: it stands on a row.
  virtual Value Column(int ordinal) const = 0;
  virtual Bookmark Row() const = 0;

  // Writes are durable when they return, outside of a transaction. Errors 3022, 3058 and those of the store.
  // They do not move this cursor; Replace leaves it on the changed row.
  virtual void Insert(const std::vector<Value>& row) = 0;
  // 3197 when the stored row is no longer the one that Refresh read, 3167 when it is gone.
  virtual void Replace(const std::vector<Value>& row) = 0;
  // True if a row was deleted.
  virtual bool Erase() = 0;

  // Exact.
  virtual std::int64_t Count() const = 0;
  // Costs no more than a look-up.
  virtual bool HasRows() const = 0;
};

// A running query: rows as they come, each readable until the next Step.
class QueryCursor {
 public:
  virtual ~QueryCursor() = default;
  // Good as long as the cursor.
  virtual const std::vector<ColumnDef>& Columns() const = 0;
  // False past the last row.
  virtual bool Step() = 0;
  // REQUIRES: the last Step gave a row.
  virtual Value Column(int ordinal) const = 0;

  // The reader's `keep` is called when the engine has to end the reading for another operation, before the current row
  // is lost: the reader keeps that row, and may step to the end and keep all. What it leaves the engine puts aside
  // where it takes no memory, and Step goes on with it. A fault is raised by the Step that comes to it.
  void WhenEnded(std::function<void()> keep) { keep_ = std::move(keep); }

 protected:
  void LetReaderKeep() const {
    if (keep_) keep_();
  }

 private:
  std::function<void()> keep_;
};

std::shared_ptr<Recordset> MakeTableRecordset(std::unique_ptr<TableCursor> cursor);
// Keeps every row that was reached.
std::shared_ptr<Recordset> MakeQueryRecordset(std::unique_ptr<QueryCursor> query);
// Keeps one row.
std::shared_ptr<Recordset> MakeForwardRecordset(std::unique_ptr<QueryCursor> query);

}  // namespace zendara

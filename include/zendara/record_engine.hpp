// The record engine: shared database files, tables with indexes, one current record for each recordset.
//
// A host implements nothing of this: it opens databases and recordsets through the engine that it was given by
// zendara/engines.hpp and hands them to the component, which shares them. Handles keep what they need alive; a database
// or recordset that was closed raises error 3420.
//
// Several programs share a file. A row is stored whole or not at all, and seen by the others from their next Idle or
// move on. Edit reads the row afresh and Update changes the columns that were set since, so changes of two programs in
// different columns of a row both stay; what changes between Edit and Update is refused (3197).
//
// Names of tables, columns and indexes are compared without regard to case. Columns have ordinals from 0. Text
// comparisons, key searches and index orders ignore case and trailing blanks; accents count; the order is Spanish, Null
// comes first. Errors are RuntimeError with the numbers named at each operation; `detail()` holds the engine's own
// words.
//
// An engine on a server can lose it in any operation: 3043. Nothing that was set or opened is lost with it: the next
// operation connects again and finds its place by key; a transaction that was pending is undone, and what is written in
// it from then on is 3043 too, until Rollback or CommitTrans. 3146 is a write whose answer was lost, so that nobody
// knows whether it was done: the same Update, Delete or CommitTrans once more asks that first, and writes only what is
// not there.
//
// Threads: one thread at a time for an engine and all that was opened through it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zendara/export.h"
#include "zendara/value.hpp"

namespace zendara {

enum class ColumnType { kText, kNumber, kDate };

struct ColumnDef {
  std::string name;
  ColumnType type = ColumnType::kText;
  int width = 0;  // characters of a text column; 0 for the other types

  friend bool operator==(const ColumnDef&, const ColumnDef&) = default;
};

struct IndexDef {
  std::string name;
  std::vector<int> columns;  // ordinals
  bool primary = false;      // unique and without Null

  friend bool operator==(const IndexDef&, const IndexDef&) = default;
};

struct ZENDARA_EXPORT TableDef {
  std::string name;
  std::vector<ColumnDef> columns;
  std::vector<IndexDef> indexes;

  const IndexDef* Primary() const;
  // Position in the vector, or -1. Names without regard to case.
  int ColumnOrdinal(std::string_view name) const;
  int IndexOrdinal(std::string_view name) const;

  friend bool operator==(const TableDef&, const TableDef&) = default;
};

// Identifies a row of one table, for all recordsets on it; it survives changes of the row. Once the row is gone, no
// other one ever gets it, whichever program writes it.
using Bookmark = std::int64_t;

class Recordset;

// One column of a recordset's current record. Short-lived: it refers to the recordset.
class ZENDARA_EXPORT Field {
 public:
  Field(Recordset& owner, int ordinal) : owner_(owner), ordinal_(ordinal) {}

  // During AddNew the new row (unset columns Null), during Edit the changed row, otherwise the current record.
  // Error 3021 without a current record, 3167 after it was deleted, 3421 when no value of the column's type is stored
  // there: what is, is the error's detail.
  Value Get() const;
  // Only during AddNew or Edit (3020). Converts to the column's type: a date or number becomes its text, a text is read
  // as a number by CDbl or as a date, in the recordset's window of years; 3421 if it cannot be, also for the empty
  // text. 3163 when longer than the column.
  void Set(const Value& value) const;
  const ColumnDef& Column() const;

 private:
  Recordset& owner_;
  int ordinal_;
};

// A table-type recordset has an index, Seek and writes. A query recordset is a read-only result in the order of the
// query: its writes are error 3027, its Index and Seek error 3019, its NoMatch stays False. It keeps the rows that it
// reached, and has those of its time however the tables change.
//
// A forward-only recordset is a query recordset for long listings: it keeps one row, and what memory it takes does not
// grow with the number of rows, whatever else is done with the database meanwhile. MoveNext is its only move; MoveFirst
// on the first row changes nothing. MoveFirst behind it, MoveLast, MovePrevious, Clone, Bookmark and GoTo are error 5.
//
// Current record. After opening it is the first row, if any. AddNew, Edit, a move, Seek and setting Index drop a
// pending change silently; Update after AddNew leaves the record that was current before. After Delete the position
// stays between its neighbours: reading is 3167, moves go to them. A Seek that finds nothing leaves no current record;
// Bof and Eof stay as they were.
class Recordset {
 public:
  virtual ~Recordset() = default;

  virtual const std::vector<ColumnDef>& Columns() const = 0;
  // Error 3265 for a name or ordinal that is not there.
  ZENDARA_EXPORT Field Fields(int ordinal);
  ZENDARA_EXPORT Field Fields(std::string_view name);

  // Name of the index in use, empty if none. Setting goes to that index's first record, also when set again; 3015 for a
  // name that the table does not have.
  virtual std::string Index() const = 0;
  virtual void SetIndex(std::string_view name) = 0;
  // Exact search from the start of the index, with as many keys as it has columns or fewer: first match in its order.
  // Keys are converted like assignments (3421). Without an index 3019, with too many keys 5.
  virtual void Seek(const std::vector<Value>& keys) = 0;
  virtual bool NoMatch() const = 0;

  virtual bool Bof() const = 0;
  virtual bool Eof() const = 0;
  // Table-type: exact. The others: 0 if empty, otherwise the rows reached so far, 1 after opening.
  virtual std::int64_t RecordCount() const = 0;
  // RecordCount() == 0, at the price of a look-up: an engine on a server counts all rows each time.
  virtual bool IsEmpty() const { return RecordCount() == 0; }

  // On an empty set, or from no current record, error 3021. MoveNext past the last row makes Eof True; the next one is
  // 3021. MovePrevious likewise with Bof.
  virtual void MoveFirst() = 0;
  virtual void MoveLast() = 0;
  virtual void MoveNext() = 0;
  virtual void MovePrevious() = 0;

  virtual void AddNew() = 0;
  // Reads the current record afresh; 3021 without one, 3167 when it was deleted, also by another program.
  virtual void Edit() = 0;
  // Durable when it returns. 3020 without AddNew or Edit; 3022 duplicate key, 3058 Null in the primary key, 3197 the
  // row was changed by another program since Edit: nothing is written, the pending change stays.
  virtual void Update() = 0;
  // 3020 without AddNew or Edit.
  virtual void CancelUpdate() = 0;
  // The current record as it is stored now. 3021 without one, 3167 when it is gone, also by another program.
  virtual void Delete() = 0;

  // Own position over the same rows, no current record at first, no index set; bookmarks serve both.
  virtual std::shared_ptr<Recordset> Clone() = 0;
  virtual zendara::Bookmark Bookmark() const = 0;     // 3021 without a current record
  virtual void GoTo(zendara::Bookmark bookmark) = 0;  // 3167 when the row is gone

  virtual void Close() = 0;

  // What two-digit years mean in the texts that are assigned and searched for. A table-type recordset begins with the
  // window of its database, a clone with that of its original.
  void SetYearWindow(YearWindow window) { window_ = window; }
  YearWindow Years() const { return window_; }

 private:
  friend class Field;
  virtual Value GetColumn(int ordinal) const = 0;
  virtual void SetColumn(int ordinal, const Value& value) = 0;

  YearWindow window_;
};

// A named query of a database. The component keeps one and never runs it.
class QueryDef {
 public:
  QueryDef(std::string name, std::string sql) : name_(std::move(name)), sql_(std::move(sql)) {}
  const std::string& Name() const { return name_; }
  const std::string& Sql() const { return sql_; }

 private:
  std::string name_;
  std::string sql_;
};

enum class RecordsetType { kTable = 1, kQuery = 2, kForward = 8 };

class Database {
 public:
  virtual ~Database() = default;

  // The path as it was given to OpenDatabase.
  virtual const std::string& Name() const = 0;

  // kTable: `source` is a table, 3011 if it does not exist. kQuery and kForward: a table or one SELECT of the dialect,
  // 3078 unknown table, 3061 unknown column, 3421 a comparison of different types or a sum of what are no numbers, 3075
  // anything else that is wrong with the text: also a table twice, or more conditions, columns, tables or brackets in
  // each other than the store has room for (27,734 conditions and 10 brackets in each other are taken).
  virtual std::shared_ptr<Recordset> OpenRecordset(std::string_view source, RecordsetType type) = 0;
  // kQuery.
  std::shared_ptr<Recordset> OpenRecordset(std::string_view sql) { return OpenRecordset(sql, RecordsetType::kQuery); }
  // The older name of the same.
  std::shared_ptr<Recordset> CreateDynaset(std::string_view sql) { return OpenRecordset(sql); }
  // Runs one DELETE * FROM table [WHERE ...]; any other text is 3075.
  virtual void Execute(std::string_view sql) = 0;

  // 3012 when a query of that name exists; it stays in the file.
  virtual std::shared_ptr<QueryDef> CreateQueryDef(std::string_view name, std::string_view sql = {}) = 0;
  // 3265 when there is none of that name.
  virtual std::shared_ptr<QueryDef> QueryDefs(std::string_view name) = 0;

  // Definitions as the file has them, in the order of creation.
  virtual std::vector<TableDef> Tables() = 0;
  // 3010 when the table exists.
  virtual void CreateTable(const TableDef& table) = 0;
  // One line a fault that the store finds in itself (structure, index entries); empty when it is sound.
  virtual std::vector<std::string> CheckIntegrity() = 0;

  // Long runs of writes as one: rows are durable, and seen by other programs, when CommitTrans returns. 3034 without
  // BeginTrans. A transaction that is pending when the last handle goes is undone.
  virtual void BeginTrans() = 0;
  virtual void CommitTrans() = 0;
  virtual void Rollback() = 0;

  virtual void Close() = 0;

  // What two-digit years mean in the dates of statements, and in the recordsets that are opened from here on. It ends
  // in 2029 until it is set; databases open on one file have each their own. The component sets that of its session on
  // the databases and recordsets that a host hands over.
  void SetYearWindow(YearWindow window) { window_ = window; }
  YearWindow Years() const { return window_; }

 private:
  YearWindow window_;
};

// A run of writes as one: undone at the end of its life unless it was committed.
class ZENDARA_EXPORT Transaction {
 public:
  // REQUIRES: the database outlives it. Errors of BeginTrans.
  explicit Transaction(Database& database);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  // Errors of CommitTrans: it is undone then.
  void Commit();

 private:
  Database* database_;  // none once it is committed
};

// New files that get their names together: all of them, or, without Publish, none. A name that is taken, whatever its
// case, is error 3012, whose detail is that name as it stands there: early where it is known early, by Publish always.
class NewFiles {
 public:
  virtual ~NewFiles() = default;

  // An empty database with these tables, open. What is written to it is durable with the name; it has no transactions
  // of its own (3034). It is closed by Publish.
  virtual std::shared_ptr<Database> Create(std::string_view name, const std::vector<TableDef>& tables) = 0;
  // A file beside the databases, with these bytes.
  virtual void Put(std::string_view name, std::string_view bytes) = 0;
  // Names them in the order in which they were made. Whatever fails, none has its name. REQUIRES: no recordset of
  // theirs is open.
  virtual void Publish() = 0;
};

// Paths: folders are separated by "\" or "/", names found whatever their case.
//
// Of an engine on files: programs of one machine share a folder, never two machines: a folder on a network file system
// is error 3043, but for an engine that only reads. Other errors: 3044 missing folder, 3051 no permission, 3055 no name
// at all.
//
// Of an engine on a server: the server is the folder. Of a path the name behind the last separator counts, so desks
// whose applications stand in different folders share the databases. Programs of any machine share them.
class Workspace {
 public:
  virtual ~Workspace() = default;

  // Shared, for reading and writing; what the machine lets nobody write, such as a file on a read-only medium, is
  // read, and writing it is error 3027. 3024 missing file, 3343 a file of another kind, 3049 damaged.
  //
  // A file that was replaced is another one: it is opened here, and whatever is open on the old one raises 3420.
  virtual std::shared_ptr<Database> OpenDatabase(std::string_view path) = 0;
  // A new file with these tables and no rows, opened. It gets its name when it is whole and durable: whatever fails
  // leaves nothing. 3012 when there is a file of that name: it is never touched.
  virtual std::shared_ptr<Database> CreateDatabase(std::string_view path, const std::vector<TableDef>& tables) = 0;
  std::shared_ptr<Database> CreateDatabase(std::string_view path) { return CreateDatabase(path, {}); }
  // Nothing that another program sees of them stands in the folder until they are published. A folder that is missing
  // is made, and goes again with files that are not published.
  virtual std::unique_ptr<NewFiles> CreateFiles(std::string_view folder) = 0;

  // True when there is a file of that name, be it a database or not.
  virtual bool Exists(std::string_view path) = 0;
  // The bytes of a file beside the databases. 3024 when it is missing, 3051 when it is no file or cannot be read.
  virtual std::string ReadFile(std::string_view path) = 0;
  // Names of the databases of this engine in a folder, ascending. A file that may not be read is among them.
  virtual std::vector<std::string> Databases(std::string_view folder) = 0;
  // Gives a closed database another name in the same file system. 3012 when there is a file of the new one, 3024 when
  // there is none of the old one, 3045 when somebody has it open.
  virtual void Rename(std::string_view from, std::string_view to) = 0;
};

class Engine {
 public:
  virtual ~Engine() = default;

  // 0 is the default workspace; other numbers are error 3265.
  virtual std::shared_ptr<Workspace> Workspaces(int number) = 0;
  // Frees read locks: other programs' finished changes are seen from here on.
  virtual void Idle(int action) = 0;
};

}  // namespace zendara

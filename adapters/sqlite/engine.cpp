// The default engine and the databases that a host holds.
#include "adapters/sqlite/engine.hpp"

#include <utility>

#include "adapters/sqlite/connection.hpp"
#include "adapters/sqlite/query_cursor.hpp"
#include "adapters/sqlite/table_cursor.hpp"
#include "adapters/sqlite/workspace.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::sqlite {
namespace {

class OpenDatabase : public Database {
 public:
  OpenDatabase(std::shared_ptr<Connection> connection, std::string_view name)
      : connection_(std::move(connection)), name_(name) {}

  const std::string& Name() const override { return name_; }

  std::shared_ptr<Recordset> OpenRecordset(std::string_view source, RecordsetType type) override {
    if (type == RecordsetType::kQuery) return MakeQueryRecordset(MakeQueryCursor(Shared(), source, Years()));
    if (type == RecordsetType::kForward) return MakeForwardRecordset(MakeQueryCursor(Shared(), source, Years()));
    TableInfo* table = Shared()->FindTable(source);
    if (!table) throw RuntimeError(kObjectNotFound, {std::string(source)});
    auto recordset = MakeTableRecordset(MakeTableCursor(connection_, *table));
    recordset->SetYearWindow(Years());
    return recordset;
  }

  void Execute(std::string_view sql) override { RunDelete(*Shared(), sql, Years()); }

  std::shared_ptr<QueryDef> CreateQueryDef(std::string_view name, std::string_view sql) override {
    Shared()->Acquire(nullptr);
    if (FindQuery(name)) throw RuntimeError(kObjectExists, {std::string(name)});
    Statement insert = connection_->Prepare("INSERT INTO zendara_queries VALUES (?, ?)");
    insert.Bind(1, Value(name));
    insert.Bind(2, Value(sql));
    try {
      insert.Run();
    } catch (const RuntimeError& error) {
      // Another program was faster.
      if (error.number() == kDuplicateKey) throw RuntimeError(kObjectExists, {std::string(name)});
      throw;
    }
    return std::make_shared<QueryDef>(std::string(name), std::string(sql));
  }

  std::shared_ptr<QueryDef> QueryDefs(std::string_view name) override {
    Shared()->Acquire(nullptr);
    auto query = FindQuery(name);
    if (!query) throw RuntimeError(kItemNotFound);
    return query;
  }

  std::vector<TableDef> Tables() override {
    Shared()->Acquire(nullptr);
    std::vector<TableDef> tables;
    for (const std::string& name : connection_->TableNames())
      tables.push_back(connection_->FindTable(name)->definition);
    return tables;
  }

  void CreateTable(const TableDef& table) override { Shared()->CreateTable(table); }

  std::vector<std::string> CheckIntegrity() override {
    Shared()->Acquire(nullptr);
    std::vector<std::string> faults;
    Statement check = connection_->Prepare("PRAGMA integrity_check");
    while (check.Step()) {
      if (check.Text(0) != "ok") faults.emplace_back(check.Text(0));
    }
    return faults;
  }

  void BeginTrans() override { Shared()->Begin(); }
  void CommitTrans() override { Shared()->Commit(); }
  void Rollback() override { Shared()->Rollback(); }

  void Close() override { connection_.reset(); }

 private:
  const std::shared_ptr<Connection>& Shared() const {
    if (!connection_) throw RuntimeError(kObjectClosed);
    return connection_;
  }

  std::shared_ptr<QueryDef> FindQuery(std::string_view name) {
    Statement find = connection_->Prepare("SELECT name, sql FROM zendara_queries WHERE name = ?");
    find.Bind(1, Value(name));
    if (!find.Step()) return nullptr;
    return std::make_shared<QueryDef>(std::string(find.Text(0)), std::string(find.Text(1)));
  }

  std::shared_ptr<Connection> connection_;  // none once closed
  std::string name_;
};

class NewDatabase final : public OpenDatabase {
 public:
  using OpenDatabase::OpenDatabase;

  void BeginTrans() override { throw RuntimeError(kNoTransaction); }
  void CommitTrans() override { throw RuntimeError(kNoTransaction); }
  void Rollback() override { throw RuntimeError(kNoTransaction); }
};

class DefaultEngine final : public Engine {
 public:
  explicit DefaultEngine(Access access) : workspace_(std::make_shared<FileWorkspace>(access)) {}

  std::shared_ptr<Workspace> Workspaces(int number) override {
    if (number != 0) throw RuntimeError(kItemNotFound);
    return workspace_;
  }

  void Idle(int) override { workspace_->Idle(); }

 private:
  std::shared_ptr<FileWorkspace> workspace_;
};

}  // namespace

std::shared_ptr<Database> MakeDatabase(std::shared_ptr<Connection> connection, std::string_view name) {
  return std::make_shared<OpenDatabase>(std::move(connection), name);
}

std::shared_ptr<Database> MakeNewDatabase(std::shared_ptr<Connection> connection, std::string_view name) {
  return std::make_shared<NewDatabase>(std::move(connection), name);
}

std::unique_ptr<Engine> MakeFileEngine(Access access) { return std::make_unique<DefaultEngine>(access); }

}  // namespace zendara::sqlite

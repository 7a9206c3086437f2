// The default engine: databases, workspaces and the handles that a host holds.
#include <map>
#include <utility>

#include "adapters/host/host_files.hpp"
#include "adapters/sqlite/connection.hpp"
#include "adapters/sqlite/query_cursor.hpp"
#include "adapters/sqlite/table_cursor.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace sqlite {
namespace {

namespace fs = std::filesystem;

class OpenDatabase final : public Database {
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

// Databases that are open on one file share its connection, so they see each other's rows at once and never wait for
// each other.
class DefaultWorkspace final : public Workspace {
 public:
  std::shared_ptr<Database> OpenDatabase(std::string_view path) override {
    const auto found = FindPath(path);
    if (!found || path.empty()) FailMissing(path);
    if (fs::is_directory(*found)) throw RuntimeError(kCannotOpenFile, {std::string(path)});
    const std::string key = fs::canonical(*found).string();
    auto connection = connections_[key].lock();
    if (!connection) {
      connection = Connection::Open(*found, std::string(path), order_);
      connections_[key] = connection;
    }
    return std::make_shared<sqlite::OpenDatabase>(std::move(connection), path);
  }

  std::shared_ptr<Database> CreateDatabase(std::string_view path) override {
    if (FindPath(path)) throw RuntimeError(kObjectExists, {std::string(path)});
    const fs::path wanted = MachinePath(path);
    if (wanted.filename().empty()) throw RuntimeError(kBadFileName);
    const std::string folder = wanted.parent_path().string();
    const auto found = FindPath(folder.empty() ? "." : folder);
    if (!found) throw RuntimeError(kFolderNotFound, {std::string(path)});
    const fs::path file = *found / wanted.filename();
    auto connection = Connection::Create(file, std::string(path), order_);
    connections_[fs::canonical(file).string()] = connection;
    return std::make_shared<sqlite::OpenDatabase>(std::move(connection), path);
  }

  void Idle() {
    for (const auto& [path, open] : connections_) {
      if (const auto connection = open.lock()) connection->Acquire(nullptr);
    }
  }

 private:
  [[noreturn]] static void FailMissing(std::string_view path) {
    const fs::path wanted = MachinePath(path);
    if (wanted.filename().empty()) throw RuntimeError(kBadFileName);
    const std::string folder = wanted.parent_path().string();
    throw RuntimeError(folder.empty() || FindPath(folder) ? kDatabaseNotFound : kFolderNotFound, {std::string(path)});
  }

  std::shared_ptr<const SpanishOrder> order_ = std::make_shared<SpanishOrder>();
  std::map<std::string, std::weak_ptr<Connection>> connections_;  // by the file's full path
};

class DefaultEngine final : public Engine {
 public:
  std::shared_ptr<Workspace> Workspaces(int number) override {
    if (number != 0) throw RuntimeError(kItemNotFound);
    return workspace_;
  }

  void Idle(int) override { workspace_->Idle(); }

 private:
  std::shared_ptr<DefaultWorkspace> workspace_ = std::make_shared<DefaultWorkspace>();
};

}  // namespace
}  // namespace sqlite

std::unique_ptr<Engine> MakeSqliteEngine() { return std::make_unique<sqlite::DefaultEngine>(); }

}  // namespace zendara

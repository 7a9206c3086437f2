// The engine on a server and the databases that a host holds.
#include <utility>

#include "adapters/postgres/catalogue.hpp"
#include "adapters/postgres/integrity.hpp"
#include "adapters/postgres/query_cursor.hpp"
#include "adapters/postgres/table_cursor.hpp"
#include "adapters/postgres/workspace.hpp"
#include "platform/record/cursor.hpp"
#include "runtime/text.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace postgres {
namespace {

class OpenDatabase final : public Database {
 public:
  OpenDatabase(std::shared_ptr<OpenFile> file, std::string_view name) : file_(std::move(file)), name_(name) {}

  const std::string& Name() const override { return name_; }

  std::shared_ptr<Recordset> OpenRecordset(std::string_view source, RecordsetType type) override {
    if (type == RecordsetType::kQuery) return MakeQueryRecordset(MakeQueryCursor(Shared(), source, Years()));
    if (type == RecordsetType::kForward) return MakeForwardRecordset(MakeQueryCursor(Shared(), source, Years()));
    const Relation* table = Shared()->FindTable(source);
    if (!table) throw RuntimeError(kObjectNotFound, {std::string(source)});
    auto recordset = MakeTableRecordset(MakeTableCursor(file_, *table));
    recordset->SetYearWindow(Years());
    return recordset;
  }

  void Execute(std::string_view sql) override { RunDelete(*Shared(), sql, Years()); }

  std::shared_ptr<QueryDef> CreateQueryDef(std::string_view name, std::string_view sql) override {
    // Looked for first, so that who may only read learns of one that is there.
    if (FindQuery(name)) throw RuntimeError(kObjectExists, {std::string(name)});
    file_->server().RequireWrites();
    const Answer added = file_->Reach().Run(
        "INSERT INTO zendara_queries (zendara_file, folded, name, sql) VALUES ($1, $2, $3, $4) "
        "ON CONFLICT DO NOTHING",
        OfQuery(name).Text(name).Text(sql));
    if (added.Affected() == 0) throw RuntimeError(kObjectExists, {std::string(name)});
    return std::make_shared<QueryDef>(std::string(name), std::string(sql));
  }

  std::shared_ptr<QueryDef> QueryDefs(std::string_view name) override {
    auto query = FindQuery(name);
    if (!query) throw RuntimeError(kItemNotFound);
    return query;
  }

  std::vector<TableDef> Tables() override {
    std::vector<TableDef> tables;
    Shared()->FindTable("");  // what others have added
    for (const int table : file_->tables()) tables.push_back(file_->server().Table(table).definition);
    return tables;
  }

  void CreateTable(const TableDef& table) override {
    if (Shared()->FindTable(table.name)) throw RuntimeError(kTableExists, {table.name});
    const int number = file_->server().EnsureTables({table}).front();
    // The list as it was read, so that of two programs that add a table of one name the second one fails.
    const Answer changed = file_->Reach().Run(
        "UPDATE zendara_files SET tables = tables || $2::integer WHERE zendara_file = $1 AND "
        "array_to_string(tables, ',') = $3",
        Parameters().Text(file_->name()).Integer(number).Text(NumbersText(file_->tables())));
    if (changed.Affected() == 0) throw RuntimeError(kTableExists, {table.name});
    file_->AddTable(number);
  }

  std::vector<std::string> CheckIntegrity() override { return FaultsOf(*Shared()); }

  void BeginTrans() override { Shared()->Begin(); }
  void CommitTrans() override { Shared()->Commit(); }
  void Rollback() override { Shared()->Rollback(); }

  void Close() override { file_.reset(); }

 private:
  const std::shared_ptr<OpenFile>& Shared() const {
    if (!file_) throw RuntimeError(kObjectClosed);
    return file_;
  }

  std::shared_ptr<QueryDef> FindQuery(std::string_view name) {
    const Answer found = Shared()->Reach().Run(
        "SELECT name, sql FROM zendara_queries WHERE zendara_file = $1 AND folded = $2", OfQuery(name));
    if (found.Rows() == 0) return nullptr;
    return std::make_shared<QueryDef>(found.Read(0, 0, ColumnType::kText).Text(),
                                      found.Read(0, 1, ColumnType::kText).Text());
  }

  Parameters OfQuery(std::string_view name) const { return Parameters().Text(file_->name()).Text(LCase(name)); }

  std::shared_ptr<OpenFile> file_;  // none once closed
  std::string name_;
};

class ServerEngine final : public Engine {
 public:
  ServerEngine(std::string_view conninfo, Access access)
      : workspace_(std::make_shared<ServerWorkspace>(std::make_shared<Server>(conninfo, access))) {}

  std::shared_ptr<Workspace> Workspaces(int number) override {
    if (number != 0) throw RuntimeError(kItemNotFound);
    return workspace_;
  }

  void Idle(int) override { workspace_->Idle(); }

 private:
  std::shared_ptr<ServerWorkspace> workspace_;
};

}  // namespace

std::shared_ptr<Database> MakeDatabase(std::shared_ptr<OpenFile> file, std::string_view name) {
  return std::make_shared<OpenDatabase>(std::move(file), name);
}

}  // namespace postgres

std::unique_ptr<Engine> MakePostgresEngine(std::string_view conninfo, Access access) {
  return std::make_unique<postgres::ServerEngine>(conninfo, access);
}

}  // namespace zendara

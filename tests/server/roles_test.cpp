// The groups of packaging/postgres: who may do what, and clients that do not see each other's files.
#include "engine/contract.hpp"
#include "server/faults.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;

class Roles : public testing::Test {
 protected:
  void SetUp() override {
    if (!TestServer()) GTEST_SKIP() << "ZENDARA_TEST_SERVER says of no server";
    site_ = std::make_unique<ServerSite>();
    place_ = site_->Place();
    name_ = Ask(place_, "SELECT current_database()");  // roles are the whole server's, so theirs begin with it
    engine_ = MakeEngine(place_);
    Run("roles.sql");
    Create("Nom00001.MDB", People());
    Run("clients.sql");
    for (const char* file : {"Nom00002.MDB", "Empresa.MDB", "Hacien01.MDB"}) Create(file, People());
    for (const std::string login : {"writer", "reader", "client"}) {
      Ask(place_, "CREATE ROLE " + Role(login) + " LOGIN IN ROLE " + Role(login + "s") + "; SELECT 1");
    }
    // A relation that was made later.
    TableDef notes = People();
    notes.name = "Apuntes";
    for (const char* file : {"N0000101.MDB", "N0000201.MDB"}) Create(file, notes);
  }
  void TearDown() override {
    if (!site_) return;
    std::string roles;
    for (const char* role : {"writers", "readers", "clients", "writer", "reader", "client"}) {
      roles += (roles.empty() ? "" : ", ") + Role(role);
    }
    Ask(place_, "DROP OWNED BY " + roles + "; DROP ROLE " + roles + "; SELECT 1");
  }

  std::string Role(const std::string& group) const { return name_ + "_" + group; }
  void Run(const std::string& script) const {
    std::string command = "psql -Xq -f " ZENDARA_ROLES "/" + script + " '" + place_ + "'";
    for (const char* group : {"writers", "readers", "clients"})
      command += std::string(" -v ") + group + "=" + Role(group);
    if (std::system(command.c_str()) != 0) throw std::runtime_error(command);
  }
  void Create(const std::string& file, const TableDef& table) const {
    const auto db = engine_->Workspaces(0)->CreateDatabase(file, {table});
    Add(*db->OpenRecordset(table.name, RecordsetType::kTable), {"00001", file.substr(0, 8)});
  }
  std::string PlaceOf(const std::string& login) const {
    std::string place = place_;
    return place.insert(place.find("//") + 2, Role(login) + "@");
  }
  static std::shared_ptr<Recordset> Open(Engine& engine, const std::string& file) {
    return engine.Workspaces(0)->OpenDatabase(file)->OpenRecordset("Gente", RecordsetType::kTable);
  }

  std::unique_ptr<ServerSite> site_;
  std::string place_;
  std::string name_;
  std::unique_ptr<Engine> engine_;
};

TEST_F(Roles, WritersMakeFilesAndNoTables) {
  const auto writer = MakeEngine(PlaceOf("writer"));
  Change(*Open(*writer, "Nom00001.MDB"), 1, "otro");
  writer->Workspaces(0)->CreateDatabase("Nom00003.MDB", {People()});
  EXPECT_EQ(ErrorOf([&] {
              writer->Workspaces(0)->CreateDatabase("Nom00004.MDB", {{"Otra", {{"C"}}, {}}});
            }),
            kReadOnly);

  const auto reader = MakeEngine(PlaceOf("reader"));
  const auto people = Open(*reader, "Nom00001.MDB");
  EXPECT_EQ(people->Fields(1).Get(), Value("otro"));
  EXPECT_EQ(ErrorOf([&] { Change(*people, 1, "nadie"); }), kReadOnly);
}

TEST_F(Roles, ClientsHaveTheirFiles) {
  const std::string place = PlaceOf("client");
  Ask(place_, "INSERT INTO zendara_grants SELECT '" + Role("client") +
                  "', * FROM (VALUES ('NOM00001.MDB', 'write'), ('N00001__.MDB', 'write'), ('EMPRESA.MDB', 'read'), "
                  "('HACIEN__.MDB', 'open')) AS granted RETURNING file");
  const auto client = MakeEngine(place);
  Workspace& files = *client->Workspaces(0);
  EXPECT_THAT(files.Databases(""), ElementsAre("Empresa.MDB", "Hacien01.MDB", "N0000101.MDB", "Nom00001.MDB"));
  EXPECT_EQ(ErrorOf([&] { files.OpenDatabase("Nom00002.MDB"); }), kDatabaseNotFound);
  EXPECT_EQ(ErrorOf([&] { files.CreateDatabase("Nom00003.MDB", {People()}); }), kReadOnly);
  EXPECT_EQ(Ask(place, "SELECT string_agg(campo1, ' ') FROM apuntes"), "N0000101");

  const auto own = Open(*client, "Nom00001.MDB");
  Add(*own, {"00002", "nueva"});
  Change(*own, 1, "otra");
  own->Delete();
  EXPECT_EQ(own->RecordCount(), 1);

  const auto read = Open(*client, "Empresa.MDB");
  EXPECT_EQ(ErrorOf([&] { Add(*read, {"00002"}); }), kReadOnly);
  EXPECT_EQ(ErrorOf([&] { Change(*read, 1, "otra"); }), kReadOnly);
  EXPECT_EQ(ErrorOf([&] { read->Delete(); }), kReadOnly);
  EXPECT_EQ(ErrorOf([&] { files.OpenDatabase("Empresa.MDB")->Execute("DELETE * FROM Gente"); }), kReadOnly);
  EXPECT_EQ(read->RecordCount(), 1);
  EXPECT_EQ(Open(*client, "Hacien01.MDB")->RecordCount(), 0);
}

}  // namespace
}  // namespace zendara

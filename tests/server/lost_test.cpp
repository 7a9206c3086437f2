// The server is lost under what is open: connections that are ended, a server that is killed and started, a standby
// that takes the place of its primary.
#include "engine/contract.hpp"
#include "server/faults.hpp"

namespace zendara {
namespace {

class Lost : public testing::TestWithParam<Fault> {
 protected:
  void SetUp() override {
    if (!TestServer()) GTEST_SKIP() << "ZENDARA_TEST_SERVER says of no server";
    server = GetParam().server();
    engine = MakeEngine(server.place);
    db = engine->Workspaces(0)->CreateDatabase("Prueba.MDB", {People()});
    people = db->OpenRecordset("Gente", RecordsetType::kTable);
    for (const char* key : {"00001", "00002", "00003", "00004", "00005"}) Add(*people, {key, "antes"});
    people->SetIndex("Icampo0");
    people->Seek({"00003"});
  }

  // As another program sees them: key and name of each row.
  std::string Stored() const {
    const auto other = MakeEngine(server.place, Access::kRead);
    const auto rows = other->Workspaces(0)
                          ->OpenDatabase("Prueba.MDB")
                          ->OpenRecordset("SELECT Campo0, Campo1 FROM Gente ORDER BY Campo0");
    std::string all;
    for (; !rows->Eof(); rows->MoveNext())
      all += Key(*rows).Text().back() + (" " + rows->Fields(1).Get().Text()) + ", ";
    return all;
  }

  LostServer server;
  std::unique_ptr<Engine> engine;
  std::shared_ptr<Database> db;
  std::shared_ptr<Recordset> people;
};

TEST_P(Lost, AMoveFindsItsPlaceByKey) {
  auto by_name = db->OpenRecordset("Gente", RecordsetType::kTable);
  by_name->SetIndex("ICampo1");
  by_name->MoveLast();
  engine->Idle(1);
  server.lose();
  EXPECT_EQ(Walk(*people, "NNPPPF"), "!3043, 00004, 00003, 00002, 00001, 00001");
  EXPECT_EQ(Walk(*by_name, "PPN"), "00004, 00003, 00004");
}

TEST_P(Lost, ANewRowIsSavedAtTheNextTry) {
  people->AddNew();
  people->Fields(0).Set("00009");
  people->Fields(1).Set("nueva");
  server.lose();
  EXPECT_EQ(Walk(*people, "UU"), "!3043, 00003");
  EXPECT_EQ(Stored(), "1 antes, 2 antes, 3 antes, 4 antes, 5 antes, 9 nueva, ");
}

TEST_P(Lost, AChangeIsSavedAtTheNextTry) {
  people->Edit();
  people->Fields(1).Set("luego");
  server.lose();
  EXPECT_EQ(Walk(*people, "UUN"), "!3043, 00003, 00004");
  EXPECT_EQ(Stored(), "1 antes, 2 antes, 3 luego, 4 antes, 5 antes, ");
}

TEST_P(Lost, ATransactionIsUndone) {
  db->BeginTrans();
  Change(*people, 1, "luego");
  Add(*people, {"00009", "nueva"});
  server.lose();
  const auto write = [&] { Add(*people, {"00008", "otra"}); };
  EXPECT_EQ(ErrorOf(write), kDiskOrNetwork);
  EXPECT_EQ(ErrorOf(write), kDiskOrNetwork);
  EXPECT_EQ(ErrorOf([&] { db->CommitTrans(); }), kDiskOrNetwork);
  EXPECT_EQ(ErrorOf([&] { db->Rollback(); }), kNoTransaction);
  EXPECT_EQ(Stored(), "1 antes, 2 antes, 3 antes, 4 antes, 5 antes, ");
  db->BeginTrans();
  people->Seek({"00003"});
  Change(*people, 1, "luego");
  write();
  db->CommitTrans();
  EXPECT_EQ(Stored(), "1 antes, 2 antes, 3 luego, 4 antes, 5 antes, 8 otra, ");
}

INSTANTIATE_TEST_SUITE_P(Servers, Lost, testing::ValuesIn(kFaults),
                         [](const auto& fault) { return std::string(fault.param.name); });

}  // namespace
}  // namespace zendara

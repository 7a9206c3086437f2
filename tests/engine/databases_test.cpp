// Databases by their names, two programs on one, transactions.
#include "engine/contract.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;

class DatabaseContract : public EngineContract {
 protected:
  std::shared_ptr<Workspace> Work() { return engine->Workspaces(0); }

  int OpenError(const std::string& path) {
    return ErrorOf([&] { Work()->OpenDatabase(path); });
  }
};
ZENDARA_FOR_EVERY_ENGINE(DatabaseContract);

TEST_P(DatabaseContract, NamesAreFoundWhateverTheirCase) {
  Work()->CreateDatabase(Path("Nom00001.MDB"), {People()});
  auto found = Work()->OpenDatabase(Path("nOM00001.mdb"));
  EXPECT_EQ(found->OpenRecordset("GENTE", RecordsetType::kTable)->Fields("CAMPO0").Column().width, 5);
  EXPECT_TRUE(Work()->Exists(Path("NOM00001.mdb")));
  EXPECT_FALSE(Work()->Exists(Path("NOM00002.MDB")));
  EXPECT_EQ(ErrorOf([&] { Work()->CreateDatabase(Path("PRUEBA.mdb")); }), 3012) << "an existing one is never touched";
  EXPECT_EQ(OpenError(""), 3055);
  try {
    Work()->OpenDatabase(Path("nada.MDB"));
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 3024);
    EXPECT_THAT(error.text(), testing::HasSubstr(Path("nada.MDB")));
  }
}

TEST_P(DatabaseContract, WhatIsNotThere) {
  EXPECT_EQ(ErrorOf([&] { engine->Workspaces(1); }), 3265);
  EXPECT_EQ(ErrorOf([] { MakeEngine("otro://aqui"); }), 3170);
  EXPECT_EQ(ErrorOf([&] { db->CreateTable(People()); }), 3010);
}

TEST_P(DatabaseContract, ANewDatabaseHasItsTables) {
  Work()->CreateDatabase(Path("Nueva.MDB"), {People()});
  EXPECT_THAT(Work()->Databases(folder), ElementsAre("Nueva.MDB", "Prueba.MDB"));
  EXPECT_THAT(Work()->OpenDatabase(Path("Nueva.MDB"))->Tables(), ElementsAre(People()));
}

TEST_P(DatabaseContract, NewFilesGetTheirNamesTogetherOrNotAtAll) {
  const auto make = [&](const char* second, bool publish) {
    const auto files = Work()->CreateFiles(folder);
    const auto first = files->Create("Uno.MDB", {People()});
    Add(*first->OpenRecordset("Gente", RecordsetType::kTable), {"00001"});
    EXPECT_EQ(ErrorOf([&] { first->BeginTrans(); }), 3034);
    files->Create(second, {});
    files->Put("Nota.DAT", "bytes");
    EXPECT_FALSE(AnotherEngine()->Workspaces(0)->Exists(Path("Uno.MDB")));
    if (publish) files->Publish();
  };
  make("Dos.MDB", false);
  EXPECT_EQ(ErrorOf([&] { make("prueba.mdb", true); }), 3012);
  EXPECT_THAT(Work()->Databases(folder), ElementsAre("Prueba.MDB"));
  const auto beside = [&] { return OpenStore(site->Place()).files->Exists(Path("NOTA.dat")); };
  EXPECT_FALSE(beside());
  make("Dos.MDB", true);
  EXPECT_THAT(Work()->Databases(folder), ElementsAre("Dos.MDB", "Prueba.MDB", "Uno.MDB"));
  EXPECT_EQ(Program(AnotherEngine(), Path("uno.mdb")).people->RecordCount(), 1);
  EXPECT_TRUE(beside());
  EXPECT_EQ(Work()->ReadFile(Path("nota.DAT")), "bytes");
  EXPECT_EQ(ErrorOf([&] { Work()->ReadFile(Path("nada.DAT")); }), 3024);
}

TEST_P(DatabaseContract, ADatabaseIsRenamedWholeAndNeverOverAnother) {
  const auto rename = [&](const char* from, const char* to) {
    return ErrorOf([&] { Work()->Rename(Path(from), Path(to)); });
  };
  Add(*Open("Gente"), {"00001"});
  EXPECT_EQ(rename("Prueba.MDB", "Otra.MDB"), 3045);
  {
    const Program other = OtherProgram();
    db.reset();
    EXPECT_EQ(rename("Prueba.MDB", "Otra.MDB"), 3045);
  }
  Work()->CreateDatabase(Path("Nueva.MDB"));
  EXPECT_EQ(rename("prueba.mdb", "nueva.mdb"), 3012);
  EXPECT_EQ(rename("nada.MDB", "Otra.MDB"), 3024);
  EXPECT_EQ(rename("prueba.mdb", "Otra.MDB"), 0);
  EXPECT_THAT(Work()->Databases(folder), ElementsAre("Nueva.MDB", "Otra.MDB"));
  EXPECT_EQ(Work()->OpenDatabase(Path("Otra.MDB"))->OpenRecordset("Gente", RecordsetType::kTable)->RecordCount(), 1);
}

TEST_P(DatabaseContract, AnEngineForReadingSeesWhatOthersWriteAndWritesNothing) {
  Add(*Open("Gente"), {"00001", "vieja"});
  auto reading = AnotherEngine(Access::kRead);
  const auto files = reading->Workspaces(0);
  const Program reader(std::move(reading), Path("Prueba.MDB"));
  Change(*Open("Gente"), 1, "nueva");
  EXPECT_EQ(reader.people->Fields(1).Get(), Value("nueva"));
  db->CreateQueryDef("Consulta");
  EXPECT_EQ(ErrorOf([&] { reader.db->CreateQueryDef("Consulta"); }), 3012) << "who only reads opens what is there";
  EXPECT_EQ(ErrorOf([&] { Change(*reader.people, 1, "otra"); }), 3027);
  EXPECT_EQ(ErrorOf([&] { Add(*reader.people, {"00002"}); }), 3027);
  EXPECT_EQ(ErrorOf([&] { reader.db->Execute("DELETE * FROM Gente"); }), 3027);
  EXPECT_EQ(ErrorOf([&] { files->CreateDatabase(Path("Otra.MDB")); }), 3027);
  EXPECT_EQ(ErrorOf([&] { files->Rename(Path("Prueba.MDB"), Path("Otra.MDB")); }), 3027);
}

TEST_P(DatabaseContract, OthersAreSeenAfterTheyFinish) {
  const Program program = OtherProgram();
  const auto database = Work()->OpenDatabase(Path("prueba.mdb"));
  auto mine = Open("Gente", "Icampo0");
  for (const auto& theirs : {program.people, database->OpenRecordset("Gente", RecordsetType::kTable)}) {
    for (const char* key : {"00001", "00002", "00003"}) Add(*theirs, {key, "x"});
    EXPECT_EQ(Walk(*mine, "F"), "00001");
    EXPECT_EQ(mine->RecordCount(), 3);
    Add(*theirs, {"0002b", "x"});
    EXPECT_EQ(mine->RecordCount(), 4);
    mine->MoveNext();
    engine->Idle(1);
    EXPECT_EQ(Walk(*mine, "NF"), "00003, 00001");
    EXPECT_EQ(Walk(*theirs, "FND"), "00001, 00002, 3167");
    engine->Idle(1);
    EXPECT_EQ(Walk(*mine, "N"), "00003") << "what was finished before the idling is seen";
    mine->Seek({"0002b"});
    EXPECT_FALSE(mine->NoMatch());
    db->Execute("delete * from gente");
  }
  db->Close();
  EXPECT_EQ(Walk(*mine, "F"), "!3021") << "recordsets outlive the handle that opened them";
}

// A row read here and changed elsewhere: a write on what was seen goes through, one on anything else is refused.
TEST_P(DatabaseContract, AnEditSeesWhatOthersDidMeanwhile) {
  auto mine = Open("Gente", "Icampo0");
  const Program other = OtherProgram();
  for (const auto& theirs : {Open("Gente"), other.people}) {
    Add(*mine, {"00001", "Ana"});
    mine->Seek({"00001"});
    theirs->MoveFirst();
    Change(*theirs, 1, "suyo");
    mine->Edit();
    EXPECT_EQ(mine->Fields(1).Get(), Value("suyo"));
    mine->Fields(1).Set("mio");
    Change(*theirs, 3, 2);
    EXPECT_EQ(Walk(*mine, "U"), "!3197");
    EXPECT_EQ(Query("select campo3 from gente where campo1 = 'suyo'"), std::vector<Value>{2});
    Change(*mine, 1, "mio");
    EXPECT_EQ(Query("select campo1 from gente where campo3 = 2"), std::vector<Value>{"mio"});
    mine->Edit();
    theirs->Delete();
    EXPECT_EQ(Walk(*mine, "UE"), "!3167, !3167");
  }
}

// One stands on the last row, another program takes it away and writes the next one: the two are never taken for each
// other. `undo` is the first program's own row, which never came to be.
TEST_P(DatabaseContract, ARowNumberIsNeverGivenTwice) {
  const Program other = OtherProgram();
  for (const char* removal : {"delete", "execute", "undo"}) {
    auto mine = Open("Gente", "Icampo0");
    const bool undo = removal == std::string("undo");
    if (undo) db->BeginTrans();
    Add(*mine, {"00060", "suya"});
    mine->Seek({"00060"});
    const Bookmark mark = mine->Bookmark();
    auto editing = mine->Clone();
    editing->GoTo(mark);
    editing->Edit();
    if (undo) {
      db->Rollback();
    } else if (removal == std::string("execute")) {
      other.db->Execute("delete * from gente");
    } else {
      other.people->MoveFirst();
      other.people->Delete();
    }
    Add(*other.people, {"00077", "otra"});
    EXPECT_EQ(Walk(*editing, "U"), "!3167");
    EXPECT_EQ(ErrorOf([&] { mine->Clone()->GoTo(mark); }), 3167) << removal;
    EXPECT_EQ(Walk(*mine, "E"), "!3167");
    EXPECT_EQ(Place(*mine), "3167") << "nothing of the row that is gone is shown";
    mine->MoveFirst();
    EXPECT_EQ(mine->Fields(1).Get(), Value("otra")) << removal;
    mine->Delete();
  }
}

TEST_P(DatabaseContract, TransactionsAreWholeOrNothing) {
  auto rs = Open("Gente", "Icampo0");
  EXPECT_EQ(ErrorOf([&] { db->CommitTrans(); }), 3034);
  EXPECT_EQ(ErrorOf([&] { db->Rollback(); }), 3034);
  Add(*rs, {"00001"});
  db->BeginTrans();
  Add(*rs, {"00002"});
  EXPECT_EQ(ErrorOf([&] { Add(*rs, {"00002"}); }), 3022);
  rs->Seek({"00001"});
  rs->Delete();
  Add(*rs, {"00003"});
  EXPECT_EQ(rs->RecordCount(), 2);
  db->Rollback();
  EXPECT_EQ(rs->RecordCount(), 1);
  EXPECT_THAT(Query("select campo0 from gente"), ElementsAre("00001"));
  db->BeginTrans();
  Add(*rs, {"00002"});
  Add(*rs, {"00003"});
  db->CommitTrans();
  EXPECT_EQ(OtherProgram().people->RecordCount(), 3);
  for (const bool commit : {false, true}) {
    Transaction transaction(*db);
    db->Execute("delete * from gente");
    if (commit) transaction.Commit();
    EXPECT_EQ(OtherProgram().people->RecordCount(), commit ? 0 : 3);
  }
}

}  // namespace
}  // namespace zendara

// Files: names, kinds, damage, two programs on one file, transactions.
#include <fstream>

#include "engine/contract.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class FileContract : public EngineContract {
 protected:
  std::shared_ptr<Workspace> Work() { return engine->Workspaces(0); }

  int OpenError(const std::string& path) {
    return ErrorOf([&] { Work()->OpenDatabase(path); });
  }
};
ZENDARA_FOR_EVERY_ENGINE(FileContract);

TEST_P(FileContract, NamesAreFoundWhateverTheirCaseAndSeparators) {
  fs::create_directory(folder.path() / "Datos");
  Work()->CreateDatabase(Path("DATOS\\Nom00001.MDB"))->CreateTable(People());
  EXPECT_EQ(OpenError(Path("Datos/NOM00001.mdb")), 0);
  EXPECT_EQ(OpenError(folder.path().string() + "\\datos\\nom00001.Mdb"), 0);
  auto found = Work()->OpenDatabase(Path("dATOS\\nOM00001.mdb"));
  EXPECT_EQ(found->OpenRecordset("GENTE", RecordsetType::kTable)->Fields("CAMPO0").Column().width, 5);
  EXPECT_TRUE(MakeHostFiles()->Exists(Path("datos\\NOM00001.MDB")));
  EXPECT_FALSE(MakeHostFiles()->Exists(Path("datos\\NOM00002.MDB")));
}

TEST_P(FileContract, FilesThatCannotBeOpened) {
  std::ofstream(Path("texto.MDB")) << std::string(5000, 'x');
  std::ofstream(Path("vacio.MDB")) << "";
  fs::create_directory(folder.path() / "carpeta.MDB");
  for (const auto& [file, error] : {std::pair("nada.MDB", 3024),
                                    {"no/nada.MDB", 3044},
                                    {"texto.MDB", 3343},
                                    {"vacio.MDB", 3343},
                                    {"carpeta.MDB", 3051}}) {
    EXPECT_EQ(OpenError(Path(file)), error) << file;
  }
  EXPECT_EQ(OpenError(""), 3055);
  EXPECT_EQ(ErrorOf([&] { Work()->CreateDatabase(Path("PRUEBA.mdb")); }), 3012) << "an existing file is never touched";
  EXPECT_EQ(ErrorOf([&] { Work()->CreateDatabase(Path("no/nada.MDB")); }), 3044);
  EXPECT_EQ(ErrorOf([&] { engine->Workspaces(1); }), 3265);
  EXPECT_EQ(ErrorOf([] { MakeEngine("otro://aqui"); }), 3170);
  EXPECT_EQ(ErrorOf([&] { db->CreateTable(People()); }), 3010);
  try {
    Work()->OpenDatabase(Path("nada.MDB"));
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_THAT(error.text(), testing::HasSubstr(Path("nada.MDB")));
  }
}

TEST_P(FileContract, ANewFileHasItsTablesAndIsOneOfTheDatabasesOfItsFolder) {
  const auto names = [&] { return Work()->Databases(folder.path().string()); };
  std::ofstream(Path("texto.MDB")) << "no";
  Work()->CreateDatabase(Path("Nueva.MDB"), {People()});
  EXPECT_THAT(names(), ElementsAre("Nueva.MDB", "Prueba.MDB"));
  EXPECT_THAT(Work()->OpenDatabase(Path("Nueva.MDB"))->Tables(), ElementsAre(People()));
  EXPECT_TRUE(Work()->Exists(Path("nueva.mdb")));
  EXPECT_FALSE(Work()->Exists(Path("nada.MDB")));
  EXPECT_EQ(ErrorOf([&] { Work()->Databases(Path("no")); }), 3044);
}

TEST_P(FileContract, ADatabaseIsRenamedWholeAndNeverOverAnother) {
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
  EXPECT_EQ(rename("Prueba.MDB", "no/Otra.MDB"), 3044);
  EXPECT_EQ(rename("prueba.mdb", "Otra.MDB"), 0);
  EXPECT_THAT(Work()->Databases(folder.path().string()), ElementsAre("Nueva.MDB", "Otra.MDB"));
  EXPECT_EQ(Work()->OpenDatabase(Path("Otra.MDB"))->OpenRecordset("Gente", RecordsetType::kTable)->RecordCount(), 1);
}

TEST_P(FileContract, OthersAreSeenAfterTheyFinish) {
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
TEST_P(FileContract, AnEditSeesWhatOthersDidMeanwhile) {
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
TEST_P(FileContract, ARowNumberIsNeverGivenTwice) {
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

TEST_P(FileContract, AReplacedFileIsAnotherOne) {
  auto mine = Open("Gente", "Icampo0");
  Add(*mine, {"00001"});
  Program other = OtherProgram();
  Add(*other.people, {"00002"});
  Work()->CreateDatabase(Path("copia.MDB"), {People()});
  fs::rename(Path("copia.MDB"), Path("Prueba.MDB"));
  EXPECT_EQ(OtherProgram().people->RecordCount(), 0);
  for (const auto& old : {mine, other.people}) {
    EXPECT_EQ(ErrorOf([&] { Add(*old, {"00003"}); }), 3420);
    EXPECT_EQ(Walk(*old, "FED"), "!3420, !3420, !3420");
  }
  EXPECT_EQ(ErrorOf([&] { db->BeginTrans(); }), 3420);
  auto opened = Work()->OpenDatabase(Path("Prueba.MDB"));
  Add(*opened->OpenRecordset("Gente", RecordsetType::kTable), {"00009"});
  for (auto* database : {&db, &other.db}) (*database)->Close();
  for (const auto& old : {mine, other.people}) old->Close();
  EXPECT_EQ(OtherProgram().people->RecordCount(), 1) << "closing the old file takes nothing from the new one";
  EXPECT_THAT(opened->CheckIntegrity(), testing::IsEmpty());
}

TEST_P(FileContract, TransactionsAreWholeOrNothing) {
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

TEST_P(FileContract, DamagedFilesGiveErrorsAndNeverCrash) {
  const std::string path = Path("Prueba.MDB");
  db->BeginTrans();
  for (int i = 0; i < 2000; ++i) Add(*Open("Gente"), {std::to_string(10000 + i), "nombre", "01/02/03", i});
  db->CommitTrans();
  db.reset();
  engine.reset();
  const auto read_all = [&](const std::string& file) {
    const Program program(GetParam().make(), file);
    auto& rs = *program.people;
    rs.SetIndex("Icampo0");
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
      for (int i = 0; i < 4; ++i) rs.Fields(i).Get();
    }
    if (!program.db->CheckIntegrity().empty()) throw RuntimeError(kDamagedFile);
  };
  read_all(path);
  const auto size = fs::file_size(path);
  int failures = 0;
  for (std::uintmax_t at = 0; at < size; at += 4096) {
    const std::string copy = Path("copia.MDB");
    fs::copy_file(path, copy, fs::copy_options::overwrite_existing);
    std::fstream(copy, std::ios::in | std::ios::out | std::ios::binary).seekp(static_cast<std::streamoff>(at))
        << std::string(2048, '\xa5');
    const int error = ErrorOf([&] { read_all(copy); });
    if (error != 0) ++failures;
    EXPECT_THAT(error, testing::AnyOf(0, 3343, 3049, 3011, 3421, 3015)) << "page at " << at;
  }
  EXPECT_GT(failures, 10);
  fs::resize_file(path, size / 2);
  EXPECT_NE(ErrorOf([&] { read_all(path); }), 0);
}

}  // namespace
}  // namespace zendara

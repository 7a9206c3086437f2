// Files: names, kinds, damage, two programs on one file, transactions.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <thread>

#include "engine/contract.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class FileContract : public EngineContract {
 protected:
  FileContract() { db->CreateTable(People()); }

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
  const auto files = MakeHostFiles();
  EXPECT_TRUE(files->Exists(Path("datos\\NOM00001.MDB")));
  EXPECT_FALSE(files->Exists(Path("datos\\NOM00002.MDB")));
}

TEST_P(FileContract, FilesThatCannotBeOpened) {
  std::ofstream(Path("texto.MDB")) << std::string(5000, 'x');
  std::ofstream(Path("vacio.MDB")) << "";
  fs::create_directory(folder.path() / "carpeta.MDB");
  EXPECT_EQ(OpenError(Path("nada.MDB")), 3024);
  EXPECT_EQ(OpenError(Path("no/nada.MDB")), 3044);
  EXPECT_EQ(OpenError(Path("texto.MDB")), 3343);
  EXPECT_EQ(OpenError(Path("vacio.MDB")), 3343);
  EXPECT_EQ(OpenError(Path("carpeta.MDB")), 3051);
  EXPECT_EQ(OpenError(""), 3055);
  EXPECT_EQ(ErrorOf([&] { Work()->CreateDatabase(Path("PRUEBA.mdb")); }), 3012) << "an existing file is never touched";
  EXPECT_EQ(ErrorOf([&] { Work()->CreateDatabase(Path("no/nada.MDB")); }), 3044);
  EXPECT_EQ(ErrorOf([&] { engine->Workspaces(1); }), 3265);
  EXPECT_EQ(ErrorOf([&] { db->CreateTable(People()); }), 3010);
  try {
    Work()->OpenDatabase(Path("nada.MDB"));
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_THAT(error.text(), testing::HasSubstr(Path("nada.MDB")));
  }
}

TEST_P(FileContract, DatabasesOnOneFileSeeEachOther) {
  auto other = Work()->OpenDatabase(Path("prueba.mdb"));
  auto mine = Open("Gente", "Icampo0");
  auto theirs = other->OpenRecordset("Gente", RecordsetType::kTable);
  Add(*theirs, {"00001", "Ana"});
  mine->Seek({"00001"});
  EXPECT_FALSE(mine->NoMatch());
  EXPECT_EQ(mine->RecordCount(), 1);
  db->Close();
  mine->MoveFirst();
  EXPECT_EQ(mine->Fields(1).Get(), Value("Ana")) << "recordsets outlive the handle that opened them";
}

TEST_P(FileContract, OtherProgramsAreSeenAfterTheyFinish) {
  const auto other_engine = GetParam().make();
  auto other = other_engine->Workspaces(0)->OpenDatabase(Path("Prueba.MDB"));
  auto theirs = other->OpenRecordset("Gente", RecordsetType::kTable);
  for (const char* key : {"00001", "00002", "00003"}) Add(*theirs, {key, "x"});
  auto mine = Open("Gente", "Icampo0");
  mine->MoveFirst();
  EXPECT_EQ(mine->RecordCount(), 3);
  Add(*theirs, {"0002b", "x"});
  EXPECT_EQ(mine->RecordCount(), 4);
  mine->MoveNext();
  engine->Idle(1);
  mine->MoveNext();
  EXPECT_EQ(mine->Fields(0).Get(), Value("00003"));
  mine->Seek({"0002b"});
  EXPECT_FALSE(mine->NoMatch());

  // A row read here and changed there: a write on another row goes through, one on it is refused.
  mine->Seek({"00001"});
  mine->Edit();
  theirs->SetIndex("Icampo0");
  theirs->Seek({"00001"});
  theirs->Edit();
  theirs->Fields(1).Set("suyo");
  theirs->Update();
  mine->Fields(1).Set("mio");
  EXPECT_EQ(ErrorOf([&] { mine->Update(); }), 3197);
  mine->Edit();
  EXPECT_EQ(mine->Fields(1).Get(), Value("suyo"));
  mine->Fields(1).Set("mio");
  mine->Update();
  theirs->Seek({"00001"});
  EXPECT_EQ(theirs->Fields(1).Get(), Value("mio"));
}

TEST_P(FileContract, WritersWaitForEachOther) {
  constexpr int kRows = 200;
  const auto write = [this](char prefix) {
    const auto own = GetParam().make();
    auto rs = own->Workspaces(0)->OpenDatabase(Path("Prueba.MDB"))->OpenRecordset("Gente", RecordsetType::kTable);
    for (int i = 0; i < kRows; ++i) Add(*rs, {prefix + std::to_string(1000 + i), "x"});
  };
  std::thread a(write, 'a');
  std::thread b(write, 'b');
  a.join();
  b.join();
  EXPECT_EQ(Open("Gente")->RecordCount(), 2 * kRows);
}

TEST_P(FileContract, ALockThatDoesNotGoAwayIsAnErrorAndTheSecondTrySucceeds) {
  const auto other_engine = GetParam().make();
  auto other = other_engine->Workspaces(0)->OpenDatabase(Path("Prueba.MDB"));
  auto rs = Open("Gente");
  other->BeginTrans();
  rs->AddNew();
  rs->Fields(0).Set("00001");
  EXPECT_EQ(ErrorOf([&] { rs->Update(); }), 3218);
  other->Rollback();
  rs->Update();
  EXPECT_EQ(rs->RecordCount(), 1);
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
  EXPECT_EQ(rs->RecordCount(), 1);
  db->Rollback();
  EXPECT_EQ(rs->RecordCount(), 1);
  EXPECT_THAT(Query("select campo0 from gente"), ElementsAre("00001"));
  db->BeginTrans();
  Add(*rs, {"00002"});
  Add(*rs, {"00003"});
  db->CommitTrans();
  const auto other = GetParam().make();
  auto theirs = other->Workspaces(0)->OpenDatabase(Path("Prueba.MDB"))->OpenRecordset("gente");
  theirs->MoveLast();
  EXPECT_EQ(theirs->RecordCount(), 3);
}

// A process that is killed while it writes leaves a file that opens, with every row that it saw finished.
TEST_P(FileContract, AKillLeavesEveryFinishedRow) {
  for (int round = 0; round < 5; ++round) {
    int pipe_ends[2];
    ASSERT_EQ(pipe(pipe_ends), 0);
    const pid_t child = fork();
    if (child == 0) {
      const auto own = GetParam().make();
      auto rs = own->Workspaces(0)->OpenDatabase(Path("Prueba.MDB"))->OpenRecordset("Gente", RecordsetType::kTable);
      for (int i = 0;; ++i) {
        Add(*rs, {std::to_string(round * 10000 + i + 10000).substr(0, 5), "x"});
        if (write(pipe_ends[1], ".", 1) != 1) _exit(1);
      }
    }
    close(pipe_ends[1]);
    const int wanted = 10 + 17 * round;
    int finished = 0;
    char byte;
    while (finished < wanted && read(pipe_ends[0], &byte, 1) == 1) ++finished;
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    while (read(pipe_ends[0], &byte, 1) == 1) ++finished;
    close(pipe_ends[0]);

    const auto own = GetParam().make();
    auto base = own->Workspaces(0)->OpenDatabase(Path("Prueba.MDB"));
    EXPECT_TRUE(base->CheckIntegrity().empty());
    auto rs = base->OpenRecordset("select campo0 from gente where campo0 >= '" + std::to_string(round * 10000 + 10000) +
                                  "' and campo0 < '" + std::to_string(round * 10000 + 20000) + "'");
    ASSERT_FALSE(rs->Eof());
    rs->MoveLast();
    EXPECT_GE(rs->RecordCount(), finished);
    EXPECT_LE(rs->RecordCount(), finished + 1);
  }
}

TEST_P(FileContract, DamagedFilesGiveErrorsAndNeverCrash) {
  const std::string path = Path("dano.MDB");
  {
    const auto own = GetParam().make();
    auto base = own->Workspaces(0)->CreateDatabase(path);
    base->CreateTable(People());
    auto rs = base->OpenRecordset("Gente", RecordsetType::kTable);
    base->BeginTrans();
    for (int i = 0; i < 2000; ++i) Add(*rs, {std::to_string(10000 + i), "nombre", "01/02/03", i});
    base->CommitTrans();
  }
  const auto size = fs::file_size(path);
  int failures = 0;
  for (std::uintmax_t at = 0; at < size; at += 4096) {
    const std::string copy = Path("copia.MDB");
    fs::copy_file(path, copy, fs::copy_options::overwrite_existing);
    std::fstream(copy, std::ios::in | std::ios::out | std::ios::binary).seekp(static_cast<std::streamoff>(at))
        << std::string(2048, '\xa5');
    const int error = ErrorOf([&] {
      const auto own = GetParam().make();
      auto base = own->Workspaces(0)->OpenDatabase(copy);
      auto rs = base->OpenRecordset("Gente", RecordsetType::kTable);
      rs->SetIndex("Icampo0");
      for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        for (int i = 0; i < 4; ++i) rs->Fields(i).Get();
      }
      if (!base->CheckIntegrity().empty()) throw RuntimeError(kDamagedFile);
    });
    if (error != 0) ++failures;
    EXPECT_THAT(error, testing::AnyOf(0, 3343, 3049, 3011, 3421, 3015)) << "page at " << at;
  }
  EXPECT_GT(failures, 10);
  fs::resize_file(path, size / 2);
  EXPECT_NE(ErrorOf([&] {
              auto base = Work()->OpenDatabase(path);
              if (!base->CheckIntegrity().empty()) throw RuntimeError(kDamagedFile);
            }),
            0);
}

}  // namespace
}  // namespace zendara

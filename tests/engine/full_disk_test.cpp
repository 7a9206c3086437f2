// A disk that fills up after any number of writes, one that is read-only, and what happens while the store waits.
#include <utility>

#include "engine/contract.hpp"
#include "support/test_disk.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

class DiskTest : public TestDisk, public testing::Test {
 protected:
  TempFolder folder;
  const std::string path = folder / "Prueba.MDB";
};

struct Opened {
  explicit Opened(const std::string& path) : base(engine->Workspaces(0)->OpenDatabase(path)) {}
  std::unique_ptr<Engine> engine = MakeSqliteEngine();
  std::shared_ptr<Database> base;
  std::shared_ptr<Recordset> people = base->OpenRecordset("Gente", RecordsetType::kTable);
};

void Create(const std::string& path) {
  const auto engine = MakeSqliteEngine();
  auto base = engine->Workspaces(0)->CreateDatabase(path);
  base->CreateTable(People());
  auto rs = base->OpenRecordset("Gente", RecordsetType::kTable);
  rs->AddNew();
  rs->Fields(0).Set("00001");
  rs->Fields(1).Set("vieja");
  rs->Update();
}

TEST_F(DiskTest, AFullDiskLeavesNothingHalfWrittenAndTheSecondTrySucceeds) {
  int failed = 0;
  for (int writes = 0;; ++writes) {
    std::filesystem::remove(path);
    Create(path);
    Opened open(path);
    auto& rs = *open.people;
    rs.MoveFirst();
    rs.Edit();
    rs.Fields(1).Set("nueva");
    disk.writes_left = writes;
    const int error = ErrorOf([&] { rs.Update(); });
    disk.writes_left = -1;
    if (error == 0) break;
    ++failed;
    ASSERT_EQ(error, 3026) << "after " << writes << " writes";
    EXPECT_EQ(open.base->OpenRecordset("select campo1 from gente")->Fields(0).Get(), Value("vieja"));
    rs.Update();
    EXPECT_EQ(rs.Fields(1).Get(), Value("nueva"));
    EXPECT_TRUE(open.base->CheckIntegrity().empty());
  }
  EXPECT_GT(failed, 0);
}

TEST_F(DiskTest, AFullDiskUndoesATransactionWhole) {
  Create(path);
  Opened open(path);
  open.base->BeginTrans();
  disk.writes_left = 20;
  const auto add = [&](int key) {
    open.people->AddNew();
    open.people->Fields(0).Set(std::to_string(10000 + key));
    open.people->Fields(1).Set("0123456789");
    open.people->Update();
  };
  const int error = ErrorOf([&] {
    for (int i = 0; i < 80000; ++i) add(i);
    open.base->CommitTrans();
  });
  EXPECT_EQ(error, 3026);
  disk.writes_left = -1;
  EXPECT_EQ(ErrorOf([&] { open.base->Rollback(); }), 0);
  EXPECT_EQ(open.people->RecordCount(), 1);
  add(7);
  EXPECT_EQ(Opened(path).people->RecordCount(), 2);
}

TEST_F(DiskTest, ANewFileThatDoesNotFitLeavesNothingBehind) {
  for (const int writes : {0, 1, 3}) {
    disk.writes_left = writes;
    const auto engine = MakeSqliteEngine();
    EXPECT_EQ(ErrorOf([&] { engine->Workspaces(0)->CreateDatabase(path); }), 3026) << writes;
    EXPECT_TRUE(std::filesystem::is_empty(folder.path())) << writes;
  }
}

TEST_F(DiskTest, AQueryThatAnotherProgramCreatesMeanwhileExists) {
  Create(path);
  const Opened open(path);
  const Opened other(path);
  other.base->BeginTrans();
  other.base->CreateQueryDef("Consulta");
  bool waited = false;
  disk.while_waiting = [&] {
    if (!std::exchange(waited, true)) other.base->CommitTrans();
  };
  EXPECT_EQ(ErrorOf([&] { open.base->CreateQueryDef("Consulta"); }), 3012);
  EXPECT_TRUE(waited);
}

TEST_F(DiskTest, AReadOnlyFileIsReadAndRefusesWrites) {
  Create(path);
  const Opened holds_shared_memory(path);
  disk.read_only = true;
  Opened open(path);
  EXPECT_EQ(open.people->Fields(1).Get(), Value("vieja"));
  open.people->Edit();
  open.people->Fields(1).Set("nueva");
  EXPECT_EQ(ErrorOf([&] { open.people->Update(); }), 3027);
  EXPECT_EQ(ErrorOf([&] { open.base->CreateQueryDef("Consulta"); }), 3027);
  EXPECT_EQ(ErrorOf([&] { open.people->Delete(); }), 3027);
  EXPECT_EQ(open.people->RecordCount(), 1);
}

}  // namespace
}  // namespace zendara

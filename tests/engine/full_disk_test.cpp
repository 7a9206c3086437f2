// A disk that fills up after any number of writes, one that is read-only, and what happens while the store waits.
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <utility>

#include "engine/contract.hpp"
#include "support/test_disk.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

class DiskTest : public TestDisk, public testing::Test {
 protected:
  // The file with one row.
  void Create() const {
    std::filesystem::remove(path);
    MakeEngine()->Workspaces(0)->CreateDatabase(path)->CreateTable(People());
    Add(*Open().people, {"00001", "vieja"});
  }
  Program Open() const { return {MakeEngine(), path}; }

  TempFolder folder;
  const std::string path = folder / "Prueba.MDB";
};

TEST_F(DiskTest, AFullDiskLeavesNothingHalfWrittenAndTheSecondTrySucceeds) {
  int failed = 0;
  for (int writes = 0;; ++writes) {
    Create();
    const Program open = Open();
    auto& rs = *open.people;
    rs.Edit();
    rs.Fields(1).Set("nueva");
    disk.writes_left = writes;
    const int error = ErrorOf([&] { rs.Update(); });
    disk.writes_left = -1;
    if (error == 0) break;
    ++failed;
    ASSERT_EQ(error, 3026) << "after " << writes << " writes";
    EXPECT_EQ(open.db->OpenRecordset("select campo1 from gente")->Fields(0).Get(), Value("vieja"));
    rs.Update();
    EXPECT_EQ(rs.Fields(1).Get(), Value("nueva"));
    EXPECT_TRUE(open.db->CheckIntegrity().empty());
  }
  EXPECT_GT(failed, 0);
}

TEST_F(DiskTest, AFullDiskUndoesATransactionWhole) {
  Create();
  const Program open = Open();
  open.db->BeginTrans();
  disk.writes_left = 20;
  const auto add = [&](int key) { Add(*open.people, {std::to_string(10000 + key), "0123456789"}); };
  const int error = ErrorOf([&] {
    for (int i = 0; i < 80000; ++i) add(i);
    open.db->CommitTrans();
  });
  EXPECT_EQ(error, 3026);
  disk.writes_left = -1;
  EXPECT_EQ(ErrorOf([&] { open.db->Rollback(); }), 0);
  EXPECT_EQ(open.people->RecordCount(), 1);
  add(7);
  EXPECT_EQ(Open().people->RecordCount(), 2);
}

// A process of its own, whose files may not grow beyond a size.
TEST_F(DiskTest, ANewFileThatDoesNotFitLeavesNothingBehind) {
  for (const rlim_t room : {0, 1, 4096, 12000}) {
    const auto create = [&] {
      signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{room, room};
      setrlimit(RLIMIT_FSIZE, &limit);
      const auto workspace = MakeEngine()->Workspaces(0);
      _exit(ErrorOf([&] { workspace->CreateDatabase(path, {People()}); }) == 3026 ? 0 : 1);
    };
    EXPECT_EXIT(create(), testing::ExitedWithCode(0), "") << room;
    EXPECT_TRUE(std::filesystem::is_empty(folder.path())) << room;
  }
}

TEST_F(DiskTest, AQueryThatAnotherProgramCreatesMeanwhileExists) {
  Create();
  const Program open = Open();
  const Program other = Open();
  other.db->BeginTrans();
  other.db->CreateQueryDef("Consulta");
  bool waited = false;
  disk.while_waiting = [&] {
    if (!std::exchange(waited, true)) other.db->CommitTrans();
  };
  EXPECT_EQ(ErrorOf([&] { open.db->CreateQueryDef("Consulta"); }), 3012);
  EXPECT_TRUE(waited);
}

TEST_F(DiskTest, AReadOnlyFileIsReadAndRefusesWrites) {
  Create();
  const Program holds_shared_memory = Open();
  disk.read_only = true;
  const Program open = Open();
  EXPECT_EQ(open.people->Fields(1).Get(), Value("vieja"));
  EXPECT_EQ(ErrorOf([&] { Change(*open.people, 1, "nueva"); }), 3027);
  EXPECT_EQ(ErrorOf([&] { open.db->CreateQueryDef("Consulta"); }), 3027);
  EXPECT_EQ(ErrorOf([&] { open.people->Delete(); }), 3027);
  EXPECT_EQ(open.people->RecordCount(), 1);
}

}  // namespace
}  // namespace zendara

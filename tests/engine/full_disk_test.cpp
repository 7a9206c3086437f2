// A disk that fills up after any number of writes, files that may not be written, and what happens while the store
// waits.
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <utility>

#include "adapters/host/network.hpp"
#include "engine/contract.hpp"
#include "support/disk_faults.hpp"
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
    disk.syncs = 0;
    ++failed;
    ASSERT_EQ(error, 3026) << "after " << writes << " writes";
    EXPECT_EQ(open.db->OpenRecordset("select campo1 from gente")->Fields(0).Get(), Value("vieja"));
    rs.Update();
    EXPECT_GE(disk.syncs, 1);
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

TEST_F(DiskTest, AFileOfAnEarlierVersionKeepsItsRowsAndItsNumbersFromNowOn) {
  Create();
  sqlite3* raw = nullptr;
  sqlite3_open(path.c_str(), &raw);
  EXPECT_EQ(sqlite3_exec(raw, "DROP TABLE zendara_numbers", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(raw);
  const Program programs[] = {Open(), Open()};
  const Bookmark first = programs[0].people->Bookmark();
  programs[1].people->Delete();
  Add(*programs[1].people, {"00077"});
  EXPECT_EQ(ErrorOf([&] { programs[0].people->GoTo(first); }), 3167);
  EXPECT_EQ(programs[0].people->RecordCount(), 1);
}

// In a process of its own, as a user who may write nowhere.
template <typename Work>
void AsStranger(Work work) {
  if (geteuid() == 0 && setresuid(65534, 65534, 65534) != 0) _exit(1);
  std::cerr << work();
  _exit(0);
}

TEST(FilesOfOthers, AreReadWhereNothingCanBeWrittenAndRefuseWrites) {
  namespace fs = std::filesystem;
  const TempFolder folder;
  const std::string path = folder / "Prueba #1?.MDB";
  {
    const auto db = MakeEngine()->Workspaces(0)->CreateDatabase(path, {People()});
    Add(*db->OpenRecordset("Gente", RecordsetType::kTable), {"00001", "vieja"});
  }
  const auto reads_and_writes = [&] {
    std::string said;
    const int error = ErrorOf([&] {
      const Program open(MakeEngine(), path);
      said = open.people->Fields(1).Get().Text() + " ";
      Change(*open.people, 1, "nueva");
    });
    return said + std::to_string(error);
  };
  fs::permissions(folder.path(), fs::perms(0555));
  EXPECT_EXIT(AsStranger(reads_and_writes), testing::ExitedWithCode(0), "^vieja 3027$");
  std::ofstream(path + "-wal") << "rows";
  EXPECT_EXIT(AsStranger(reads_and_writes), testing::ExitedWithCode(0), "^3051$");
  fs::permissions(folder.path(), fs::perms(0444));
  EXPECT_EXIT(AsStranger(reads_and_writes), testing::ExitedWithCode(0), "^3051$");
  const auto read_record = [&] { return std::to_string(ErrorOf([&] { MakeHostFiles()->ReadRecord(path, 1); })); };
  EXPECT_EXIT(AsStranger(read_record), testing::ExitedWithCode(0), "^70$");
  fs::permissions(folder.path(), fs::perms(0755));
}

TEST(HostFiles, OnlyFilesAreRead) {
  const TempFolder folder;
  mkfifo((folder / "tubo.DAT").c_str(), 0666);
  std::filesystem::create_directory(folder.path() / "carpeta.DAT");
  std::filesystem::create_symlink("nada", folder.path() / "muerto.DAT");
  for (const auto& [file, error] :
       {std::pair("tubo.DAT", 75), {"carpeta.DAT", 75}, {"muerto.DAT", 53}, {"no/x.DAT", 76}}) {
    EXPECT_EQ(ErrorOf([&] { MakeHostFiles()->ReadRecord(folder / file, 10); }), error) << file;
    EXPECT_NE(ErrorOf([&] { MakeEngine()->Workspaces(0)->OpenDatabase(folder / file); }), 0) << file;
  }
}

TEST(Network, FoldersOfOtherMachinesAreKnownByTheirFileSystem) {
  for (const auto* network : {"nfs", "nfs4", "cifs", "smb3", "ceph", "fuse.sshfs"}) {
    EXPECT_TRUE(IsNetworkFileSystem(network)) << network;
  }
  for (const auto* local : {"", "ext4", "xfs", "btrfs", "tmpfs", "overlay", "9p", "fuseblk", "fuse"}) {
    EXPECT_FALSE(IsNetworkFileSystem(local)) << local;
  }
  EXPECT_EQ(FileSystemOf("/proc/self/"), "proc");
}

}  // namespace
}  // namespace zendara

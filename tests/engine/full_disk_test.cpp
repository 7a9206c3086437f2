// A disk that fills up after any number of writes, and one that is read-only, put under the store.
#include <sqlite3.h>

#include <cstring>

#include "engine/contract.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

// Passes everything on to the machine's files, but for the writes that do not fit any more.
struct Disk {
  int writes_left = -1;  // -1: as many as wanted
  bool read_only = false;
};
Disk disk;

struct File {
  sqlite3_file base;
  sqlite3_io_methods methods;
  sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
  static File* Of(sqlite3_file* file) { return reinterpret_cast<File*>(file); }
};

sqlite3_vfs* Machine() { return sqlite3_vfs_find("unix"); }

// The methods of a real file take that file; these find it behind ours.
template <auto Method, typename... Args>
int Pass(sqlite3_file* file, Args... args) {
  sqlite3_file* real = File::Of(file)->real();
  return (real->pMethods->*Method)(real, args...);
}

template <auto Method, typename Result, typename... Args>
auto Passing(Result (*)(sqlite3_file*, Args...)) {
  return +[](sqlite3_file* file, Args... args) -> Result {
    sqlite3_file* real = File::Of(file)->real();
    return (real->pMethods->*Method)(real, args...);
  };
}

int Write(sqlite3_file* file, const void* data, int size, sqlite3_int64 at) {
  if (disk.writes_left == 0) return SQLITE_FULL;
  if (disk.writes_left > 0) --disk.writes_left;
  return Pass<&sqlite3_io_methods::xWrite>(file, data, size, at);
}

#define ZENDARA_PASS(name) f->methods.name = Passing<&sqlite3_io_methods::name>(real.name)

int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* out_flags) {
  File* f = File::Of(file);
  std::memset(static_cast<void*>(f), 0, sizeof *f);
  if (disk.read_only && (flags & SQLITE_OPEN_READWRITE)) {
    flags = (flags & ~(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) | SQLITE_OPEN_READONLY;
  }
  const int code = Machine()->xOpen(Machine(), name, f->real(), flags, out_flags);
  if (code != SQLITE_OK) return code;
  const sqlite3_io_methods& real = *f->real()->pMethods;
  f->methods = real;
  ZENDARA_PASS(xClose);
  ZENDARA_PASS(xRead);
  ZENDARA_PASS(xTruncate);
  ZENDARA_PASS(xSync);
  ZENDARA_PASS(xFileSize);
  ZENDARA_PASS(xLock);
  ZENDARA_PASS(xUnlock);
  ZENDARA_PASS(xCheckReservedLock);
  ZENDARA_PASS(xFileControl);
  ZENDARA_PASS(xSectorSize);
  ZENDARA_PASS(xDeviceCharacteristics);
  ZENDARA_PASS(xShmMap);
  ZENDARA_PASS(xShmLock);
  ZENDARA_PASS(xShmBarrier);
  ZENDARA_PASS(xShmUnmap);
  ZENDARA_PASS(xFetch);
  ZENDARA_PASS(xUnfetch);
  f->methods.xWrite = Write;
  f->base.pMethods = &f->methods;
  return SQLITE_OK;
}

class DiskTest : public testing::Test {
 protected:
  DiskTest() {
    disk = {};
    vfs_ = *Machine();
    vfs_.zName = "disk";
    vfs_.szOsFile += static_cast<int>(sizeof(File));
    vfs_.pNext = nullptr;
    vfs_.xOpen = zendara::Open;
    sqlite3_vfs_register(&vfs_, 1);
  }
  ~DiskTest() override { sqlite3_vfs_unregister(&vfs_); }

  TempFolder folder;
  const std::string path = folder / "Prueba.MDB";

 private:
  sqlite3_vfs vfs_;
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

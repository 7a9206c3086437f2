// A disk that fills up after any number of writes, fails once, or is read-only, put under the store; waiting for locks
// and syncing take no time on it.
#pragma once

#include <sqlite3.h>

#include <cstring>
#include <functional>

namespace zendara {

struct Disk {
  int writes_left = -1;  // -1: as many as wanted
  int fault_in = -1;     // opening, reading, writing, syncing or locking, after as many of these; -1: none
  bool read_only = false;
  int syncs = 0;
  int waited = 0;                       // microseconds that the store wanted to sleep, for a lock to go
  std::function<void()> while_waiting;  // called instead; may be empty
};
inline Disk disk;

namespace disk_shim {

// Passes everything on to the machine's files, but for the writes that do not fit any more.

struct File {
  sqlite3_file base;
  sqlite3_io_methods methods;
  sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
  static File* Of(sqlite3_file* file) { return reinterpret_cast<File*>(file); }
};

inline sqlite3_vfs* Machine() { return sqlite3_vfs_find("unix"); }

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

inline bool Fails() { return disk.fault_in >= 0 && disk.fault_in-- == 0; }

inline int Read(sqlite3_file* file, void* data, int size, sqlite3_int64 at) {
  return Fails() ? SQLITE_IOERR_READ : Pass<&sqlite3_io_methods::xRead>(file, data, size, at);
}

inline int Sync(sqlite3_file*, int) {
  ++disk.syncs;
  return Fails() ? SQLITE_IOERR_FSYNC : SQLITE_OK;
}

inline int Lock(sqlite3_file* file, int level) {
  return Fails() ? SQLITE_IOERR_LOCK : Pass<&sqlite3_io_methods::xLock>(file, level);
}

inline int Write(sqlite3_file* file, const void* data, int size, sqlite3_int64 at) {
  if (disk.writes_left == 0 || Fails()) return SQLITE_FULL;
  if (disk.writes_left > 0) --disk.writes_left;
  return Pass<&sqlite3_io_methods::xWrite>(file, data, size, at);
}

#define ZENDARA_PASS(name) f->methods.name = Passing<&sqlite3_io_methods::name>(real.name)

inline int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* out_flags) {
  File* f = File::Of(file);
  std::memset(static_cast<void*>(f), 0, sizeof *f);
  if (Fails()) return SQLITE_CANTOPEN;
  if (disk.read_only && (flags & SQLITE_OPEN_READWRITE)) {
    flags = (flags & ~(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) | SQLITE_OPEN_READONLY;
  }
  const int code = Machine()->xOpen(Machine(), name, f->real(), flags, out_flags);
  if (code != SQLITE_OK) return code;
  const sqlite3_io_methods& real = *f->real()->pMethods;
  f->methods = real;
  ZENDARA_PASS(xClose);
  ZENDARA_PASS(xTruncate);
  ZENDARA_PASS(xFileSize);
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
  f->methods.xRead = Read;
  f->methods.xWrite = Write;
  f->methods.xSync = Sync;
  f->methods.xLock = Lock;
  f->base.pMethods = &f->methods;
  return SQLITE_OK;
}

#undef ZENDARA_PASS

inline int Sleep(sqlite3_vfs*, int microseconds) {
  disk.waited += microseconds;
  if (disk.while_waiting) disk.while_waiting();
  return microseconds;
}

}  // namespace disk_shim

// While it lives, whatever the store opens lies on `disk`. What is open has to be closed before.
class TestDisk {
 public:
  TestDisk() {
    disk = {};
    vfs_.zName = "disk";
    vfs_.szOsFile += static_cast<int>(sizeof(disk_shim::File));
    vfs_.pNext = nullptr;
    vfs_.xOpen = disk_shim::Open;
    vfs_.xSleep = disk_shim::Sleep;
    sqlite3_vfs_register(&vfs_, 1);
  }
  ~TestDisk() { sqlite3_vfs_unregister(&vfs_); }
  TestDisk(const TestDisk&) = delete;
  TestDisk& operator=(const TestDisk&) = delete;

 private:
  sqlite3_vfs vfs_ = *disk_shim::Machine();
};

}  // namespace zendara

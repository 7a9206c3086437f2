#include "adapters/sqlite/stale_log.hpp"

#include <fcntl.h>
#include <sqlite3.h>

#include <system_error>

#include "adapters/host/descriptor.hpp"

namespace zendara::sqlite {
namespace {

namespace fs = std::filesystem;

// Everybody who has a log open holds a lock on this byte of the memory that they share, and lets it go before the lock
// that he holds on the database file.
constexpr off_t kLockOfUsers = 128;

bool SomebodyUses(const fs::path& shared_memory) {
  const Descriptor file(open(shared_memory.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file) return false;
  struct flock lock = {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  lock.l_start = kLockOfUsers;
  lock.l_len = 1;
  // Other than the older locks, this one sees this program's.
  return fcntl(file.get(), F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

}  // namespace

void DropStaleLog(sqlite3* database, const fs::path& path) {
  const fs::path log = fs::path(path) += "-wal";
  const fs::path shared_memory = fs::path(path) += "-shm";
  std::error_code missing;
  if (fs::file_size(log, missing) == 0 || missing) return;
  sqlite3_file* file = nullptr;
  sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  if (!file || !file->pMethods || file->pMethods->xLock(file, SQLITE_LOCK_SHARED) != SQLITE_OK) return;
  const bool alone = file->pMethods->xLock(file, SQLITE_LOCK_EXCLUSIVE) == SQLITE_OK;
  if (alone && SomebodyUses(shared_memory)) {
    fs::remove(log, missing);
    fs::remove(shared_memory, missing);
  }
  file->pMethods->xUnlock(file, SQLITE_LOCK_NONE);
}

}  // namespace zendara::sqlite

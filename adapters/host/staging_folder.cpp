#include "adapters/host/staging_folder.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "adapters/host/new_file.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = ".zendara-new.";
// Stands in the folder while its files get their names.
constexpr const char* kPublishing = "publishing";

[[noreturn]] void Fail(const fs::path& path, int error = errno) {
  throw std::system_error(error, std::generic_category(), path.string());
}

Descriptor Open(const fs::path& path, int flags) { return Descriptor(open(path.c_str(), flags | O_CLOEXEC, 0666)); }

void Sync(const fs::path& path) {
  const Descriptor file = Open(path, O_RDONLY);
  if (!file || fsync(file.get()) != 0) Fail(path);
}

std::optional<struct stat> StatusOf(const fs::path& path) {
  struct stat status = {};
  if (lstat(path.c_str(), &status) != 0) return std::nullopt;
  return status;
}

bool SameFile(const struct stat& a, const struct stat& b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

bool IsLater(const struct stat& a, const struct stat& b) {
  return std::pair(a.st_mtim.tv_sec, a.st_mtim.tv_nsec) > std::pair(b.st_mtim.tv_sec, b.st_mtim.tv_nsec);
}

// Nothing when another program has it, or when the folder was removed by one that had it. A file system without locks
// fails.
Descriptor Lock(const fs::path& folder) {
  Descriptor open_folder = Open(folder, O_RDONLY | O_DIRECTORY);
  if (!open_folder) return open_folder;
  if (flock(open_folder.get(), LOCK_EX | LOCK_NB) != 0) {
    if (errno == EWOULDBLOCK) return Descriptor();
    Fail(folder);
  }
  struct stat locked = {};
  const auto named = StatusOf(folder);
  if (fstat(open_folder.get(), &locked) != 0 || !named || !SameFile(locked, *named)) return Descriptor();
  return open_folder;
}

// What a program that ended had given names already, but for what somebody has written to since.
void UndoPublishing(const fs::path& folder, const fs::path& target) {
  const auto begun = StatusOf(folder / kPublishing);
  if (!begun) return;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const fs::path name = target / entry->path().filename();
    const auto made = StatusOf(entry->path());
    const auto named = StatusOf(name);
    const bool mine = made && named && SameFile(*made, *named);
    if (mine && !IsLater(*named, *begun) && !StatusOf(name.string() + "-wal")) unlink(name.c_str());
  }
}

void RemoveLeftOvers(const fs::path& target) {
  std::error_code error;
  std::vector<fs::path> folders;
  for (fs::directory_iterator entry(target, error), end; !error && entry != end; entry.increment(error)) {
    if (entry->path().filename().string().starts_with(kPrefix)) folders.push_back(entry->path());
  }
  for (const fs::path& folder : folders) {
    const auto lock = Lock(folder);
    if (!lock) continue;
    UndoPublishing(folder, target);
    fs::remove_all(folder, error);
  }
}

void RefuseUnfinished(const fs::path& file) {
  for (const char* log : {"-wal", "-journal"}) {
    if (const fs::path beside = file.string() + log; StatusOf(beside)) Fail(beside, EIO);
  }
}

// By a second name, so that a program that ends on the way can be undone, where the file system has such. False when
// something has the name.
bool GiveName(const fs::path& file, const fs::path& name) {
  if (link(file.c_str(), name.c_str()) == 0) return true;
  std::error_code error(errno, std::generic_category());
  if (error == std::errc::operation_not_permitted || error == std::errc::operation_not_supported) {
    error = RenameFile(file, name);
  }
  if (error && error != std::errc::file_exists) Fail(name, error.value());
  return !error;
}

}  // namespace

StagingFolder::StagingFolder(const fs::path& target) : target_(target) {
  RemoveLeftOvers(target);
  for (int i = 1; !lock_; ++i) {
    path_ = target / (std::string(kPrefix) + std::to_string(i));
    if (mkdir(path_.c_str(), 0777) == 0) {
      lock_ = Lock(path_);
    } else if (errno != EEXIST) {
      Fail(path_);
    }
  }
}

StagingFolder::~StagingFolder() {
  // A publishing that could not be undone is left to the next program.
  std::error_code stays;
  if (!StatusOf(path_ / kPublishing)) fs::remove_all(path_, stays);
}

std::optional<std::string> StagingFolder::Publish(std::span<const std::string> names) const {
  for (const std::string& name : names) {
    RefuseUnfinished(path_ / name);
    Sync(path_ / name);
  }
  const fs::path publishing = path_ / kPublishing;
  if (!Open(publishing, O_WRONLY | O_CREAT | O_EXCL)) Fail(publishing);
  std::vector<fs::path> given;
  const auto undo = [&] {
    for (const fs::path& name : given) unlink(name.c_str());
    unlink(publishing.c_str());
  };
  try {
    Sync(path_);
    for (const std::string& name : names) {
      if (!GiveName(path_ / name, target_ / name)) {
        undo();
        return name;
      }
      given.push_back(target_ / name);
    }
    Sync(target_);
    if (unlink(publishing.c_str()) != 0) Fail(publishing);
  } catch (...) {
    undo();
    throw;
  }
  return std::nullopt;
}

}  // namespace zendara

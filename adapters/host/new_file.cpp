#include "adapters/host/new_file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "adapters/host/descriptor.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

std::error_code Failure() { return {errno, std::generic_category()}; }

fs::path FolderOf(const fs::path& path) { return path.has_parent_path() ? path.parent_path() : fs::path("."); }

std::error_code SyncFolder(const fs::path& folder) {
  const Descriptor open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!open || fsync(open.get()) != 0) return Failure();
  return {};
}

std::error_code WriteAll(int file, std::string_view contents) {
  while (!contents.empty()) {
    const ssize_t written = write(file, contents.data(), contents.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return Failure();
    contents.remove_prefix(static_cast<std::size_t>(written));
  }
  if (fsync(file) != 0) return Failure();
  return {};
}

// A file without a name, which goes with the program unless it gets one.
std::error_code WriteNameless(int file, const fs::path& path, std::string_view contents) {
  if (const auto error = WriteAll(file, contents)) return error;
  const std::string open_file = "/proc/self/fd/" + std::to_string(file);
  if (linkat(AT_FDCWD, open_file.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) != 0) return Failure();
  return {};
}

// For file systems that have no such files.
std::error_code WriteBeside(const fs::path& path, std::string_view contents) {
  std::string beside = FolderOf(path) / ".zendara-XXXXXX";
  const Descriptor file(mkostemp(beside.data(), O_CLOEXEC));
  if (!file) return Failure();
  const mode_t masked = umask(0);
  umask(masked);
  // Some file systems have the same permissions for all files.
  const bool usual = fchmod(file.get(), 0666 & ~masked) == 0 || errno == EPERM;
  std::error_code error = usual ? WriteAll(file.get(), contents) : Failure();
  if (!error) error = RenameFile(beside, path);
  if (error) unlink(beside.c_str());
  return error;
}

}  // namespace

std::error_code WriteNewFile(const fs::path& path, std::string_view contents) {
  const Descriptor file(open(FolderOf(path).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666));
  if (!file && errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL) return Failure();
  if (const auto error = file ? WriteNameless(file.get(), path, contents) : WriteBeside(path, contents)) return error;
  return SyncFolder(FolderOf(path));
}

std::error_code ReplaceFile(const fs::path& path, std::string_view contents) {
  fs::path beside;
  std::error_code error;
  for (int number = 0; number == 0 || error == std::errc::file_exists; ++number) {
    beside = FolderOf(path) / (".zendara-" + std::to_string(getpid()) + "-" + std::to_string(number));
    error = WriteNewFile(beside, contents);
  }
  if (!error && rename(beside.c_str(), path.c_str()) != 0) error = Failure();
  if (!error) return SyncFolder(FolderOf(path));
  unlink(beside.c_str());
  return error;
}

std::error_code RenameFile(const fs::path& from, const fs::path& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) != 0) {
    // A file system that cannot refuse to replace: a second name is never given to what is there.
    if (errno != EINVAL && errno != ENOSYS) return Failure();
    if (link(from.c_str(), to.c_str()) != 0 || unlink(from.c_str()) != 0) return Failure();
  }
  const auto error = SyncFolder(FolderOf(to));
  return error || FolderOf(from) == FolderOf(to) ? error : SyncFolder(FolderOf(from));
}

}  // namespace zendara

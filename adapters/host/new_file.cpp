#include "adapters/host/new_file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

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

constexpr std::size_t kPiece = std::size_t{1} << 18;  // fewer calls for small ones

// A file without a name, which goes with the program unless it gets one; for file systems that have no such files a
// hidden one.
Descriptor Make(const fs::path& path, fs::path& beside) {
  Descriptor nameless(open(FolderOf(path).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666));
  if (nameless || (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)) return nameless;
  std::string name = FolderOf(path) / ".zendara-XXXXXX";
  Descriptor hidden(mkostemp(name.data(), O_CLOEXEC));
  if (!hidden) return hidden;
  beside = name;
  const mode_t masked = umask(0);
  umask(masked);
  // Some file systems have the same permissions for all files.
  const bool usual = fchmod(hidden.get(), 0666 & ~masked) == 0 || errno == EPERM;
  return usual ? std::move(hidden) : Descriptor();
}

std::error_code WriteWhole(const fs::path& path, std::string_view contents, NewFile::Taken taken) {
  NewFile file(path, taken);
  file.Append(contents);
  return file.Commit();
}

}  // namespace

NewFile::NewFile(fs::path path, Taken taken) : path_(std::move(path)), taken_(taken), file_(Make(path_, beside_)) {
  if (!file_) error_ = Failure();
}

NewFile::~NewFile() {
  if (!beside_.empty()) unlink(beside_.c_str());
}

std::error_code NewFile::Append(std::string_view contents) {
  if (error_) return error_;
  const bool fits = waiting_.size() + contents.size() < kPiece;
  if (!fits) {
    error_ = Write(waiting_);
    waiting_.clear();
  }
  if (contents.size() < kPiece) {
    waiting_ += contents;
  } else if (!error_) {
    error_ = Write(contents);
  }
  return error_;
}

std::error_code NewFile::Sync() {
  if (!error_) error_ = Write(waiting_);
  waiting_.clear();
  if (!error_ && fsync(file_.get()) != 0) error_ = Failure();
  return error_;
}

std::error_code NewFile::Commit() {
  Sync();
  if (!error_) error_ = taken_ == Taken::kReplace ? ReplaceByName() : GiveName(path_);
  if (!error_) error_ = SyncFolder(FolderOf(path_));
  return error_;
}

std::error_code NewFile::Write(std::string_view contents) {
  while (!contents.empty()) {
    const ssize_t written = write(file_.get(), contents.data(), contents.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return Failure();
    contents.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

std::error_code NewFile::GiveName(const fs::path& path) {
  if (!beside_.empty()) {
    const auto error = RenameFile(beside_, path);
    if (!error) beside_.clear();
    return error;
  }
  const std::string open_file = "/proc/self/fd/" + std::to_string(file_.get());
  if (linkat(AT_FDCWD, open_file.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) != 0) return Failure();
  return {};
}

// No call gives a file without a name one that is taken.
std::error_code NewFile::ReplaceByName() {
  for (int number = 0; beside_.empty(); ++number) {
    const fs::path name = FolderOf(path_) / (".zendara-" + std::to_string(getpid()) + "-" + std::to_string(number));
    const auto error = GiveName(name);
    if (!error) beside_ = name;
    if (error && error != std::errc::file_exists) return error;
  }
  if (rename(beside_.c_str(), path_.c_str()) != 0) return Failure();
  beside_.clear();
  return {};
}

std::error_code WriteNewFile(const fs::path& path, std::string_view contents) {
  return WriteWhole(path, contents, NewFile::Taken::kKeep);
}

std::error_code ReplaceFile(const fs::path& path, std::string_view contents) {
  return WriteWhole(path, contents, NewFile::Taken::kReplace);
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

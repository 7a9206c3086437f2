#include "adapters/drafts/draft_file.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>
#include <string_view>
#include <utility>

#include "adapters/drafts/draft_lines.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kOwnersFile = 0600;
constexpr mode_t kOwnersFolder = 0700;
constexpr mode_t kOthers = 077;
constexpr int kGuarded = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;

bool Lock(int file, int kind) { return flock(file, kind | LOCK_NB) == 0; }

bool IsOwnFile(int file) {
  struct stat state {};
  return fstat(file, &state) == 0 && S_ISREG(state.st_mode) && state.st_uid == geteuid();
}

std::string ReadAll(int file) {
  std::string text;
  std::array<char, 16384> part{};
  for (ssize_t got = 0; (got = read(file, part.data(), part.size())) != 0;) {
    if (got < 0 && errno != EINTR) break;
    if (got > 0) text.append(part.data(), static_cast<std::size_t>(got));
  }
  return text;
}

int WriteAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t put = write(file, text.data(), text.size());
    if (put < 0 && errno != EINTR) return errno;
    if (put > 0) text.remove_prefix(static_cast<std::size_t>(put));
  }
  return 0;
}

}  // namespace

std::shared_ptr<DraftFile> DraftFile::Make(const fs::path& path, int& error) {
  Descriptor file(open(path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_APPEND | kGuarded, kOwnersFile));
  if (!file || !Lock(file.get(), LOCK_EX)) {
    error = errno;
    return nullptr;
  }
  return std::shared_ptr<DraftFile>(new DraftFile(path.parent_path(), std::move(file)));
}

std::shared_ptr<DraftFile> DraftFile::Open(const fs::path& path) {
  Descriptor file(open(path.c_str(), O_RDWR | O_APPEND | kGuarded));
  if (!file || !IsOwnFile(file.get()) || !Lock(file.get(), LOCK_EX)) return nullptr;
  Draft draft;
  const auto whole = static_cast<off_t>(ReadLines(ReadAll(file.get()), draft));
  if (whole == 0 || ftruncate(file.get(), whole) != 0) return nullptr;
  std::shared_ptr<DraftFile> opened(new DraftFile(path.parent_path(), std::move(file)));
  opened->written_ = std::move(draft);
  opened->size_ = whole;
  return opened;
}

int DraftFile::Append(const Draft& draft) {
  const std::string line = written_ ? ChangeLine(*written_, draft) : FirstLine(draft);
  if (const int error = WriteAll(file_.get(), line); error != 0) {
    // Otherwise the next line would be torn too. If this fails the reader stops there.
    [[maybe_unused]] const int cut = ftruncate(file_.get(), size_);
    return error;
  }
  written_ = draft;
  size_ += static_cast<off_t>(line.size());
  return 0;
}

void DraftFile::Sync() const {
  fdatasync(file_.get());
  // Its name, too.
  const Descriptor folder(open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder) fsync(folder.get());
}

bool DraftFile::IsGone() const {
  struct stat state {};
  return fstat(file_.get(), &state) != 0 || state.st_nlink == 0;
}

void DraftFile::Release() const { flock(file_.get(), LOCK_UN); }

bool IsWorkedOn(const fs::path& path) {
  const Descriptor file(open(path.c_str(), O_RDONLY | kGuarded));
  return file && !Lock(file.get(), LOCK_SH);
}

Draft ReadDraftFile(const fs::path& path) {
  const Descriptor file(open(path.c_str(), O_RDONLY | kGuarded));
  Draft draft;
  if (file && IsOwnFile(file.get())) ReadLines(ReadAll(file.get()), draft);
  return draft;
}

int MakeDraftsFolder(const fs::path& folder) {
  if (folder.empty()) return ENOENT;
  fs::path made;
  for (const fs::path& part : folder) {
    made /= part;
    if (mkdir(made.c_str(), kOwnersFolder) != 0 && errno != EEXIST && errno != EROFS) return errno;
  }
  struct stat state {};
  if (lstat(folder.c_str(), &state) != 0) return errno;
  if (!S_ISDIR(state.st_mode)) return ENOTDIR;
  if (state.st_uid != geteuid()) return EPERM;
  if ((state.st_mode & kOthers) != 0 && chmod(folder.c_str(), kOwnersFolder) != 0) return errno;
  return 0;
}

}  // namespace zendara

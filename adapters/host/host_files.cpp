#include "adapters/host/host_files.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>

#include "adapters/host/descriptor.hpp"
#include "runtime/text.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

// `error` only when the machine does not say whether there is such a file.
bool IsThere(const fs::path& path, std::error_code& error) {
  const bool there = fs::exists(path, error);
  if (error == std::errc::filename_too_long) error.clear();
  return there;
}

std::optional<fs::path> FindIn(const fs::path& folder, const fs::path& name, std::error_code& error) {
  if (IsThere(folder / name, error)) return folder / name;
  if (error) return std::nullopt;
  const std::string wanted = LCase(name.string());
  for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const fs::path found = folder / entry->path().filename();
    std::error_code gone;  // a link that leads nowhere
    if (LCase(found.filename().string()) == wanted && IsThere(found, gone)) return found;
  }
  if (error == std::errc::not_a_directory) error.clear();
  return std::nullopt;
}

[[noreturn]] void Fail(int error, std::string_view path) {
  const std::error_code code(error, std::generic_category());
  int number = kDeviceIoError;
  if (error == ENOENT) number = kFileNotFound;
  if (error == EACCES || error == EPERM) number = kPermissionDenied;
  if (error == EISDIR || error == ENXIO || error == ELOOP) number = kPathFileAccess;
  throw RuntimeError(number, {}, std::string(path) + ": " + code.message(), error);
}

class HostFiles final : public Files {
 public:
  bool Exists(std::string_view path) const override { return FindPath(path).has_value(); }

  std::string ReadRecord(std::string_view path, std::size_t length) const override {
    const auto found = FindPath(path);
    if (!found) {
      const auto folder = MachinePath(path).parent_path().string();
      throw RuntimeError(folder.empty() || FindPath(folder) ? kFileNotFound : kPathNotFound, {}, path);
    }
    // Neither waits for the other end of a pipe nor takes a terminal over.
    const Descriptor file(open(found->c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file) Fail(errno, path);
    std::string record(length, '\0');
    if (const int error = Read(file.get(), record)) Fail(error, path);
    return record;
  }

 private:
  // 0, or why not.
  static int Read(int file, std::string& record) {
    struct stat status = {};
    if (fstat(file, &status) != 0) return errno;
    if (!S_ISREG(status.st_mode)) return EISDIR;
    std::size_t done = 0;
    while (done < record.size()) {
      const ssize_t got = read(file, record.data() + done, record.size() - done);
      if (got < 0 && errno == EINTR) continue;
      if (got < 0) return errno;
      if (got == 0) break;
      done += static_cast<std::size_t>(got);
    }
    return 0;
  }
};

}  // namespace

fs::path MachinePath(std::string_view path) {
  std::string text(path);
  std::ranges::replace(text, '\\', '/');
  return fs::path(text);
}

std::optional<fs::path> FindPath(std::string_view path, std::error_code& error) {
  const fs::path wanted = MachinePath(path);
  if (IsThere(wanted, error)) return wanted;
  if (error) return std::nullopt;
  fs::path found = wanted.root_path();
  for (const fs::path& part : wanted.relative_path()) {
    const auto next = FindIn(found, part, error);
    if (!next) return std::nullopt;
    found = *next;
  }
  return found.empty() ? std::nullopt : std::optional(found);
}

std::optional<fs::path> FindPath(std::string_view path) {
  std::error_code error;
  auto found = FindPath(path, error);
  if (error) Fail(error.value(), path);
  return found;
}

std::unique_ptr<Files> MakeHostFiles() { return std::make_unique<HostFiles>(); }

}  // namespace zendara

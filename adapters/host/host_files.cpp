#include "adapters/host/host_files.hpp"

#include <algorithm>
#include <fstream>
#include <string>
#include <system_error>

#include "runtime/text.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

std::optional<fs::path> FindIn(const fs::path& folder, const fs::path& name) {
  std::error_code error;
  if (fs::exists(folder / name, error)) return folder / name;
  const std::string wanted = LCase(name.string());
  for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (LCase(entry->path().filename().string()) == wanted) return folder / entry->path().filename();
  }
  return std::nullopt;
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
    std::ifstream file(*found, std::ios::binary);
    if (!file || fs::is_directory(*found)) throw RuntimeError(kPermissionDenied, {}, path);
    std::string record(length, '\0');
    file.read(record.data(), static_cast<std::streamsize>(length));
    if (file.bad()) throw RuntimeError(kDeviceIoError, {}, path);
    return record;
  }
};

}  // namespace

fs::path MachinePath(std::string_view path) {
  std::string text(path);
  std::ranges::replace(text, '\\', '/');
  return fs::path(text);
}

std::optional<fs::path> FindPath(std::string_view path) {
  const fs::path wanted = MachinePath(path);
  std::error_code error;
  if (fs::exists(wanted, error)) return wanted;
  fs::path found = wanted.root_path();
  for (const fs::path& part : wanted.relative_path()) {
    const auto next = FindIn(found, part);
    if (!next) return std::nullopt;
    found = *next;
  }
  return found.empty() ? std::nullopt : std::optional(found);
}

std::unique_ptr<Files> MakeHostFiles() { return std::make_unique<HostFiles>(); }

}  // namespace zendara

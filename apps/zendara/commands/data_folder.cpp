#include "apps/zendara/commands/data_folder.hpp"

#include <system_error>

#include "adapters/host/host_files.hpp"
#include "apps/zendara/commands/command_error.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const fs::path& path, const std::error_code& error) {
  throw CommandError(path.string() + ": " + error.message());
}

std::optional<fs::path> FindOrFail(const fs::path& path) {
  std::error_code error;
  auto found = FindPath(path.string(), error);
  if (error) Fail(path, error);
  return found;
}

}  // namespace

DataFolder::DataFolder(const CompanyOptions& options) : company_(options.company), year_(options.year) {
  const fs::path wanted = MachinePath(options.dir) / "DATOS";
  path_ = FindOrFail(wanted).value_or(wanted);
}

bool DataFolder::Create() const {
  std::error_code error;
  const bool made = fs::create_directories(path_, error);
  if (error) Fail(path_, error);
  return made;
}

std::optional<fs::path> DataFolder::Find(std::string_view name) const { return FindOrFail(path_ / name); }

std::shared_ptr<Database> DataFolder::Open(Engine& engine, FileKind kind, Console& console) const {
  const std::string path = (path_ / FileName(kind)).string();
  console.Doing("opening " + path);
  return engine.Workspaces(0)->OpenDatabase(path);
}

}  // namespace zendara

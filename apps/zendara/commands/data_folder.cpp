#include "apps/zendara/commands/data_folder.hpp"

#include "adapters/host/host_files.hpp"

namespace zendara {

DataFolder::DataFolder(const CompanyOptions& options)
    : path_(FindPath(options.dir + "/DATOS").value_or(MachinePath(options.dir) / "DATOS")),
      company_(options.company),
      year_(options.year) {}

bool DataFolder::Create() { return std::filesystem::create_directories(path_); }

std::optional<std::filesystem::path> DataFolder::Find(std::string_view name) const {
  return FindPath((path_ / name).string());
}

std::shared_ptr<Database> DataFolder::Open(Engine& engine, FileKind kind, Console& console) const {
  const std::string path = (path_ / FileName(kind)).string();
  console.Doing("opening " + path);
  return engine.Workspaces(0)->OpenDatabase(path);
}

}  // namespace zendara

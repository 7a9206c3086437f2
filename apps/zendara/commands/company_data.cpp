#include "apps/zendara/commands/company_data.hpp"

namespace zendara {

std::string DataFolder(const Store& store) {
  const bool separated = store.folder.ends_with('/') || store.folder.ends_with('\\');
  return store.folder + (separated ? "DATOS" : "/DATOS");
}

CompanyData::CompanyData(const CompanyOptions& options)
    : store_(OpenStore(options.place, options.access)), company_(options.company), year_(options.year) {}

std::shared_ptr<Database> CompanyData::Open(std::string_view name, Console& console) const {
  const std::string path = Path(name);
  console.Doing("opening " + path);
  return workspace()->OpenDatabase(path);
}

std::string CompanyData::Read(std::string_view name, Console& console) const {
  const std::string path = Path(name);
  console.Doing("reading " + path);
  return workspace()->ReadFile(path);
}

}  // namespace zendara

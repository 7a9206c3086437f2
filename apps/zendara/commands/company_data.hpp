// The files of a company and year where they stand: in the folder DATOS of an application, or on a server.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "apps/zendara/commands/commands.hpp"
#include "frame/stored_tables.hpp"
#include "zendara/engines.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

// Path of the folder that holds the files of a store, for its engine.
std::string DataFolder(const Store& store);
class CompanyData {
 public:
  // Nothing is opened yet. Errors of OpenStore.
  explicit CompanyData(const CompanyOptions& options);

  const Store& store() const { return store_; }
  std::shared_ptr<Workspace> workspace() const { return store_.engine->Workspaces(0); }
  const std::string& year() const { return year_; }

  std::string FileName(FileKind kind) const { return zendara::FileName(kind, company_, year_); }
  bool Has(std::string_view name) const { return workspace()->Exists(Path(name)); }
  // These say so to the console, for the line of an error.
  std::shared_ptr<Database> Open(std::string_view name, Console& console) const;
  std::shared_ptr<Database> Open(FileKind kind, Console& console) const { return Open(FileName(kind), console); }
  // The bytes of a file beside the databases.
  std::string Read(std::string_view name, Console& console) const;

 private:
  std::string Path(std::string_view name) const { return DataFolder(store_).append("/").append(name); }

  Store store_;
  std::string company_;
  std::string year_;
};

}  // namespace zendara

// The databases of a new company, open to be filled.
#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "frame/stored_tables.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

class CompanyFiles {
 public:
  // Makes every database with its tables, and the parameter files. `folder` is the application's. Errors of
  // Workspace::CreateFiles and of NewFiles.
  CompanyFiles(Engine& engine, const std::string& folder, std::string_view code,
               std::span<const std::string_view> years);

  // `year` only for the files that are one a year.
  Database& Of(FileKind kind, std::string_view year = {});
  // Gives all their names, all or none. No recordset may be open any more.
  void Finish();

 private:
  void Create(const StoredFile& file, std::string_view year);

  std::string code_;
  std::unique_ptr<NewFiles> files_;
  std::map<std::string, std::shared_ptr<Database>> open_;
};

}  // namespace zendara

// The files of a new company: made in a folder of their own, named in DATOS when all are whole.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "apps/demo/staging_folder.hpp"
#include "frame/stored_tables.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

class CompanyFiles {
 public:
  // Creates every database with its tables, each with a transaction begun, and the parameter files. std::runtime_error
  // when DATOS holds a file of such a name, or something cannot be made.
  CompanyFiles(Engine& engine, const std::string& folder, std::string_view code,
               std::span<const std::string_view> years);
  CompanyFiles(const CompanyFiles&) = delete;
  CompanyFiles& operator=(const CompanyFiles&) = delete;
  // Without Finish nothing stays behind.
  ~CompanyFiles();

  // `year` only for the files that are one a year.
  Database& Of(FileKind kind, std::string_view year = {});
  // Commits and closes all, and gives them their names, all or none. No recordset may be open any more.
  void Finish();

 private:
  void MakeFolders();
  void CreateAll(Engine& engine, std::span<const std::string_view> years);
  void RefuseExisting() const;
  void Remove() noexcept;

  std::string code_;
  std::filesystem::path folder_, data_;
  std::vector<std::filesystem::path> made_folders_;  // outermost first
  std::vector<std::string> names_;
  std::optional<StagingFolder> staging_;
  std::map<std::string, std::shared_ptr<Database>> open_;
};

}  // namespace zendara

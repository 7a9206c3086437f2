// The files of a company and year in the folder DATOS, found whatever the case of their names.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "apps/zendara/commands/commands.hpp"
#include "frame/stored_tables.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

class DataFolder {
 public:
  // CommandError when the way to the folder may not be entered; the folder itself may be missing.
  explicit DataFolder(const CompanyOptions& options);

  const std::filesystem::path& path() const { return path_; }
  const std::string& year() const { return year_; }
  // Makes the folder if it is missing; true if it did. CommandError when it cannot be made.
  bool Create() const;

  std::string FileName(FileKind kind) const { return zendara::FileName(kind, company_, year_); }
  // The file as it stands in the folder, nothing when it is missing. CommandError when the machine does
  // not say.
  std::optional<std::filesystem::path> Find(std::string_view name) const;
  // Opens a file and says so to the console, for the line of an error.
  std::shared_ptr<Database> Open(Engine& engine, FileKind kind, Console& console) const;

 private:
  std::filesystem::path path_;
  std::string company_;
  std::string year_;
};

}  // namespace zendara

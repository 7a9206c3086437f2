// The files of a company and year in the folder DATOS, found whatever the case of their names.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "apps/zendara/commands/commands.hpp"
#include "frame/stored_tables.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

struct ParameterFile {
  std::string_view name;
  std::uintmax_t length;
};
inline constexpr std::array<ParameterFile, 3> kParameterFiles = {
    {{"IMPM1600.DAT", 256}, {"IMPM0999.DAT", 300}, {"NOM00997.DAT", 256}}};

class DataFolder {
 public:
  explicit DataFolder(const CompanyOptions& options);

  const std::filesystem::path& path() const { return path_; }
  // Makes the folder if it is missing; true if it did.
  bool Create();

  std::string FileName(FileKind kind) const { return zendara::FileName(kind, company_, year_); }
  // The file as it stands in the folder, nothing when it is missing.
  std::optional<std::filesystem::path> Find(std::string_view name) const;
  // Opens a file and says so to the console, for the line of an error.
  std::shared_ptr<Database> Open(Engine& engine, FileKind kind, Console& console) const;

 private:
  std::filesystem::path path_;
  std::string company_;
  std::string year_;
};

}  // namespace zendara

// A folder of its own for one test, removed with all in it at the end.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace zendara {

class TempFolder {
 public:
  TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "zendara-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::string operator/(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace zendara

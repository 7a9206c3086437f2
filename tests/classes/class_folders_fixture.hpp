// Class folders of one test: the path's, the user's and the system's, and none of the machine.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "support/temp_folder.hpp"

namespace zendara {

inline constexpr char kSampleId[] = "{11223344-5566-7788-99aA-BbCCDDEEFF00}";

class ClassFolders : public testing::Test {
 protected:
  ClassFolders() {
    for (const auto& folder : {path_, user_, system_}) std::filesystem::create_directories(folder);
    setenv("ZENDARA_CLASS_PATH", path_.c_str(), 1);
    setenv("XDG_DATA_HOME", (folder_ / "user").c_str(), 1);
    setenv("XDG_DATA_DIRS", (":elsewhere:" + (folder_ / "none") + ":" + (folder_ / "system")).c_str(), 1);
  }

  static void Write(const std::filesystem::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
  }
  static std::string Read(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static std::string ClassText(const std::string& name, const std::string& version, const std::string& library) {
    return "[Class]\nName=" + name + "\nId=" + kSampleId + "\nVersion=" + version + "\nLibrary=" + library + "\n";
  }

  const TempFolder folder_;
  const std::filesystem::path path_ = folder_.path() / "path";
  const std::filesystem::path user_ = folder_.path() / "user/zendara/classes";
  const std::filesystem::path system_ = folder_.path() / "system/zendara/classes";
};

}  // namespace zendara

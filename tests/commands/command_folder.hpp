// An application's folder for one test, and the commands run on it as a shell would.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "apps/zendara/commands/commands.hpp"
#include "support/temp_folder.hpp"

namespace zendara {

struct Outcome {
  int status = 0;
  std::string out;
  std::string err;
};

class CommandFolder : public testing::Test {
 protected:
  static Outcome RunWords(const std::vector<std::string>& words) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = zendara::Run(words, out, err);
    return {status, out.str(), err.str()};
  }
  // The words of a command, then the options of company 00001 and year 01, then `more`.
  std::vector<std::string> Here(std::vector<std::string> words, const std::vector<std::string>& more = {}) const {
    words.insert(words.end(), {"--dir", dir_.string(), "--company", "1", "--year", "01"});
    words.insert(words.end(), more.begin(), more.end());
    return words;
  }
  Outcome RunHere(const std::vector<std::string>& words, const std::vector<std::string>& more = {}) const {
    return RunWords(Here(words, more));
  }
  void Create() const { EXPECT_EQ(RunHere({"data", "create"}).status, 0); }
  Outcome Load(const std::string& table, const std::string& csv) const {
    WriteFile(dir_ / "in.csv", csv);
    return RunHere({"data", "load"}, {table, (dir_ / "in.csv").string()});
  }
  std::string Dump(const std::string& table) const {
    const Outcome dump = RunHere({"data", "dump"}, {table});
    EXPECT_EQ(dump.status, 0) << dump.err;
    return dump.out;
  }

  std::filesystem::path DataFile(const std::string& name) const { return dir_ / "DATOS" / name; }
  static void WriteFile(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
  }
  static std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  const TempFolder folder_;
  const std::filesystem::path dir_ = folder_.path();
};

}  // namespace zendara

// The levels of docs/architecture.md: a file includes files of a lower level, or of its own folder without a circle.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// By the longest prefix of the path. Public headers stand at the level of what they are the contract of.
const std::map<std::string, int> kLevels = {
    {"include/zendara/value.hpp", 1},
    {"include/zendara/runtime_error.hpp", 1},
    {"src/runtime/", 1},
    {"include/zendara/ports.hpp", 2},
    {"include/zendara/record_engine.hpp", 2},
    {"include/zendara/neighbours.hpp", 2},
    {"include/zendara/platform.hpp", 2},
    {"src/platform/", 2},
    {"src/values/", 3},
    {"include/zendara/morlane.hpp", 4},
    {"src/frame/", 4},
    {"src/common/", 5},
    {"src/withholding/", 5},
    {"src/workers/", 6},
    {"include/zendara/zendara.hpp", 7},
    {"src/component/", 7},
    {"include/zendara/engines.hpp", 8},
    {"adapters/host/", 8},
    {"adapters/icu/", 8},
    {"adapters/csv/", 8},
    {"adapters/sqlite/", 9},
    {"adapters/headless/", 9},
    {"include/zendara/windows.hpp", 10},
    {"adapters/qt/", 10},
    {"apps/", 11},
};

struct Area {
  std::string prefix;
  int level = 0;
};

Area AreaOf(const std::string& file) {
  Area area;
  for (const auto& [prefix, level] : kLevels) {
    if (file.starts_with(prefix) && prefix.size() > area.prefix.size()) area = {prefix, level};
  }
  return area;
}

struct Source {
  std::vector<std::string> own;     // included files of the project, by path from its root
  std::vector<std::string> system;  // what stands between < and >
};

std::map<std::string, Source> ReadSources() {
  const fs::path root = ZENDARA_SOURCE_DIR;
  const std::regex include(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
  std::map<std::string, Source> sources;
  for (const char* folder : {"include", "src", "adapters", "apps"}) {
    for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
      const std::string extension = entry.path().extension().string();
      if (extension != ".cpp" && extension != ".hpp") continue;
      Source& source = sources[fs::relative(entry.path(), root).string()];
      std::ifstream file(entry.path());
      std::smatch match;
      for (std::string line; std::getline(file, line);) {
        if (!std::regex_search(line, match, include)) continue;
        if (match[1] == "<") {
          source.system.push_back(match[2]);
          continue;
        }
        for (const char* base : {"", "include/", "src/"}) {
          if (fs::exists(root / (base + match[2].str()))) source.own.push_back(base + match[2].str());
        }
      }
    }
  }
  return sources;
}

// Files of one folder that include each other in a ring: the path that closes it, empty if there is none.
std::string Circle(const std::map<std::string, Source>& sources, const std::string& file,
                   std::vector<std::string>& path, std::set<std::string>& done) {
  if (std::ranges::find(path, file) != path.end()) {
    std::string text;
    for (const std::string& step : path) text += step + " -> ";
    return text + file;
  }
  if (done.contains(file)) return {};
  path.push_back(file);
  for (const std::string& next : sources.at(file).own) {
    if (const std::string circle = Circle(sources, next, path, done); !circle.empty()) return circle;
  }
  path.pop_back();
  done.insert(file);
  return {};
}

TEST(IncludeLevels, NeverClimb) {
  const auto sources = ReadSources();
  ASSERT_GT(sources.size(), 50U);
  for (const auto& [file, source] : sources) {
    const Area area = AreaOf(file);
    EXPECT_GT(area.level, 0) << file << " has no level";
    for (const std::string& included : source.own) {
      const Area other = AreaOf(included);
      const bool own = other.prefix == area.prefix || included.starts_with("include/");
      EXPECT_TRUE(other.level < area.level || (other.level == area.level && own)) << file << " includes " << included;
    }
  }
}

TEST(IncludeLevels, HaveNoCircles) {
  const auto sources = ReadSources();
  std::set<std::string> done;
  for (const auto& [file, source] : sources) {
    std::vector<std::string> path;
    EXPECT_EQ(Circle(sources, file, path, done), "");
  }
}

TEST(IncludeLevels, TheCoreUsesTheStandardLibraryAlone) {
  for (const auto& [file, source] : ReadSources()) {
    if (!file.starts_with("src/") && !file.starts_with("include/")) continue;
    for (const std::string& header : source.system) {
      EXPECT_EQ(header.find_first_of("./"), std::string::npos) << file << " includes <" << header << ">";
      EXPECT_NE(header, "filesystem") << file << " asks the operating system";
      EXPECT_NE(header, "fstream") << file << " asks the operating system";
    }
  }
}

}  // namespace

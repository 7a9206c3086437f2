// Who may include whom: the table of docs/architecture.md.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kRoot = ZENDARA_SOURCE_DIR;

// The table of docs/architecture.md: a folder or public header, and what it may include besides its own files.
using Table = std::map<std::string, std::set<std::string>>;

Table ReadTable() {
  std::ifstream page(kRoot / "docs/architecture.md");
  Table table;
  std::string key;
  bool inside = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("```")) inside = line == "```includes";
    if (!inside || line.starts_with("```")) continue;
    std::istringstream words(line);
    for (std::string word; words >> word;) {
      if (!word.ends_with(':')) {
        table[key].insert(word);
        continue;
      }
      key = word.substr(0, word.size() - 1);
      table[key];
    }
  }
  return table;
}

// The entry that a file belongs to: a public header itself, with what stands in the folder of its name, otherwise the
// innermost folder that the table has.
std::string EntryOf(const Table& table, const std::string& file) {
  const fs::path path = file;
  if (file.starts_with("include/")) {
    const fs::path header = *std::next(path.begin(), 2);
    return "<" + (header.extension() == ".h" ? header : header.stem()).string() + ">";
  }
  fs::path folder = path.parent_path();
  while (!folder.empty() && !table.contains(folder.string())) folder = folder.parent_path();
  return folder.string();
}

struct Source {
  std::vector<std::string> own;     // included files of the project, by path from its root
  std::vector<std::string> system;  // what stands between < and >
};

std::map<std::string, Source> ReadSources() {
  const std::regex include(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
  std::map<std::string, Source> sources;
  for (const char* folder : {"include", "src", "adapters", "apps", "loader"}) {
    for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder)) {
      const std::string extension = entry.path().extension().string();
      if (extension != ".cpp" && extension != ".hpp" && extension != ".c" && extension != ".h") continue;
      Source& source = sources[fs::relative(entry.path(), kRoot).string()];
      std::ifstream file(entry.path());
      std::smatch match;
      for (std::string line; std::getline(file, line);) {
        if (!std::regex_search(line, match, include)) continue;
        if (match[1] == "<") {
          source.system.push_back(match[2]);
          continue;
        }
        for (const char* base : {"", "include/", "src/"}) {
          if (fs::exists(kRoot / (base + match[2].str()))) source.own.push_back(base + match[2].str());
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
    if (std::string circle = Circle(sources, next, path, done); !circle.empty()) return circle;
  }
  path.pop_back();
  done.insert(file);
  return {};
}

TEST(Includes, AreThoseOfTheTable) {
  const Table table = ReadTable();
  const auto sources = ReadSources();
  ASSERT_GT(sources.size(), 50U);
  Table unused = table;
  for (const auto& [file, source] : sources) {
    const std::string entry = EntryOf(table, file);
    ASSERT_TRUE(table.contains(entry)) << file << " belongs to no entry of the table";
    for (const std::string& included : source.own) {
      const std::string other = EntryOf(table, included);
      EXPECT_TRUE(other == entry || table.at(entry).contains(other)) << file << " includes " << included;
      unused[entry].erase(other);
    }
  }
  for (const auto& [entry, rest] : unused) EXPECT_THAT(rest, testing::IsEmpty()) << "nothing needs them in " << entry;
}

// Folder by folder: with files alone two folders could know each other.
TEST(Includes, TheTableHasNoCircle) {
  Table table = ReadTable();
  while (!table.empty()) {
    const auto leaf = std::ranges::find_if(table, [](const auto& entry) { return entry.second.empty(); });
    ASSERT_NE(leaf, table.end()) << "a circle through " << table.begin()->first;
    const std::string name = leaf->first;
    table.erase(leaf);
    for (auto& [entry, others] : table) others.erase(name);
  }
}

TEST(Includes, HaveNoCircleOfFiles) {
  const auto sources = ReadSources();
  std::set<std::string> done;
  for (const auto& [file, source] : sources) {
    std::vector<std::string> path;
    EXPECT_EQ(Circle(sources, file, path, done), "");
  }
}

TEST(Includes, TheCoreUsesTheStandardLibraryAlone) {
  for (const auto& [file, source] : ReadSources()) {
    if (!file.starts_with("src/") && !file.starts_with("include/")) continue;
    for (const std::string& header : source.system) {
      if (file.ends_with(".h")) {
        EXPECT_TRUE(header == "stddef.h" || header == "stdint.h") << file << " includes <" << header << ">";
        continue;
      }
      EXPECT_EQ(header.find_first_of("./"), std::string::npos) << file << " includes <" << header << ">";
      EXPECT_NE(header, "filesystem") << file << " asks the operating system";
      EXPECT_NE(header, "fstream") << file << " asks the operating system";
    }
  }
}

}  // namespace

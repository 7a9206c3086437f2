// The pages of help/ against the table of the help: files, titles, links.
#include "common/ayuda.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace zendara {
namespace {

namespace fs = std::filesystem;

std::map<std::string, std::string> ReadPages() {
  std::map<std::string, std::string> pages;
  for (const auto& entry : fs::directory_iterator(fs::path(ZENDARA_SOURCE_DIR) / "help")) {
    std::ifstream file(entry.path(), std::ios::binary);
    pages[entry.path().filename().string()].assign(std::istreambuf_iterator<char>(file), {});
  }
  return pages;
}

std::vector<std::string> Links(const std::string& page) {
  static const std::regex kLink(R"(\]\(([^)]*)\))");
  std::vector<std::string> targets;
  for (std::sregex_iterator link(page.begin(), page.end(), kLink), end; link != end; ++link) {
    targets.push_back((*link)[1]);
  }
  return targets;
}

TEST(Ayuda, EveryPageOfTheTableStandsUnderItsTitle) {
  const auto pages = ReadPages();
  for (const PaginaAyuda& pagina : PaginasAyuda()) {
    const std::string fichero(pagina.fichero);
    ASSERT_TRUE(pages.contains(fichero)) << fichero;
    EXPECT_THAT(pages.at(fichero), testing::StartsWith("# " + std::string(pagina.titulo) + "\n\n")) << fichero;
  }
  EXPECT_EQ(PaginasAyuda().size(), pages.size()) << "one is in no table";
  EXPECT_EQ(PaginaDeContexto(20004).fichero, "trabajadores.md");
  for (const int otro : {0, 30002, -1}) EXPECT_EQ(PaginaDeContexto(otro).fichero, "index.md") << otro;
}

TEST(Ayuda, LinksLeadToPagesAndEveryPageIsReachedFromTheStart) {
  const auto pages = ReadPages();
  std::set<std::string> reached;
  std::vector<std::string> open = {"index.md"};
  while (!open.empty()) {
    const std::string fichero = open.back();
    open.pop_back();
    if (!reached.insert(fichero).second) continue;
    ASSERT_TRUE(pages.contains(fichero)) << "a link leads to " << fichero;
    for (const std::string& target : Links(pages.at(fichero))) open.push_back(target);
  }
  EXPECT_EQ(reached.size(), pages.size()) << "one is an orphan";
}

// What the viewer would swallow or show raw: tags of HTML, rows with another number of cells than their table.
TEST(Ayuda, PagesAreSimpleMarkdown) {
  const std::regex tag("<[A-Za-z/!]");
  for (const auto& [fichero, text] : ReadPages()) {
    EXPECT_FALSE(std::regex_search(text, tag)) << fichero;
    EXPECT_EQ(text.find('\r'), std::string::npos) << fichero;
    std::istringstream lines(text);
    std::ptrdiff_t cells = 0;
    for (std::string line; std::getline(lines, line);) {
      const auto bars = line.starts_with('|') ? std::ranges::count(line, '|') : 0;
      EXPECT_TRUE(!bars || !cells || bars == cells) << fichero << ": " << line;
      cells = bars;
    }
  }
}

}  // namespace
}  // namespace zendara

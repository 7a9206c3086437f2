// The pages of help/ against the table of the help and the manual's list of chapters: files, titles, links.
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

std::string Contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::map<std::string, std::string> ReadPages() {
  std::map<std::string, std::string> pages;
  for (const auto& entry : fs::directory_iterator(fs::path(ZENDARA_SOURCE_DIR) / "help")) {
    pages[entry.path().filename().string()] = Contents(entry.path());
  }
  return pages;
}

std::set<std::string> Links(const std::string& page) {
  static const std::regex kLink(R"(\]\(([^)#]+)(#[^)]*)?\))");
  return {std::sregex_token_iterator(page.begin(), page.end(), kLink, 1), {}};
}

TEST(Ayuda, EveryPageOfTheTableStandsUnderItsTitleAndIsLinked) {
  const auto pages = ReadPages();
  std::set<std::string> linked = {"index.md"};
  for (const PaginaAyuda& pagina : PaginasAyuda()) {
    const std::string fichero(pagina.fichero);
    ASSERT_TRUE(pages.contains(fichero)) << fichero;
    EXPECT_THAT(pages.at(fichero), testing::StartsWith("# " + std::string(pagina.titulo) + "\n\n")) << fichero;
    linked.merge(Links(pages.at(fichero)));
  }
  EXPECT_EQ(PaginasAyuda().size(), pages.size()) << "one is in no table";
  for (const std::string& target : linked) EXPECT_TRUE(pages.contains(target)) << "a link leads to " << target;
  EXPECT_EQ(linked.size(), pages.size()) << "no link leads to one";
  EXPECT_EQ(PaginaDeContexto(20004).fichero, "trabajadores.md");
  for (const int otro : {0, 30002, -1}) EXPECT_EQ(PaginaDeContexto(otro).fichero, "index.md") << otro;
}

TEST(Ayuda, EveryPageIsOneChapterOfTheManual) {
  const fs::path root = ZENDARA_SOURCE_DIR;
  std::vector<std::string> pages;
  for (const char* folder : {"help", "manual"}) {
    for (const auto& entry : fs::directory_iterator(root / folder)) {
      if (entry.path().extension() == ".md") pages.push_back(fs::relative(entry.path(), root).string());
    }
  }
  const std::string book = Contents(root / "manual" / "libro.toml");
  const std::string parts = book.substr(0, book.find("[titles]"));
  static const std::regex kChapter(R"re("([^"]+\.md)")re");
  const std::vector<std::string> chapters{std::sregex_token_iterator(parts.begin(), parts.end(), kChapter, 1), {}};
  EXPECT_THAT(chapters, testing::UnorderedElementsAreArray(pages));
}

// What the viewer would swallow or show raw: tags of HTML, rows with another number of cells than their table.
TEST(Ayuda, PagesAreSimpleMarkdown) {
  for (const auto& [fichero, text] : ReadPages()) {
    EXPECT_FALSE(std::regex_search(text, std::regex("<[A-Za-z/!]|\r"))) << fichero;
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

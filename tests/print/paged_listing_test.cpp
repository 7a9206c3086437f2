// Listings on pages: what has to hold of any, and what a reader expects of one.
#include "print/paged_listing.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "print/fixed_measure.hpp"
#include "print/given_rows.hpp"

namespace zendara::print {
namespace {

const FixedMeasure kMeasure;
const ListingHead kHead = {"001", "EMPRESA DE PRUEBA", "21/11/2026"};

PagedListing Paged(const std::vector<ListingColumn>& columns, const std::vector<Texts>& rows) {
  return {{"Relación", columns}, kHead, std::make_unique<GivenRows>(rows), kMeasure};
}

std::vector<TextRun> Runs(const Page& page) {
  std::vector<TextRun> runs;
  for (const Mark& mark : page.marks) {
    if (const auto* run = std::get_if<TextRun>(&mark)) runs.push_back(*run);
  }
  return runs;
}

// What stands below the rule.
std::vector<TextRun> BodyOf(const Page& page) {
  const auto rule = std::ranges::find_if(page.marks, [](const Mark& mark) { return std::get_if<Rule>(&mark); });
  return Runs({{rule, page.marks.end()}});
}

Texts TextsOf(const std::vector<TextRun>& runs) {
  Texts texts;
  for (const TextRun& run : runs) texts.push_back(run.text);
  return texts;
}

int Right(const TextRun& run) { return run.x + kMeasure.Width(run.text, run.font); }
int Top(const TextRun& run) { return run.baseline - kMeasure.Ascent(run.font); }
int Bottom(const TextRun& run) { return Top(run) + kMeasure.LineHeight(run.font); }

std::string WithoutBlanks(std::string text) {
  std::erase_if(text, [](char c) { return static_cast<unsigned char>(c) <= ' '; });
  return text;
}

class RandomListing {
 public:
  explicit RandomListing(unsigned seed) : random_(seed) {
    for (int i = Below(11); i >= 0; --i) {
      columns_.push_back({Words(Below(3), 14), static_cast<CellSide>(Below(3)), Below(2500)});
    }
    const int rows = Below(4) == 0 ? 1100 : Below(120);
    for (int row = 0; row < rows; ++row) {
      Texts cells;
      const std::size_t repeated = Below(3) == 0 ? 0 : static_cast<std::size_t>(Below(3));
      for (std::size_t i = 0; i < columns_.size(); ++i) cells.push_back(i < repeated ? "" : Cell(columns_[i].side));
      rows_.push_back(cells);
    }
  }

  const std::vector<ListingColumn>& Columns() const { return columns_; }
  const std::vector<Texts>& Rows() const { return rows_; }

 private:
  int Below(int bound) { return std::uniform_int_distribution<>(0, bound - 1)(random_); }
  std::string Word(int longest) {
    static const std::string kLetters[] = {"a", "ñ", "É", "m", "\u0301", "ש", "\xff", "."};
    std::string word;
    for (int i = Below(longest); i >= 0; --i) word += kLetters[Below(40) == 0 ? 4 + Below(4) : Below(4)];
    return word;
  }
  std::string Words(int count, int longest) {
    std::string words = Word(longest);
    for (; count > 0; --count) words += (Below(20) == 0 ? "\n\t" : " ") + Word(longest);
    return words;
  }
  std::string Cell(CellSide side) {
    if (Below(12) == 0) return "";
    if (side == CellSide::kNumber)
      return std::string(static_cast<std::size_t>(Below(Below(50) == 0 ? 70 : 9) + 1), '7');
    return Words(Below(4), Below(60) == 0 ? 255 : 12);
  }

  std::mt19937 random_;
  std::vector<ListingColumn> columns_;
  std::vector<Texts> rows_;
};

void ExpectApartAndInside(const std::vector<TextRun>& runs, const Paper& paper) {
  for (std::size_t i = 0; i < runs.size(); ++i) {
    EXPECT_TRUE(runs[i].x >= paper.margin && Right(runs[i]) <= paper.width - paper.margin &&
                Top(runs[i]) >= paper.margin && Bottom(runs[i]) <= paper.height - paper.margin)
        << "outside of the margins: " << runs[i].text;
    for (std::size_t j = 0; j < i; ++j) {
      EXPECT_TRUE(Right(runs[i]) < runs[j].x || Right(runs[j]) < runs[i].x || Bottom(runs[i]) <= Top(runs[j]) ||
                  Bottom(runs[j]) <= Top(runs[i]))
          << runs[i].text << " over " << runs[j].text;
    }
  }
}

// Takes the text of a cell off the front of what a page says. A sign that it was cut ends it.
bool Take(std::vector<TextRun>& runs, const std::string& cell, CellSide side, Tone tone) {
  std::string rest = WithoutBlanks(cell);
  if (side == CellSide::kNumber && !rest.empty()) {
    if (runs.empty() || runs.front().text != rest || runs.front().tone != tone) return false;
    rest.clear();
    runs.erase(runs.begin());
  }
  while (!rest.empty()) {
    if (runs.empty() || runs.front().tone != tone) return false;
    std::string said = WithoutBlanks(runs.front().text);
    runs.erase(runs.begin());
    const bool cut = said.ends_with("…");
    if (cut) said.resize(said.size() - 3);
    if (!rest.starts_with(said)) return false;
    rest = cut ? "" : rest.substr(said.size());
  }
  return true;
}

TEST(PagedListing, AnyListing) {
  for (unsigned seed = 0; seed < 30; ++seed) {
    SCOPED_TRACE(seed);
    const RandomListing random(seed);
    PagedListing listing = Paged(random.Columns(), random.Rows());
    const Page first = listing.PageAt(0);
    while (listing.ReadOn(100)) {
    }
    // But for its number.
    if (listing.Pages() > 1) {
      EXPECT_EQ(TextsOf(BodyOf(first)), TextsOf(BodyOf(listing.PageAt(0))));
    }
    ASSERT_EQ(listing.Rows(), random.Rows().size());
    std::map<std::size_t, std::string> last;
    std::size_t row = 0;
    for (std::size_t page = 0; page < listing.Pages(); ++page) {
      const Page made = listing.PageAt(page);
      ExpectApartAndInside(Runs(made), listing.PaperOf());
      std::vector<TextRun> body = BodyOf(made);
      if (page + 1 == listing.Pages()) body.pop_back();
      for (bool at_top = true; row < listing.Rows() && listing.PageOf(row) == page; ++row, at_top = false) {
        const Texts& cells = random.Rows()[row];
        bool leading = at_top && std::ranges::any_of(cells, [](const auto& cell) { return !cell.empty(); });
        for (std::size_t i = 0; i < cells.size(); ++i) {
          leading = leading && cells[i].empty();
          ASSERT_TRUE(Take(body, leading ? last[i] : cells[i], random.Columns()[i].side,
                           leading ? Tone::kQuiet : Tone::kNormal))
              << "page " << page << " row " << row << " column " << i;
          if (!cells[i].empty()) last[i] = cells[i];
        }
      }
      EXPECT_TRUE(body.empty()) << body.front().text;
    }
    EXPECT_EQ(row, listing.Rows());
  }
}

}  // namespace
}  // namespace zendara::print

// Listings on pages: what has to hold of any, and what a reader expects of one.
#include "print/paged_listing.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "print/fixed_measure.hpp"
#include "print/given_rows.hpp"
#include "runtime/text.hpp"

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
    if (side == CellSide::kNumber) return Repeat('7', Below(Below(50) == 0 ? 70 : 9) + 1);
    return Words(Below(4), Below(60) == 0 ? 255 : 12);
  }

  std::mt19937 random_;
  std::vector<ListingColumn> columns_;
  std::vector<Texts> rows_;
};

// Of the first run that is outside of the margins or over another one.
std::string Misplaced(const std::vector<TextRun>& runs, const Paper& paper) {
  for (std::size_t i = 0; i < runs.size(); ++i) {
    if (runs[i].x < paper.margin || Right(runs[i]) > paper.width - paper.margin || Top(runs[i]) < paper.margin ||
        Bottom(runs[i]) > paper.height - paper.margin) {
      return runs[i].text;
    }
    for (std::size_t j = 0; j < i; ++j) {
      if (Right(runs[i]) >= runs[j].x && Right(runs[j]) >= runs[i].x && Bottom(runs[i]) > Top(runs[j]) &&
          Bottom(runs[j]) > Top(runs[i])) {
        return runs[i].text + " over " + runs[j].text;
      }
    }
  }
  return {};
}

// Takes the text of a cell off the front of what a page says: a figure whole, a text up to the sign that it was cut,
// which only a long one has.
bool Take(std::vector<TextRun>& runs, const std::string& cell, CellSide side, Tone tone) {
  for (std::string rest = WithoutBlanks(cell); !rest.empty();) {
    if (runs.empty() || runs.front().tone != tone) return false;
    std::string said = WithoutBlanks(runs.front().text);
    runs.erase(runs.begin());
    const bool cut = said.ends_with("…");
    if (cut) said.resize(said.size() - 3);
    if (!rest.starts_with(said) || (cut && Len(cell) < 100) || (side == CellSide::kNumber && said != rest))
      return false;
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
    EXPECT_TRUE(listing.Pages() == 1 || TextsOf(BodyOf(first)) == TextsOf(BodyOf(listing.PageAt(0))));
    ASSERT_EQ(listing.Rows(), random.Rows().size());
    std::map<std::size_t, std::string> last;
    std::size_t row = 0;
    for (std::size_t page = 0; page < listing.Pages(); ++page) {
      const Page made = listing.PageAt(page);
      EXPECT_EQ(Misplaced(Runs(made), listing.PaperOf()), "");
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

TEST(PagedListing, TakesTheRoomThatItNeeds) {
  const std::string word(9, 'w');
  const auto words = [&](int count) {
    std::string text = word;
    while (--count > 0) text += " " + word;
    return text;
  };
  const auto columns = [](std::size_t n, CellSide side) {
    return std::vector<ListingColumn>(n, {"Título", side, 900});
  };
  const struct {
    std::vector<ListingColumn> columns;
    std::vector<Texts> rows;
    bool turned;
    int size;
    int lines;  // of a row
  } cases[] = {
      {columns(2, CellSide::kText), {{"a", "b"}}, false, 9, 1},
      {columns(2, CellSide::kText), {{words(7), "a"}}, false, 9, 1},
      {columns(2, CellSide::kText), {{words(20), "a"}}, false, 9, 3},
      {columns(3, CellSide::kText), {9, Texts(3, words(3) + " www")}, false, 8, 1},
      {columns(3, CellSide::kText), {9, Texts(3, words(5))}, true, 8, 1},
      {columns(8, CellSide::kNumber), {Texts(8, std::string(15, '7'))}, true, 8, 1},
      {columns(9, CellSide::kNumber), {Texts(9, std::string(17, '7'))}, true, 7, 1},
      {columns(9, CellSide::kNumber), {Texts(9, std::string(19, '7'))}, true, 6, 1},
      {columns(40, CellSide::kText), {Texts(40, words(2))}, true, 5, 6},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(&c - cases);
    const PagedListing listing = Paged(c.columns, c.rows);
    const std::vector<TextRun> body = BodyOf(listing.PageAt(0));
    EXPECT_EQ(listing.PaperOf().width > listing.PaperOf().height, c.turned);
    EXPECT_EQ(body.front().font.size, c.size);
    EXPECT_EQ(std::ranges::count(body, body.front().x, &TextRun::x), c.lines * std::ssize(c.rows) + 1);
  }
}

TEST(PagedListing, EndsACellThatIsHigherThanAPageWithASign) {
  const std::vector<ListingColumn> columns(60, {"Título", CellSide::kText, 900});
  const PagedListing listing = Paged(columns, {3, Texts(60, Repeat('w', 255))});
  ASSERT_EQ(listing.Pages(), 3U);
  const Page page = listing.PageAt(1);
  EXPECT_EQ(Misplaced(Runs(page), listing.PaperOf()), "");
  const Texts texts = TextsOf(BodyOf(page));
  EXPECT_EQ(std::ranges::count_if(texts, [](const auto& text) { return text.ends_with("…"); }), 60);
}

// The sample has settled the widths when it comes.
TEST(PagedListing, KeepsAFigureWholeThatComesLate) {
  const std::string figure = "1.234.567.890.123,45";
  std::vector<Texts> rows(PagedListing::kSample, {"uno", "1,00"});
  rows.push_back({"dos", figure});
  rows.push_back({"tres", "2,00"});
  PagedListing listing = Paged({{"Nombre", CellSide::kText, 900}, {"Importe", CellSide::kNumber, 900}}, rows);
  EXPECT_FALSE(listing.ReadOn(100));
  std::vector<TextRun> body = BodyOf(listing.PageAt(listing.PageOf(rows.size() - 1)));
  ASSERT_GE(body.size(), 5U);
  const auto run = body.end() - 4;
  EXPECT_EQ(TextsOf({run - 1, body.end()}), (Texts{"dos", figure, "tres", "2,00", "1.002 líneas"}));
  EXPECT_GT(Top(*run), Top(*(run - 1)));
  EXPECT_GT(Top(*(run + 1)), Top(*run));
}

TEST(PagedListing, SaysWhatItIsOnEachPage) {
  PagedListing listing = Paged({{"Nº", CellSide::kNumber, 900}}, std::vector<Texts>(1300, {"1"}));
  const auto expect_number = [&](const std::string& number) {
    Texts head = TextsOf(Runs(listing.PageAt(1)));
    head.resize(5);
    EXPECT_EQ(head, (Texts{"001  EMPRESA DE PRUEBA", "21/11/2026", "Relación", number, "Nº"}));
  };
  expect_number("Página 2 de " + std::to_string(listing.Pages()) + "…");
  EXPECT_FALSE(listing.ReadOn(1000));
  expect_number("Página 2 de " + std::to_string(listing.Pages()));
  EXPECT_EQ(TextsOf(Runs(listing.PageAt(listing.Pages() - 1))).back(), "1.300 líneas");

  const PagedListing empty = Paged({{"Nº", CellSide::kNumber, 900}}, {});
  EXPECT_EQ(empty.Pages(), 1U);
  EXPECT_EQ(TextsOf(BodyOf(empty.PageAt(0))), (Texts{"No hay ninguna línea que listar."}));
}

TEST(PagedListing, FindsWhateverCaseAndAccents) {
  const PagedListing listing = Paged({{"Nombre", CellSide::kText, 900}, {"Otro", CellSide::kText, 900}},
                                     {{"Begoña", "x"}, {"BEGOÑA GÜELL", ""}, {"", "\tMartín "}, {"begona", "z"}});
  const struct {
    std::string text;
    std::size_t from;
    bool backwards;
    std::optional<std::size_t> row;
  } cases[] = {
      {"begoña", 0, false, 0}, {"begoña", 1, false, 1}, {"begoña", 2, false, 0}, {"begoña", 3, true, 1},
      {"guell", 0, true, 1},   {"MARTIN", 3, false, 2}, {"", 0, false, {}},      {"begoñax", 0, false, {}},
      {"x", 0, false, 0},      {"begona", 0, false, 3},
  };
  for (const auto& [text, from, backwards, row] : cases) {
    EXPECT_EQ(listing.Find(text, from, backwards), row) << text << from;
  }
}

// A hit that goes over the end of a line is marked on both.
TEST(PagedListing, MarksWhereATextStands) {
  std::string text = "á";
  for (int i = 0; i < 14; ++i) text += " bcdéfghi";
  const PagedListing listing = Paged({{"Nombre", CellSide::kText, 900}}, {{text}});
  const std::vector<TextRun> body = BodyOf(listing.PageAt(0));
  const auto hits = listing.HitsOn(0, "hi bcde");
  ASSERT_EQ(hits.size(), 14U);  // of 13, one on two lines
  const int letter = kMeasure.Width("a", body.front().font);
  EXPECT_EQ(hits[0].x, body.front().x + 8 * letter);
  EXPECT_EQ(hits[0].width, 7 * letter);
  EXPECT_EQ(hits[0].top, Top(body.front()));
  const auto second = std::ranges::find(hits, Top(body[1]), &PagedListing::Hit::top);
  ASSERT_NE(second, hits.end());
  EXPECT_EQ(second->x, body[1].x);
  EXPECT_EQ(second->width, 4 * letter);
}

}  // namespace
}  // namespace zendara::print

#include "common/row_search.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <random>

#include "common/row_list.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

using Texts = std::vector<std::string>;
using Places = std::vector<std::size_t>;

// Rows as a caller makes them: number, name, date.
struct Made : PickRows {
  explicit Made(std::vector<Texts> all) : lines(std::move(all)) {}
  bool Siguiente(Texts& textos) override {
    if (next == lines.size()) return false;
    textos = lines[next++];
    return true;
  }

  std::vector<Texts> lines;
  std::size_t next = 0;
};

const Texts kColumns = {"001", "010", "022"};
const std::vector<RowPlace> kPlaces = {{1, 3}, {4, 12}, {16, 8}};

Places Shown(const RowSearch& search) {
  Places rows;
  for (std::size_t place = 0; place < search.Shown(); ++place) rows.push_back(search.RowAt(place));
  return rows;
}

// The other way to say the same: each letter by its own entry, each word looked for in each cell.
std::string Slowly(const std::string& text) {
  static const std::vector<std::pair<std::string, Texts>> kLetters = {
      {"a", {"A", "á", "Á", "à"}}, {"e", {"E", "é", "É", "ë"}}, {"n", {"N"}}, {"ñ", {"Ñ"}},
      {"u", {"U", "ü", "Ü", "Ú"}}, {"c", {"C", "ç", "Ç"}}};
  std::string plain;
  for (std::string_view rest = text; !rest.empty();) {
    const std::string letter(TakeCharacter(rest));
    const auto of =
        std::ranges::find_if(kLetters, [&](const auto& l) { return std::ranges::count(l.second, letter) > 0; });
    plain += of == kLetters.end() ? letter : of->first;
  }
  return plain;
}

// Where each letter of a text stands in their order.
std::vector<std::size_t> Order(const std::string& text) {
  static const Texts kOrder = {" ", "1", "a", "c", "e", "n", "ñ", "u", "€"};
  std::vector<std::size_t> order;
  const std::string plain = Slowly(text);
  for (std::string_view rest = plain; !rest.empty();) {
    order.push_back(static_cast<std::size_t>(std::ranges::find(kOrder, TakeCharacter(rest)) - kOrder.begin()));
  }
  return order;
}

TEST(RowSearch, ShowsWhatASimpleModelShowsHoweverTheRowsComeIn) {
  constexpr auto kLetters = std::to_array<const char*>(
      {"a", "A", "á", "Á", "à", "e", "É", "ë", "n", "N", "ñ", "Ñ", "u", "ü", "Ü", "Ú", "c", "Ç", "€", " ", "1"});
  std::mt19937 random(7);
  const auto any = [&](std::size_t below) { return random() % below; };
  const auto word = [&](std::size_t most) {
    std::string text;
    for (std::size_t n = any(most + 1); n > 0; --n) text += kLetters[any(kLetters.size())];
    return text;
  };
  for (int round = 0; round < 200; ++round) {
    std::vector<Texts> lines;
    for (std::size_t n = any(60); n > 0; --n) lines.push_back({std::to_string(any(999)), word(9), ""});
    Made made(lines);
    RowList rows(made, kColumns, kPlaces);
    PickView view;
    if (any(2) == 0) view.sorted_by = 1;
    rows.Present(view);
    RowSearch search(rows);
    std::string typed;
    while (!search.Complete() || any(3) > 0) {
      if (any(2) == 0) {
        typed = any(3) == 0 ? word(3) : typed + word(1);
        search.Look(typed);
      }
      do {
        search.ReadOn(1 + any(20));
      } while (any(2) == 0);
      search.ShowRead();
      Places expected;
      for (std::size_t row = 0; row < search.Read(); ++row) {
        bool all = true;
        std::string wanted = Slowly(typed) + " ";
        for (std::size_t end = 0; (end = wanted.find(' ')) != std::string::npos; wanted.erase(0, end + 1)) {
          const auto holds = [&](std::size_t c) {
            return Slowly(rows.Cell(row, c)).find(wanted.substr(0, end)) != std::string::npos;
          };
          all = all && (holds(0) || holds(1) || holds(2));
        }
        if (all) expected.push_back(row);
      }
      if (view.sorted_by) std::ranges::stable_sort(expected, {}, [&](std::size_t row) { return Order(lines[row][1]); });
      ASSERT_EQ(Shown(search), expected) << round << " \"" << typed << '"';
    }
    ASSERT_EQ(search.Read(), lines.size());
  }
}

TEST(RowSearch, SortsByAColumnAndFindsWhereToStand) {
  const std::vector<Texts> lines = {{"007", "Ñíguez", "01/02/99"}, {"070", "Nuz", "31/12/30"},
                                    {"001", "Oca", "01/01/29"},    {"017", "Núñez", ""},
                                    {"012", "Álava", "01/02/99"},  {"003", "Nunez Ana", "02/01/00"}};
  Made made(lines);
  RowList rows(made, kColumns, kPlaces);
  PickView view;
  view.present = {{kPlaces[0], "12"}, {kPlaces[1], "otro"}};
  view.sorted_by = 1;
  view.foremost = 2;
  rows.Present(view);
  RowSearch search(rows);
  for (int i = 0; i < 3; ++i) search.ReadOn(2);
  search.ShowRead();
  EXPECT_EQ(Shown(search), (Places{0, 1, 4, 5, 3, 2})) << "two stay on top";
  EXPECT_EQ(search.Present(), 4U);
  search.Sort(1, false);
  EXPECT_EQ(Shown(search), (Places{4, 5, 3, 1, 0, 2}));
  search.Look("n");
  EXPECT_EQ(Shown(search), (Places{5, 3, 1})) << "ñ is no n";
  search.Sort(1, true);
  EXPECT_EQ(Shown(search), (Places{1, 3, 5}));
  search.Look("");
  search.Sort(2, false);
  EXPECT_EQ(Shown(search), (Places{3, 1, 0, 4, 5, 2})) << "30 is 1930 in this window";
  search.Sort({}, false);
  search.Look("7");
  EXPECT_EQ(Shown(search), (Places{0, 1, 3}));
  EXPECT_EQ(search.Best(), 0U);
  search.Look("17");
  search.Sort(0, true);
  EXPECT_EQ(search.RowAt(search.Best()), 3U);
  search.Look("n ez");
  EXPECT_EQ(search.Hits("Núñez Ana"), (std::vector<TextRange>{{0, 1}, {3, 2}, {7, 1}}));
}

}  // namespace
}  // namespace zendara

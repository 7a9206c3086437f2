#include "print/table.hpp"

#include <algorithm>
#include <numeric>
#include <utility>

namespace zendara::print {
namespace {

constexpr Font kCell = {9, false};
constexpr Font kHead = {9, true};
constexpr int kBetween = 240;
constexpr int kAbove = 60;
constexpr int kRuleHeight = 40;

struct Column {
  std::size_t index = 0;
  int width = 0;
  int least = 0;
};

class Layouter {
 public:
  Layouter(PageFlow& flow, const Table& table) : flow_(flow), table_(table) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) columns_.push_back(Measured(i));
  }

  void Add() {
    const auto first = columns_.begin() + static_cast<std::ptrdiff_t>(std::min(table_.names, columns_.size()));
    const std::vector<Column> names(columns_.begin(), first);
    auto next = first;
    do {
      std::vector<Column> band = names;
      while (next != columns_.end() && (band.size() == names.size() || LeastWith(band, *next) <= flow_.Width())) {
        band.push_back(*next++);
      }
      Fit(band);
      AddBand(band);
    } while (next != columns_.end());
  }

 private:
  Font FontOf(std::size_t row) const {
    const bool bold = row < table_.heads || (table_.result && row + 1 == table_.rows.size());
    return bold ? kHead : kCell;
  }

  // A longer one is broken rather than that its column goes below the others.
  int LongestWord() const { return flow_.Width() / 4; }

  Column Measured(std::size_t index) const {
    Column column{index, 0, 0};
    for (std::size_t row = 0; row < table_.rows.size(); ++row) {
      const std::string& text = table_.rows[row][index];
      const bool whole = table_.columns[index] == Side::kRight && row >= table_.heads;
      const int width = FullWidth(text, FontOf(row), flow_.Measure());
      column.width = std::max(column.width, width);
      const int word = whole ? width : std::min(WordWidth(text, FontOf(row), flow_.Measure()), LongestWord());
      column.least = std::max(column.least, word);
    }
    column.width = std::min(column.width, flow_.Width());
    column.least = std::min(column.least, flow_.Width());
    return column;
  }

  static int LeastWith(const std::vector<Column>& band, const Column& next) {
    return std::accumulate(band.begin(), band.end(), next.least,
                           [](int sum, const Column& column) { return sum + column.least + kBetween; });
  }

  // Takes from the widest of those that can be wrapped.
  void Fit(std::vector<Column>& band) const {
    int over = -flow_.Width() - kBetween;
    for (const Column& column : band) over += column.width + kBetween;
    while (over > 0) {
      std::vector<Column*> wide;
      for (Column& column : band) {
        if (column.width > column.least) wide.push_back(&column);
      }
      if (wide.empty()) return ShareOut(band);
      std::ranges::sort(wide, std::ranges::greater(), &Column::width);
      const int next = wide.size() > 1 ? wide[1]->width : 0;
      const int taken = std::min({over, wide[0]->width - wide[0]->least, std::max(wide[0]->width - next, 1)});
      wide[0]->width -= taken;
      over -= taken;
    }
  }

  // Words that are wider than the page.
  void ShareOut(std::vector<Column>& band) const {
    const int room = (flow_.Width() + kBetween) / static_cast<int>(band.size()) - kBetween;
    for (Column& column : band) column.width = std::max(room, 1);
  }

  std::vector<Line> RowLines(const std::vector<Column>& band, std::size_t row) const {
    std::vector<Line> lines;
    int x = flow_.Left();
    for (const Column& column : band) {
      const Tone tone = column.index < table_.names && row >= table_.heads ? Tone::kQuiet : Tone::kNormal;
      PutBeside(lines, LinesOf(table_.rows[row][column.index],
                               {x, column.width, FontOf(row), tone, table_.columns[column.index]}, flow_.Measure()));
      x += column.width + kBetween;
    }
    return lines;
  }

  void AddBand(const std::vector<Column>& band) {
    int width = -kBetween;
    for (const Column& column : band) width += column.width + kBetween;
    const Line rule = {kRuleHeight, {Rule{flow_.Left(), kRuleHeight / 2, width}}};
    std::vector<Line> head;
    for (std::size_t row = 0; row < table_.heads; ++row) {
      std::vector<Line> lines = RowLines(band, row);
      head.insert(head.end(), std::make_move_iterator(lines.begin()), std::make_move_iterator(lines.end()));
    }
    if (!head.empty()) {
      head.push_back(rule);
      flow_.Add({Level::kTableHead, 2 * kAbove, head}, head);
    }
    for (std::size_t row = table_.heads; row < table_.rows.size(); ++row) {
      std::vector<Line> lines = RowLines(band, row);
      if (table_.result && row + 1 == table_.rows.size()) lines.insert(lines.begin(), rule);
      flow_.Add({Level::kBody, kAbove, std::move(lines)});
    }
    flow_.EndTable();
  }

  PageFlow& flow_;
  const Table& table_;
  std::vector<Column> columns_;
};

}  // namespace

void AddTable(PageFlow& flow, const Table& table) { Layouter(flow, table).Add(); }

}  // namespace zendara::print

#include "print/listing_grid.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "print/text_lines.hpp"
#include "runtime/text.hpp"

namespace zendara::print {
namespace {

constexpr Font kTitle = {13, true};
constexpr int kSmallest = 5;  // type, in points
constexpr int kGap = 200;     // between columns
constexpr int kBelowCompany = 60;
constexpr int kBelowTitle = 200;
constexpr int kAboveRule = 30;
constexpr int kBelowRule = 80;
constexpr int kWide = 360;          // beside the date and the number of the page
constexpr int kLongestWord = 2000;  // a longer one is broken rather than that the others lose their room
constexpr int kLongestFigure = 3000;
constexpr std::size_t kTitleLines = 6;
// How many rows may be wrapped without looking for more room: few, or one in so many.
constexpr std::size_t kFew = 3;
constexpr std::size_t kOneIn = 10;
constexpr std::string_view kSign = "…";
constexpr std::string_view kWidestNumber = "Página 99.999 de 99.999…";

Font Bold(Font font) {
  font.bold = true;
  return font;
}

// The longest beginning that has room with the sign.
std::string WithSign(std::string_view text, int width, const Font& font, const TextMeasure& measure) {
  std::string cut;
  for (std::string_view rest = text; !rest.empty();) {
    TakeCharacter(rest);
    std::string longer(text.substr(0, text.size() - rest.size()));
    longer += kSign;
    if (measure.Width(longer, font) > width) break;
    cut = std::move(longer);
  }
  return cut.empty() ? std::string(kSign) : cut;
}

std::string CutTo(const std::string& text, int width, const Font& font, const TextMeasure& measure) {
  return measure.Width(text, font) <= width ? text : WithSign(text, width, font, measure);
}

std::vector<std::string> WrapTo(std::size_t most, const std::string& text, int width, const Font& font,
                                const TextMeasure& measure) {
  std::vector<std::string> lines = Wrap(text, width, font, measure);
  if (lines.size() <= most) return lines;
  lines.resize(most);
  lines.back() = WithSign(lines.back(), width, font, measure);
  return lines;
}

// What a column would have, from what it cannot do without to what is nice: room for its longest word or figure, for
// nearly all of its texts, for all of them, for its title on one line, and the width that was asked for.
using Wishes = std::array<int, 5>;
enum Wish : std::size_t { kLeast, kMostTexts, kAllTexts, kTitleWhole, kAsked };

Wishes WishesOf(const ListingColumn& column, std::size_t index, const PackedRows& sample, int room, const Font& font,
                const TextMeasure& measure) {
  const bool figures = column.side == CellSide::kNumber;
  const std::string title = CellText(column.title);
  Wishes wishes = {std::min(WordWidth(title, Bold(font), measure), kLongestWord), 0, 0,
                   measure.Width(title, Bold(font)), column.width - kGap};
  std::vector<int> widths;
  std::vector<std::string_view> cells;
  for (std::size_t row = 0; row < sample.size(); ++row) {
    sample.Read(row, cells);
    const std::string text = CellText(cells[index]);
    widths.push_back(measure.Width(text, font));
    const int least = figures ? widths.back() : WordWidth(text, font, measure);
    if (!figures || least <= kLongestFigure) {
      wishes[kLeast] = std::max(wishes[kLeast], std::min(least, figures ? kLongestFigure : kLongestWord));
    }
  }
  if (!widths.empty()) {
    wishes[kAllTexts] = std::ranges::max(widths);
    const auto most = widths.begin() + static_cast<std::ptrdiff_t>(widths.size() * 19 / 20);
    std::ranges::nth_element(widths, most);
    wishes[kMostTexts] = *most;
  }
  if (figures) wishes[kMostTexts] = wishes[kAllTexts] = wishes[kLeast];
  for (int& wish : wishes) wish = std::clamp(wish, 1, room);
  return wishes;
}

// Widens the columns to what they wish as far as there is room, the narrow ones first. False when there is too little.
bool Widen(std::vector<int>& widths, const std::vector<Wishes>& wishes, Wish wish, int room) {
  const auto at = [&](std::size_t i, int level) { return std::max(widths[i], std::min(wishes[i][wish], level)); };
  const auto sum = [&](int level) {
    int all = 0;
    for (std::size_t i = 0; i < widths.size(); ++i) all += at(i, level);
    return all;
  };
  int level = room;
  if (sum(level) > room) {
    int narrow = 0;
    while (level - narrow > 1) {
      const int middle = (narrow + level) / 2;
      (sum(middle) > room ? level : narrow) = middle;
    }
    level = narrow;
  }
  for (std::size_t i = 0; i < widths.size(); ++i) widths[i] = at(i, level);
  return level == room;
}

}  // namespace

ListingGrid ListingGrid::Settle(const Listing& listing, const ListingHead& head, const PackedRows& sample,
                                const TextMeasure& measure) {
  const Paper upright;
  const Paper turned = {upright.height, upright.width, upright.margin};
  const auto settled = [&](const Paper& paper, int size) {
    ListingGrid grid(paper, {size, false}, measure);
    grid.PlaceColumns(listing, sample);
    grid.SetHead(listing, head);
    return grid;
  };
  std::optional<ListingGrid> best;
  int fewest = 0;
  for (const auto& [paper, size] : {std::pair(upright, 9), {upright, 8}, {turned, 8}}) {
    ListingGrid grid = settled(paper, size);
    if (!grid.has_room_) continue;
    const auto [pages, wrapped] = grid.Try(sample);
    if (wrapped <= std::max(kFew, sample.size() / kOneIn)) return grid;
    if (best && pages >= fewest) continue;
    fewest = pages;
    best = std::move(grid);
  }
  for (int size = 7; !best; --size) {
    ListingGrid grid = settled(turned, size);
    if (grid.has_room_ || size == kSmallest) best = std::move(grid);
  }
  return *std::move(best);
}

void ListingGrid::PlaceColumns(const Listing& listing, const PackedRows& sample) {
  const int count = static_cast<int>(listing.columns.size());
  const int gap = std::min(kGap, Width() / (2 * std::max(count, 1)));
  const int room = Width() - gap * (count - 1);
  std::vector<Wishes> wishes;
  for (std::size_t i = 0; i < listing.columns.size(); ++i) {
    wishes.push_back(WishesOf(listing.columns[i], i, sample, room, font_, *measure_));
  }
  std::vector<int> widths(listing.columns.size(), 0);
  for (const Wish wish : {kLeast, kMostTexts, kAllTexts, kTitleWhole, kAsked}) {
    const bool all = Widen(widths, wishes, wish, room);
    if (wish == kLeast) has_room_ = all;
  }
  int x = Left();
  for (std::size_t i = 0; i < widths.size(); ++i) {
    places_.push_back({listing.columns[i].side, x, widths[i]});
    x += widths[i] + gap;
  }
}

int ListingGrid::StartOf(const Place& place, const std::string& text, const Font& font) const {
  if (place.side == CellSide::kText) return place.x;
  const int room = place.width - measure_->Width(text, font);
  return place.x + (place.side == CellSide::kCentred ? room / 2 : room);
}

void ListingGrid::SetHead(const Listing& listing, const ListingHead& head) {
  const auto add = [](std::vector<Mark>& marks, int x, int baseline, const Font& font, std::string text, Tone tone) {
    if (!text.empty()) marks.emplace_back(TextRun{x, baseline, font, std::move(text), tone});
  };
  const int right = Left() + Width();
  int y = paper_.margin;
  int baseline = y + measure_->Ascent(kListingSmall);
  const int date = right - measure_->Width(head.date, kListingSmall);
  const std::string company = Trim(CellText(head.company) + "  " + CellText(head.name));
  add(above_number_, Left(), baseline, kListingSmall, CutTo(company, date - kWide - Left(), kListingSmall, *measure_),
      Tone::kNormal);
  add(above_number_, date, baseline, kListingSmall, head.date, Tone::kQuiet);

  y += measure_->LineHeight(kListingSmall) + kBelowCompany;
  number_baseline_ = y + measure_->Ascent(kTitle);
  const int room = Width() - kWide - measure_->Width(kWidestNumber, kListingSmall);
  add(above_number_, Left(), number_baseline_, kTitle, CutTo(CellText(listing.title), room, kTitle, *measure_),
      Tone::kNormal);

  // Titles of fewer lines stand close to their columns.
  y += measure_->LineHeight(kTitle) + kBelowTitle;
  const Font bold = Bold(font_);
  const int height = measure_->LineHeight(bold);
  std::vector<std::vector<std::string>> titles;
  std::size_t most = 1;
  for (std::size_t i = 0; i < places_.size(); ++i) {
    titles.push_back(WrapTo(kTitleLines, CellText(listing.columns[i].title), places_[i].width, bold, *measure_));
    most = std::max(most, titles.back().size());
  }
  y += height * static_cast<int>(most);
  for (std::size_t i = 0; i < places_.size(); ++i) {
    baseline = y - height * static_cast<int>(titles[i].size()) + measure_->Ascent(bold);
    for (const std::string& line : titles[i]) {
      add(below_number_, StartOf(places_[i], line, bold), baseline, bold, line, Tone::kNormal);
      baseline += height;
    }
  }
  below_number_.emplace_back(Rule{Left(), y + kAboveRule, Width()});
  top_ = y + kAboveRule + kBelowRule;
}

int ListingGrid::Height() const {
  return paper_.height - paper_.margin - measure_->LineHeight(kListingSmall) - kAboveListingFoot - top_;
}

std::vector<Mark> ListingGrid::Head(const std::string& number) const {
  std::vector<Mark> marks = above_number_;
  const int x = Left() + Width() - measure_->Width(number, kListingSmall);
  marks.emplace_back(TextRun{x, number_baseline_, kListingSmall, number, Tone::kQuiet});
  marks.insert(marks.end(), below_number_.begin(), below_number_.end());
  return marks;
}

ListingGrid::Trial ListingGrid::Try(const PackedRows& sample) const {
  std::vector<std::string_view> cells;
  int height = 0;
  std::size_t wrapped = 0;
  for (std::size_t row = 0; row < sample.size(); ++row) {
    sample.Read(row, cells);
    const int lines = LineCount(cells);
    height += lines * LineHeight() + kBetweenRows;
    if (lines > 1) ++wrapped;
  }
  return {(height + Height() - 1) / Height(), wrapped};
}

// A figure that has room beside no other. A row with very many of them has them wrapped, so that it is no page long.
bool ListingGrid::StandsBelow(std::size_t column, int width, std::size_t others) const {
  return places_[column].side == CellSide::kNumber && width > places_[column].width && width <= Width() &&
         others < MostLines() / 2;
}

std::vector<CellLine> ListingGrid::Lines(const std::vector<std::string_view>& cells) const {
  std::vector<std::string> texts;
  std::vector<std::size_t> figures;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    texts.push_back(CellText(cells[i]));
    if (StandsBelow(i, measure_->Width(texts[i], font_), figures.size())) figures.push_back(i);
  }
  const std::size_t most = MostLines() - figures.size();
  std::vector<CellLine> lines;
  const auto add = [&](std::size_t column, std::size_t line, std::size_t start, const std::string& text) {
    const int x = std::max(StartOf(places_[column], text, font_), Left());
    lines.push_back({column, static_cast<int>(line), x, start, text});
  };
  std::size_t below = 1;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (texts[i].empty()) continue;
    if (std::ranges::binary_search(figures, i)) {
      add(i, 0, 0, texts[i]);
      continue;
    }
    const std::vector<std::string> wrapped = WrapTo(most, texts[i], places_[i].width, font_, *measure_);
    std::size_t start = 0;
    for (std::size_t line = 0; line < wrapped.size(); ++line) {
      if (!wrapped[line].starts_with(' ')) start = std::min(texts[i].find_first_not_of(' ', start), texts[i].size());
      add(i, line, start, wrapped[line]);
      start += wrapped[line].size();
    }
    below = std::max(below, wrapped.size());
  }
  for (CellLine& line : lines) {
    if (std::ranges::binary_search(figures, line.column)) line.line = static_cast<int>(below++);
  }
  return lines;
}

int ListingGrid::LineCount(const std::vector<std::string_view>& cells) const {
  std::size_t count = 1;
  std::size_t figures = 0;
  std::string kept;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::string_view text = CellView(cells[i], kept);
    const int width = measure_->Width(text, font_);
    if (width <= places_[i].width) continue;
    if (StandsBelow(i, width, figures)) {
      ++figures;
    } else {
      count = std::max(count, Wrap(text, places_[i].width, font_, *measure_).size());
    }
  }
  return static_cast<int>(std::min(count, MostLines() - figures) + figures);
}

}  // namespace zendara::print

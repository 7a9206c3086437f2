#include "print/listing_grid.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "print/text_lines.hpp"
#include "runtime/text.hpp"

namespace zendara::print {
namespace {

constexpr Font kTitle = {13, true};
constexpr int kSize = 9;  // of the rows, in points
constexpr int kSmallest = 5;
constexpr int kGap = 200;  // between columns
constexpr int kBelowCompany = 60;
constexpr int kBelowTitle = 200;
constexpr int kAboveRule = 30;
constexpr int kBelowRule = 80;
constexpr int kWide = 360;          // beside the date and the number of the page
constexpr int kLongestWord = 2000;  // a longer one is broken rather than that the others lose their room
constexpr int kLongestFigure = 3000;
constexpr std::size_t kTitleLines = 6;
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
  for (int size = kSize;; --size) {
    ListingGrid wide(turned, {size, false}, measure);
    const bool has_room = wide.PlaceColumns(listing, sample);
    wide.SetHead(listing, head);
    if (size == kSize) {
      ListingGrid narrow(upright, {size, false}, measure);
      const bool fits = narrow.PlaceColumns(listing, sample);
      narrow.SetHead(listing, head);
      if (fits && (!has_room || narrow.PagesOf(sample) <= wide.PagesOf(sample))) return narrow;
    }
    if (has_room || size == kSmallest) return wide;
  }
}

// False when words or figures have no room; they have what there is.
bool ListingGrid::PlaceColumns(const Listing& listing, const PackedRows& sample) {
  const int count = static_cast<int>(listing.columns.size());
  const int gap = std::min(kGap, Width() / (2 * std::max(count, 1)));
  const int room = Width() - gap * (count - 1);
  std::vector<Wishes> wishes;
  for (std::size_t i = 0; i < listing.columns.size(); ++i) {
    wishes.push_back(WishesOf(listing.columns[i], i, sample, room, font_, *measure_));
  }
  std::vector<int> widths(listing.columns.size(), 0);
  bool has_room = true;
  for (const Wish wish : {kLeast, kMostTexts, kAllTexts, kTitleWhole, kAsked}) {
    const bool all = Widen(widths, wishes, wish, room);
    if (wish == kLeast) has_room = all;
  }
  int x = Left();
  for (std::size_t i = 0; i < widths.size(); ++i) {
    places_.push_back({listing.columns[i].side, x, widths[i]});
    x += widths[i] + gap;
  }
  return has_room;
}

int ListingGrid::StartOf(const Place& place, const std::string& text, const Font& font) const {
  if (place.side == CellSide::kText) return place.x;
  const int room = place.width - measure_->Width(text, font);
  return place.x + (place.side == CellSide::kCentred ? room / 2 : room);
}

void ListingGrid::SetHead(const Listing& listing, const ListingHead& head) {
  const int right = Left() + Width();
  const auto small = measure_->Ascent(kListingSmall);
  int y = paper_.margin;
  const int date = right - measure_->Width(head.date, kListingSmall);
  const std::string company = Trim(CellText(head.company) + "  " + CellText(head.name));
  above_number_.emplace_back(TextRun{Left(), y + small, kListingSmall,
                                     CutTo(company, date - kWide - Left(), kListingSmall, *measure_), Tone::kNormal});
  above_number_.emplace_back(TextRun{date, y + small, kListingSmall, head.date, Tone::kQuiet});
  y += measure_->LineHeight(kListingSmall) + kBelowCompany;
  number_baseline_ = y + measure_->Ascent(kTitle);
  const int room = Width() - kWide - measure_->Width(kWidestNumber, kListingSmall);
  above_number_.emplace_back(TextRun{Left(), number_baseline_, kTitle,
                                     CutTo(CellText(listing.title), room, kTitle, *measure_), Tone::kNormal});
  y += measure_->LineHeight(kTitle) + kBelowTitle;

  // Titles of fewer lines stand close to their columns.
  const Font bold = Bold(font_);
  const int height = measure_->LineHeight(bold);
  std::vector<std::vector<std::string>> titles;
  std::size_t most = 1;
  for (std::size_t i = 0; i < places_.size(); ++i) {
    titles.push_back(WrapTo(kTitleLines, CellText(listing.columns[i].title), places_[i].width, bold, *measure_));
    most = std::max(most, titles.back().size());
  }
  for (std::size_t i = 0; i < places_.size(); ++i) {
    int line_y = y + height * static_cast<int>(most - titles[i].size());
    for (std::string& line : titles[i]) {
      if (!line.empty()) {
        const int x = StartOf(places_[i], line, bold);
        below_number_.emplace_back(TextRun{x, line_y + measure_->Ascent(bold), bold, std::move(line), Tone::kNormal});
      }
      line_y += height;
    }
  }
  y += height * static_cast<int>(most) + kAboveRule;
  below_number_.emplace_back(Rule{Left(), y, Width()});
  top_ = y + kBelowRule;
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

int ListingGrid::PagesOf(const PackedRows& sample) const {
  std::vector<std::string_view> cells;
  int height = 0;
  for (std::size_t row = 0; row < sample.size(); ++row) {
    sample.Read(row, cells);
    height += LineCount(cells) * LineHeight() + kBetweenRows;
  }
  return (height + Height() - 1) / Height();
}

std::vector<CellLine> ListingGrid::Lines(const std::vector<std::string_view>& cells) const {
  std::vector<CellLine> lines;
  std::vector<std::pair<std::size_t, std::string>> figures;  // that stand below the others
  const auto below = static_cast<std::size_t>(MostLines() / 2);
  std::vector<std::string> texts(cells.size());
  for (std::size_t i = 0; i < cells.size(); ++i) {
    texts[i] = CellText(cells[i]);
    if (places_[i].side != CellSide::kNumber || figures.size() == below) continue;
    const int width = measure_->Width(texts[i], font_);
    if (width > places_[i].width && width <= Width()) figures.emplace_back(i, std::exchange(texts[i], {}));
  }
  const auto most = static_cast<std::size_t>(MostLines()) - figures.size();
  int below_line = 1;
  std::vector<std::vector<std::string>> wrapped(cells.size());
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (!texts[i].empty()) wrapped[i] = WrapTo(most, texts[i], places_[i].width, font_, *measure_);
    below_line = std::max(below_line, static_cast<int>(wrapped[i].size()));
  }
  auto figure = figures.begin();
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (figure != figures.end() && figure->first == i) {
      const int x = std::max(StartOf(places_[i], figure->second, font_), Left());
      lines.push_back({i, below_line++, x, 0, std::move(figure++->second)});
      continue;
    }
    std::size_t from = 0;
    for (std::size_t line = 0; line < wrapped[i].size(); ++line) {
      std::string& text = wrapped[i][line];
      if (!text.starts_with(' ')) from = std::min(texts[i].find_first_not_of(' ', from), texts[i].size());
      const int x = StartOf(places_[i], text, font_);
      lines.push_back({i, static_cast<int>(line), x, from, text});
      from += text.size();
    }
  }
  return lines;
}

int ListingGrid::LineCount(const std::vector<std::string_view>& cells) const {
  const auto fits = [&](std::size_t i) { return measure_->Width(cells[i], font_) <= places_[i].width; };
  std::size_t i = 0;
  while (i < cells.size() && fits(i)) ++i;
  if (i == cells.size()) return 1;
  int count = 1;
  for (const CellLine& line : Lines(cells)) count = std::max(count, line.line + 1);
  return count;
}

}  // namespace zendara::print

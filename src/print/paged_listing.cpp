#include "print/paged_listing.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "print/listing_grid.hpp"
#include "print/packed_rows.hpp"
#include "runtime/format.hpp"
#include "runtime/plain_text.hpp"
#include "runtime/text.hpp"

namespace zendara::print {
namespace {

using Cells = std::vector<std::string_view>;

constexpr std::uint32_t kNoRow = std::numeric_limits<std::uint32_t>::max();
constexpr std::string_view kNothing = "No hay ninguna línea que listar.";

bool IsBlank(std::string_view cell) {
  std::string kept;
  return CellView(cell, kept).empty();
}

// The leading columns that are blank; none of a row that is blank altogether.
std::size_t LeadingBlanks(const Cells& cells) {
  const auto first = std::ranges::find_if_not(cells, IsBlank);
  return first == cells.end() ? 0 : static_cast<std::size_t>(first - cells.begin());
}

// A new group stands off from the one before.
int SpaceAbove(std::size_t leading_blanks, std::size_t of_row_above) {
  return kBetweenRows + (leading_blanks < of_row_above ? kBetweenGroups : 0);
}

}  // namespace

struct PagedListing::State {
  State(Listing its_listing, ListingHead its_head, std::unique_ptr<ListingRows> its_source,
        const TextMeasure& its_measure)
      : listing(std::move(its_listing)),
        head(std::move(its_head)),
        source(std::move(its_source)),
        measure(its_measure),
        last_values(listing.columns.size(), kNoRow) {}

  Listing listing;
  ListingHead head;
  std::unique_ptr<ListingRows> source;
  const TextMeasure& measure;
  PackedRows rows;
  std::optional<ListingGrid> grid;
  bool complete = false;

  // Pages: their first rows, and of each column the row that says what the group of the first row has there.
  std::vector<std::uint32_t> first_rows;
  std::vector<std::uint32_t> groups;
  // Of what was settled so far.
  std::vector<std::uint32_t> last_values;
  std::size_t last_leading = 0;
  int height = 0;
  std::size_t settled = 0;

  // A row as it stands on a page. The first `repeated` cells are those of its group.
  struct Shown {
    Cells cells;
    std::size_t repeated = 0;
  };

  void Read(std::size_t count) {
    std::vector<std::string> cells;
    for (; count > 0 && !complete; --count) {
      if (source->Next(cells)) {
        cells.resize(listing.columns.size());
        rows.Add(cells);
      } else {
        complete = true;
        source.reset();
      }
    }
  }

  void SettlePages() {
    for (Cells cells; settled < rows.size(); ++settled) {
      rows.Read(settled, cells);
      const std::size_t leading = LeadingBlanks(cells);
      height += SpaceAbove(leading, last_leading) + grid->LineCount(cells) * grid->LineHeight();
      if (settled == 0 || height > grid->Height()) {
        first_rows.push_back(static_cast<std::uint32_t>(settled));
        groups.insert(groups.end(), last_values.begin(), last_values.end());
        height = grid->LineCount(ShownAt(first_rows.size() - 1, settled).cells) * grid->LineHeight();
      }
      for (std::size_t i = 0; i < cells.size(); ++i) {
        if (!IsBlank(cells[i])) last_values[i] = static_cast<std::uint32_t>(settled);
      }
      last_leading = leading;
    }
  }

  Shown ShownAt(std::size_t page, std::size_t row) const {
    Shown shown;
    rows.Read(row, shown.cells);
    if (row != first_rows[page]) return shown;
    shown.repeated = LeadingBlanks(shown.cells);
    Cells source_cells;
    for (std::size_t i = 0; i < shown.repeated; ++i) {
      const std::uint32_t from = groups[page * listing.columns.size() + i];
      if (from == kNoRow) continue;
      rows.Read(from, source_cells);
      shown.cells[i] = source_cells[i];
    }
    return shown;
  }

  std::size_t EndOf(std::size_t page) const { return page + 1 < first_rows.size() ? first_rows[page + 1] : settled; }

  // Calls `place` with each row of a page, its upper edge and its lines; gives the lower edge of the last one.
  template <typename Place>
  int PlaceRows(std::size_t page, Place place) const {
    int y = grid->Top();
    if (page >= first_rows.size()) return y;
    std::size_t before = 0;
    for (std::size_t row = first_rows[page]; row < EndOf(page); ++row) {
      const Shown shown = ShownAt(page, row);
      Cells staged;
      rows.Read(row, staged);
      const std::size_t leading = LeadingBlanks(staged);
      if (row > first_rows[page]) y += SpaceAbove(leading, before);
      before = leading;
      const std::vector<CellLine> lines = grid->Lines(shown.cells);
      place(row, y, shown, lines);
      int count = 1;
      for (const CellLine& line : lines) count = std::max(count, line.line + 1);
      y += count * grid->LineHeight();
    }
    return y;
  }

  std::size_t Pages() const { return std::max<std::size_t>(complete ? first_rows.size() : first_rows.size() - 1, 1); }
};

PagedListing::PagedListing(Listing listing, ListingHead head, std::unique_ptr<ListingRows> rows,
                           const TextMeasure& measure)
    : state_(std::make_unique<State>(std::move(listing), std::move(head), std::move(rows), measure)) {
  State& state = *state_;
  state.Read(kSample);
  state.grid = ListingGrid::Settle(state.listing, state.head, state.rows, measure);
  state.SettlePages();
}

PagedListing::~PagedListing() = default;

const Listing& PagedListing::Description() const { return state_->listing; }
const ListingHead& PagedListing::Head() const { return state_->head; }
const Paper& PagedListing::PaperOf() const { return state_->grid->PaperOf(); }

bool PagedListing::ReadOn(std::size_t rows) {
  state_->Read(rows);
  state_->SettlePages();
  return !state_->complete;
}

bool PagedListing::Complete() const { return state_->complete; }
std::size_t PagedListing::Rows() const { return state_->rows.size(); }
std::size_t PagedListing::Pages() const { return state_->Pages(); }

Page PagedListing::PageAt(std::size_t n) const {
  const State& state = *state_;
  const ListingGrid& grid = *state.grid;
  const std::string number = "Página " + GroupThousands(std::to_string(n + 1)) + " de " +
                             GroupThousands(std::to_string(Pages())) + (Complete() ? "" : "…");
  Page page{grid.Head(number)};
  const int ascent = state.measure.Ascent(grid.CellFont());
  const int bottom = state.PlaceRows(n, [&](std::size_t, int top, const State::Shown& row, const auto& lines) {
    for (const CellLine& line : lines) {
      const Tone tone = line.column < row.repeated ? Tone::kQuiet : Tone::kNormal;
      page.marks.emplace_back(
          TextRun{line.x, top + line.line * grid.LineHeight() + ascent, grid.CellFont(), line.text, tone});
    }
  });
  if (!Complete() || n + 1 < Pages()) return page;
  const std::string foot = Rows() == 0 ? std::string(kNothing) : LinesText(Rows());
  const int space = Rows() == 0 ? 0 : kAboveListingFoot;
  page.marks.emplace_back(
      TextRun{grid.Left(), bottom + space + state.measure.Ascent(kListingSmall), kListingSmall, foot, Tone::kQuiet});
  return page;
}

std::size_t PagedListing::PageOf(std::size_t row) const {
  const auto after = std::ranges::upper_bound(state_->first_rows, static_cast<std::uint32_t>(row));
  return static_cast<std::size_t>(after - state_->first_rows.begin()) - 1;
}

std::vector<std::string> PagedListing::Row(std::size_t row) const {
  Cells cells;
  state_->rows.Read(row, cells);
  return {cells.begin(), cells.end()};
}

std::optional<std::size_t> PagedListing::Find(std::string_view text, std::size_t from, bool backwards) const {
  const std::string wanted = PlainText(text);
  const std::size_t count = Rows();
  if (wanted.empty() || count == 0) return std::nullopt;
  Cells cells;
  std::string kept;
  for (std::size_t step = 0; step < count; ++step) {
    const std::size_t row = (from + (backwards ? count - step : step)) % count;
    state_->rows.Read(row, cells);
    const auto holds = [&](std::string_view cell) {
      return PlainText(CellView(cell, kept)).find(wanted) != std::string::npos;
    };
    if (std::ranges::any_of(cells, holds)) return row;
  }
  return std::nullopt;
}

std::vector<PagedListing::Hit> PagedListing::HitsOn(std::size_t page, std::string_view text) const {
  const State& state = *state_;
  const Font& font = state.grid->CellFont();
  const int height = state.grid->LineHeight();
  const std::string wanted = PlainText(text);
  std::vector<Hit> hits;
  if (wanted.empty()) return hits;
  state.PlaceRows(page, [&](std::size_t row, int top, const State::Shown& shown, const auto& lines) {
    for (const CellLine& line : lines) {
      const std::string cell = CellText(shown.cells[line.column]);
      const std::string plain = PlainText(cell);
      const std::size_t first = Len(std::string_view(cell).substr(0, line.start));
      const std::size_t last = first + Len(line.text);
      for (std::size_t at = plain.find(wanted); at != std::string::npos; at = plain.find(wanted, at + wanted.size())) {
        // As characters of the line; a text that is wrapped has a part on each of its lines.
        const std::size_t begin = std::max(Len(std::string_view(plain).substr(0, at)), first);
        const std::size_t end = std::min(Len(std::string_view(plain).substr(0, at + wanted.size())), last);
        if (begin >= end) continue;
        const auto width = [&](std::size_t characters) {
          return state.measure.Width(std::string_view(line.text).substr(0, BytesOf(line.text, characters)), font);
        };
        const int left = width(begin - first);
        hits.push_back({line.x + left, top + line.line * height, width(end - first) - left, height, row});
      }
    }
  });
  return hits;
}

}  // namespace zendara::print

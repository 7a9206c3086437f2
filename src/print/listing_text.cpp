#include "print/listing_text.hpp"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "print/packed_rows.hpp"
#include "runtime/text.hpp"

namespace zendara::print {
namespace {

constexpr std::size_t kGap = 2;

std::string Padded(std::string text, std::size_t width, CellSide side) {
  const std::size_t room = width - Len(text);
  const std::size_t left = side == CellSide::kText ? 0 : side == CellSide::kCentred ? room / 2 : room;
  return std::string(left, ' ') + std::move(text) + std::string(room - left, ' ');
}

}  // namespace

std::string ListingText(const Listing& listing, ListingRows& rows) {
  const std::size_t columns = listing.columns.size();
  std::vector<std::string> titles;
  std::vector<std::size_t> widths;
  for (const ListingColumn& column : listing.columns) {
    titles.push_back(CellText(column.title));
    widths.push_back(Len(titles.back()));
  }
  PackedRows kept;
  for (std::vector<std::string> cells; rows.Next(cells);) {
    cells.resize(columns);
    for (std::size_t i = 0; i < columns; ++i) {
      cells[i] = CellText(cells[i]);
      widths[i] = std::max(widths[i], Len(cells[i]));
    }
    kept.Add(cells);
  }

  std::string text = CellText(listing.title) + "\n\n";
  const auto add = [&](const auto& cells) {
    std::string line;
    for (std::size_t i = 0; i < columns; ++i) {
      line += std::string(i == 0 ? 0 : kGap, ' ') + Padded(std::string(cells[i]), widths[i], listing.columns[i].side);
    }
    text += RTrim(line) + "\n";
  };
  add(titles);
  std::vector<std::string> dashes;
  for (const std::size_t width : widths) dashes.emplace_back(width, '-');
  add(dashes);
  std::vector<std::string_view> cells;
  for (std::size_t row = 0; row < kept.size(); ++row) {
    kept.Read(row, cells);
    add(cells);
  }
  return text + "\n" + LinesText(kept.size()) + "\n";
}

}  // namespace zendara::print

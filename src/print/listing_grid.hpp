// What is the same on every page of a listing: paper, type, head, and the places of the columns.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "print/listing.hpp"
#include "print/packed_rows.hpp"
#include "print/page.hpp"

namespace zendara::print {

// A line of a cell. `start`: the bytes of CellText of the cell that stand before it.
struct CellLine {
  std::size_t column = 0;
  int line = 0;  // of the row, from 0
  int x = 0;
  std::size_t start = 0;
  std::string text;
};

class ListingGrid {
 public:
  // The first of these in which nearly every row of the sample takes one line: A4 upright, with smaller type, turned.
  // If there is none, the one of them that takes the fewest pages and has room for words and figures; if they have room
  // in none, the paper is turned and the type goes down until they have. REQUIRES: measure outlives it.
  static ListingGrid Settle(const Listing& listing, const ListingHead& head, const PackedRows& sample,
                            const TextMeasure& measure);

  const Paper& PaperOf() const { return paper_; }
  const Font& CellFont() const { return font_; }
  int LineHeight() const { return measure_->LineHeight(font_); }
  int Left() const { return paper_.margin; }
  int Width() const { return paper_.width - 2 * paper_.margin; }
  // Of the rows: their upper edge, and how much room they have. Below them there is room for one small line.
  int Top() const { return top_; }
  int Height() const;

  // Company, date, title, number of the page, column titles and the rule below them.
  std::vector<Mark> Head(const std::string& number) const;

  // The lines of a row, cell after cell. A text is wrapped; a figure is whole, where its column has no room on a line
  // of its own below the others. What would be higher than a page ends with "…".
  std::vector<CellLine> Lines(const std::vector<std::string_view>& cells) const;
  // How many there are below each other, one at least.
  int LineCount(const std::vector<std::string_view>& cells) const;

 private:
  struct Place {
    CellSide side = CellSide::kText;
    int x = 0;
    int width = 0;
  };

  struct Trial {
    int pages = 0;
    std::size_t wrapped = 0;  // rows
  };

  ListingGrid(const Paper& paper, const Font& font, const TextMeasure& measure)
      : measure_(&measure), paper_(paper), font_(font) {}
  void PlaceColumns(const Listing& listing, const PackedRows& sample);
  void SetHead(const Listing& listing, const ListingHead& head);
  Trial Try(const PackedRows& sample) const;
  std::size_t MostLines() const { return static_cast<std::size_t>(Height() / LineHeight()); }
  bool StandsBelow(std::size_t column, int width, std::size_t others) const;
  int StartOf(const Place& place, const std::string& text, const Font& font) const;

  const TextMeasure* measure_;
  Paper paper_;
  Font font_;
  std::vector<Place> places_;
  std::vector<Mark> above_number_;
  std::vector<Mark> below_number_;
  int number_baseline_ = 0;
  bool has_room_ = false;  // for every word and figure
  int top_ = 0;
};

// Of the page, beside the rows.
inline constexpr Font kListingSmall = {8, false};
inline constexpr int kAboveListingFoot = 140;
// Above each row but the first of a page, and more where the leading columns change.
inline constexpr int kBetweenRows = 44;
inline constexpr int kBetweenGroups = 70;

}  // namespace zendara::print

// A listing on pages: the one model that preview, printer and PDF draw.
//
// Rows are read once and kept; a page is laid out when it is asked for. How wide the columns are is settled by the
// description, the titles and the first rows (kSample), so a page looks the same however much of the listing was read
// when it was first shown.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "print/listing.hpp"
#include "print/page.hpp"

namespace zendara::print {

class PagedListing {
 public:
  // The rows that settle the widths: read by the constructor.
  static constexpr std::size_t kSample = 1000;

  // REQUIRES: measure outlives it. Errors of the rows go to the caller, here and from ReadOn.
  PagedListing(Listing listing, ListingHead head, std::unique_ptr<ListingRows> rows, const TextMeasure& measure);
  ~PagedListing();

  const Listing& Description() const;
  const ListingHead& Head() const;
  // A4 upright, or turned when the columns have no room on it.
  const Paper& PaperOf() const;

  // Takes in that many more rows at most, and settles where pages begin. False when all are in.
  bool ReadOn(std::size_t rows);
  bool Complete() const;
  std::size_t Rows() const;   // that are in
  std::size_t Pages() const;  // that are settled, one at least; all of them once it is complete

  // From 0. "Página n de m" has m once it is complete, until then what there is so far with "…" for more to come.
  // REQUIRES: n < Pages(), or that page which more rows may still come to.
  Page PageAt(std::size_t n) const;
  // Pages() for a row of that page. REQUIRES: row < Rows().
  std::size_t PageOf(std::size_t row) const;

  // As it was staged.
  std::vector<std::string> Row(std::size_t row) const;
  // The next row, from `from` on and around, that holds the text in some column, whatever case and accents; among those
  // that are in. The columns that a group leaves blank hold nothing. Nothing for the empty text.
  std::optional<std::size_t> Find(std::string_view text, std::size_t from, bool backwards) const;
  // Where the text stands on a page, for a preview: a place for each line that it takes, also where the group is said
  // again. A text from right to left is marked as if it stood from left to right.
  struct Hit {
    int x = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    std::size_t row = 0;
  };
  std::vector<Hit> HitsOn(std::size_t page, std::string_view text) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace zendara::print

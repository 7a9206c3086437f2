// A listing as a spreadsheet: its column titles, bold and always in view, with a filter on each, and its rows as they
// were staged. What sees it again is the spreadsheet's own: dates and plain numbers are such, codes stay texts with
// their leading zeros, and nothing is ever a formula.
#pragma once

#include <cstddef>
#include <string>

#include "print/listing_writer.hpp"
#include "zendara/value.hpp"

namespace zendara {

class XlsxListingWriter : public print::ListingWriter {
 public:
  static constexpr std::size_t kRowsOfSheet = 1'048'575;  // below the titles

  // `years`: of dates with two digits for the year. A listing with more rows goes on on another sheet.
  explicit XlsxListingWriter(YearWindow years, std::size_t rows_of_sheet = kRowsOfSheet)
      : years_(years), rows_of_sheet_(rows_of_sheet) {}

  // The rows of unfinished work are in the folder of `path`, without a name.
  print::Kept Write(print::PagedListing& listing, const std::string& path, print::DocumentWriter::Existing existing,
                    const print::Progress& progress) const override;

 private:
  YearWindow years_;
  std::size_t rows_of_sheet_;
};

}  // namespace zendara

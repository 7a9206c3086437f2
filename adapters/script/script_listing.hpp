// The listing that a screen handed to the viewer last, laid out as the preview does, for the commands that look at it
// again.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "print/listing_writer.hpp"
#include "zendara/value.hpp"

namespace zendara {

class ScriptListing {
 public:
  // Reads all rows; their errors go to the caller. REQUIRES: measure outlives it.
  ScriptListing(print::Listing listing, print::ListingHead head, std::unique_ptr<print::ListingRows> rows,
                const print::TextMeasure& measure, YearWindow years);

  const std::string& Title() const { return pages_.Description().title; }
  std::size_t Columns() const { return pages_.Description().columns.size(); }
  std::size_t Rows() const { return pages_.Rows(); }
  std::size_t Pages() const { return pages_.Pages(); }
  // Into a new file of the kind that the ending of its name says. Errors as ListingWriter::Write.
  void Save(const std::string& path);
  // .pdf, .xlsx or .csv, whatever case.
  static bool IsKnown(std::string_view path);

 private:
  print::PagedListing pages_;
  YearWindow years_;
};

}  // namespace zendara

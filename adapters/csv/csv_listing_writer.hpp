// A listing as CSV by RFC 4180: its column titles, then its rows as they were staged, leading zeros and all.
#pragma once

#include <string>

#include "print/listing_writer.hpp"

namespace zendara {

class CsvListingWriter : public print::ListingWriter {
 public:
  // kPlain: commas. kSpreadsheet: with a byte order mark, and semicolons, which Spanish spreadsheets expect. There a
  // cell that begins with = + - or @ is quoted; its text stays what it is, so it is for the spreadsheet to ask whether
  // it is a formula.
  enum class Kind { kPlain, kSpreadsheet };

  explicit CsvListingWriter(Kind kind) : kind_(kind) {}

  print::Kept Write(print::PagedListing& listing, const std::string& path, print::DocumentWriter::Existing existing,
                    const print::Progress& progress) const override;

 private:
  Kind kind_;
};

}  // namespace zendara

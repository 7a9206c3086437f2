// The port of whatever keeps a listing: as pages, as a spreadsheet, as text.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "print/document_writer.hpp"
#include "print/paged_listing.hpp"

namespace zendara::print {

// Called now and then with the rows that are done; false stops the work, and nothing is left of it.
using Progress = std::function<bool(std::size_t rows_done)>;

enum class Kept { kWritten, kStopped };

class ListingWriter {
 public:
  virtual ~ListingWriter() = default;
  // Reads on to the end of the listing. The file gets its name when it is whole and on the disk: whatever fails, or
  // stops it, leaves what was there. Errors as DocumentWriter::WritePdf, and those of the rows.
  virtual Kept Write(PagedListing& listing, const std::string& path, DocumentWriter::Existing existing,
                     const Progress& progress) const = 0;
};

}  // namespace zendara::print

// A listing as PDF: the pages of its model, drawn.
#pragma once

#include <string>

#include "adapters/cairo/pango_text.hpp"
#include "print/listing_writer.hpp"

namespace zendara {

class CairoListingWriter : public print::ListingWriter {
 public:
  // REQUIRES: it outlives the writer, and measures like the one that the listings are laid out with.
  explicit CairoListingWriter(const PangoMeasure& measure) : measure_(measure) {}

  // The rows that are done are those on the pages that are.
  print::Kept Write(print::PagedListing& listing, const std::string& path, print::DocumentWriter::Existing existing,
                    const print::Progress& progress) const override;

 private:
  const PangoMeasure& measure_;
};

}  // namespace zendara

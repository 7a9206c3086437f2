#include "adapters/cairo/cairo_listing_writer.hpp"

#include <cstddef>

#include "adapters/cairo/pdf_file.hpp"
#include "print/reporter.hpp"

namespace zendara {
namespace {

constexpr std::size_t kBatch = 500;  // rows, read within a few milliseconds

}  // namespace

print::Kept CairoListingWriter::Write(print::PagedListing& listing, const std::string& path,
                                      print::DocumentWriter::Existing existing, const print::Progress& progress) const {
  print::Reporter reporter(progress);
  PdfFile file({.title = listing.Description().title, .created = TimeNow(), .paper = listing.PaperOf()}, measure_, path,
               existing);
  // Each page says how many there are.
  while (listing.ReadOn(kBatch)) {
    if (!reporter.MayGoOn(0)) return print::Kept::kStopped;
  }
  for (std::size_t page = 0; page < listing.Pages(); ++page) {
    file.Add(listing.PageAt(page));
    if (!reporter.MayGoOn(listing.Rows() * (page + 1) / listing.Pages())) return print::Kept::kStopped;
  }
  file.Finish();
  return print::Kept::kWritten;
}

}  // namespace zendara

#include "adapters/cairo/cairo_listing_writer.hpp"

#include <chrono>
#include <cstddef>

#include "adapters/cairo/pdf_file.hpp"

namespace zendara {
namespace {

constexpr std::size_t kBatch = 500;  // rows, read within a few milliseconds
constexpr std::chrono::milliseconds kReportEach(50);

// Asks no more often than somebody wants to see it.
class Reporter {
 public:
  explicit Reporter(const print::Progress& progress) : progress_(progress) {}

  bool MayGoOn(std::size_t rows_done) {
    const auto now = std::chrono::steady_clock::now();
    if (!progress_ || now - last_ < kReportEach) return true;
    last_ = now;
    return progress_(rows_done);
  }

 private:
  const print::Progress& progress_;
  std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
};

}  // namespace

print::Kept CairoListingWriter::Write(print::PagedListing& listing, const std::string& path,
                                      print::DocumentWriter::Existing existing, const print::Progress& progress) const {
  Reporter reporter(progress);
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

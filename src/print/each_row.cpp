#include "print/each_row.hpp"

#include <cstddef>

#include "print/reporter.hpp"

namespace zendara::print {
namespace {

constexpr std::size_t kBatch = 256;

}  // namespace

bool ForEachRow(PagedListing& listing, const Progress& progress,
                const std::function<void(const std::vector<std::string>& cells)>& take) {
  Reporter reporter(progress);
  for (std::size_t row = 0;; ++row) {
    while (row == listing.Rows() && !listing.Complete()) listing.ReadOn(kBatch);
    if (row == listing.Rows()) return true;
    take(listing.Row(row));
    if (!reporter.MayGoOn(row + 1)) return false;
  }
}

}  // namespace zendara::print

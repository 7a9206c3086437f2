#include "print/each_row.hpp"

#include <chrono>

namespace zendara::print {
namespace {

constexpr std::size_t kBatch = 256;
constexpr auto kPace = std::chrono::milliseconds(50);

}  // namespace

bool ForEachRow(PagedListing& listing, const Progress& progress,
                const std::function<void(const std::vector<std::string>& cells)>& take) {
  using Clock = std::chrono::steady_clock;
  Clock::time_point asked = Clock::now();
  for (std::size_t row = 0;; ++row) {
    while (row == listing.Rows() && !listing.Complete()) listing.ReadOn(kBatch);
    if (row == listing.Rows()) return true;
    take(listing.Row(row));
    if (!progress || Clock::now() - asked < kPace) continue;
    if (!progress(row + 1)) return false;
    asked = Clock::now();
  }
}

}  // namespace zendara::print

#include "adapters/plain_c/plain_listing.hpp"

#include <cstdint>

namespace zendara {

PlainListing::PlainListing(const ListingDescription& description, const std::string& file, const std::string& table,
                           const std::string& form)
    : texts_(print::ReadDescription(description)) {
  for (const print::ListingColumn& column : texts_.columns) {
    columns_.push_back({column.title.c_str(), column.width, column.side == print::CellSide::kNumber});
  }
  listing_ = {.size = sizeof listing_,
              .title = texts_.title.c_str(),
              .columns = columns_.data(),
              .column_count = static_cast<std::uint32_t>(columns_.size()),
              .pending = texts_.pending,
              .file = file.c_str(),
              .table = table.c_str(),
              .form = form.c_str()};
}

}  // namespace zendara

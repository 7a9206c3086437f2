// The rows of a listing as they are written down.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "print/listing.hpp"

namespace zendara::print {

using Texts = std::vector<std::string>;

class GivenRows : public ListingRows {
 public:
  explicit GivenRows(std::vector<Texts> rows) : rows_(std::move(rows)) {}

  bool Next(Texts& cells) override {
    if (next_ == rows_.size()) return false;
    cells = rows_[next_++];
    return true;
  }

 private:
  std::vector<Texts> rows_;
  std::size_t next_ = 0;
};

}  // namespace zendara::print

// A listing as functions in plain C get it.
#pragma once

#include <string>
#include <vector>

#include "print/listing.hpp"
#include "zendara/neighbours.hpp"
#include "zendara/zendara.h"

namespace zendara {

class PlainListing {
 public:
  // Errors as ReadDescription. The texts outlive it.
  PlainListing(const ListingDescription& description, const std::string& file, const std::string& table,
               const std::string& form);
  PlainListing(const PlainListing&) = delete;
  PlainListing& operator=(const PlainListing&) = delete;

  const zendara_listing* Get() const { return &listing_; }

 private:
  print::Listing texts_;
  std::vector<zendara_listing_column> columns_;
  zendara_listing listing_;
};

}  // namespace zendara

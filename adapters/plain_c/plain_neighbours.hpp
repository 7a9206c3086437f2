// Pick list, banner and listing viewer that are tables of functions in plain C.
#pragma once

#include <memory>
#include <string>

#include "zendara/neighbours.hpp"
#include "zendara/zendara.h"

namespace zendara {

// `name` of the class stands in the details of errors; `keep` lives as long as the result. A function that is null is
// error 438, but for the banner's: without PosicionBanner it has nothing to show, without AvisoCierre it is told
// nothing.
std::unique_ptr<PickList> PlainPickList(const zendara_pick_list& table, std::string name,
                                        std::shared_ptr<const void> keep = nullptr);
std::unique_ptr<Banner> PlainBanner(const zendara_banner& table, std::string name,
                                    std::shared_ptr<const void> keep = nullptr);
std::unique_ptr<ListingViewer> PlainListingViewer(const zendara_listing_viewer& table, std::string name,
                                                  std::shared_ptr<const void> keep = nullptr);

}  // namespace zendara

// The rows of a listing one after the other, for what keeps them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "print/listing_writer.hpp"

namespace zendara::print {

// Reads on to the end and hands each row over. False when `progress`, which is asked every 50 ms, stops it; without
// one nothing does.
bool ForEachRow(PagedListing& listing, const Progress& progress,
                const std::function<void(const std::vector<std::string>& cells)>& take);

}  // namespace zendara::print

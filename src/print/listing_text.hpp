// A listing as text in columns: for standard output and transcripts.
#pragma once

#include <string>

#include "print/listing.hpp"

namespace zendara::print {

// Title, column titles, a line of dashes, the rows and their number. Columns are as wide as what stands in them, in
// characters: nothing is cut. Reads the rows to their end; their errors go to the caller.
std::string ListingText(const Listing& listing, ListingRows& rows);

}  // namespace zendara::print

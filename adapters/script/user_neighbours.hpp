// Pick list, banner and listing viewer that ask whoever stands in the user's place; a front end that shows the first in
// a window registers its own after them.
#pragma once

#include <functional>
#include <string>

#include "adapters/hosting/row_pick_list.hpp"
#include "zendara/neighbours.hpp"

namespace zendara {

// A listing that is ready: its description, the database that holds the rows, and the table.
using TakeListing =
    std::function<void(const ListingDescription& description, const std::string& file, const std::string& table)>;

// Lists and listings go there unless the host has its own, whatever classes the machine has.
void OfferUserNeighbours(Components& components, ChooseRow choose, TakeListing take);

}  // namespace zendara

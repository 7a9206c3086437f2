// Pick list, banner and listing viewer that ask a script's player and pass on to it; a front end that shows the first
// in a window registers its own after them.
#pragma once

#include "adapters/script/script_player.hpp"
#include "zendara/neighbours.hpp"

namespace zendara {

// The player outlives the components. Lists and listings go to it unless the host has its own, whatever classes the
// machine has.
void OfferScriptNeighbours(Components& components, ScriptPlayer& player);

}  // namespace zendara

// Decides what the hands do: any key, click or text on any form, and on the worker screen what a clerk does there, with
// slips, so that its deep paths are reached.
#pragma once

#include "random/hands.hpp"

namespace zendara {

inline constexpr int kRandomWorkers = 26;  // of the company

// One event, or a few that belong together.
void ActAtRandom(Hands& hands, Form& form);

}  // namespace zendara

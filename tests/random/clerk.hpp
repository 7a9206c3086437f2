// Decides what the hands do: any key, click or text on any form, and on the worker screen and those of incidents what a
// clerk does there, with slips, so that their deep paths are reached.
#pragma once

#include "random/hands.hpp"

namespace zendara {

inline constexpr int kRandomWorkers = 26;  // of the company
inline constexpr int kLastDay = 1400;      // of those that sessions type, from 01/01/00 on: years 00 to 03
constexpr double DayOf(int day) { return 36526 + day; }

// One event, or a few that belong together.
void ActAtRandom(Hands& hands, Form& form);

}  // namespace zendara

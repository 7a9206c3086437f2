// The surroundings of the component, with a random user inside.
#pragma once

#include <string>

#include "random/hands.hpp"

namespace zendara {

// Opens the worker screen and those of incidents, again and again, until the session's events are used up or something
// has failed. `place` of the company, as OpenStore takes it.
void PlayOnScreens(Hands& hands, const std::string& place);

}  // namespace zendara

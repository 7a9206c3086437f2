// The surroundings of the component, with a random user inside.
#pragma once

#include <string>

#include "random/hands.hpp"

namespace zendara {

// Opens the worker screen and those of incidents, again and again, until the session's events are used up or something
// has failed. `folder` is the application's.
void PlayOnScreens(Hands& hands, const std::string& folder);

}  // namespace zendara

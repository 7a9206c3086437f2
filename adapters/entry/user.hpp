// The host in the place of the user: as a table of functions, or as an object that answers to calls by name.
#pragma once

#include <memory>

#include "zendara/automation.hpp"
#include "zendara/zendara.h"

namespace zendara {

std::unique_ptr<ScreenUser> UserOf(const zendara_user& table);
// Counts the object.
std::unique_ptr<ScreenUser> UserOf(zendara_unknown& object);

}  // namespace zendara

// What zendara_install has given to the component.
#pragma once

#include <memory>
#include <string>

#include "adapters/entry/records.hpp"
#include "adapters/entry/screens.hpp"
#include "zendara/zendara.h"

namespace zendara {

// InstallPlatform with the machine's files, and whatever else `platform` has. It becomes the component's thread.
zendara_result Install(const zendara_platform& platform);
zendara_result Uninstall();

// Throws what the user of the installed screens has thrown, if they have one.
void RethrowOfUser();

}  // namespace zendara

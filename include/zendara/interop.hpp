// From the public classes to the objects of zendara/zendara.h, for libraries in C++ that serve hosts in C.
#pragma once

#include <memory>
#include <string_view>

#include "zendara/export.h"
#include "zendara/platform.hpp"
#include "zendara/zendara.h"

namespace zendara {

// A front end for zendara_platform, which the object owns; the caller has its one count.
ZENDARA_EXPORT zendara_screens* ToC(std::unique_ptr<FrontEnd> front);

// For the catch clause of a function in plain C: keeps the exception that is being handled for zendara_last_error, and
// gives the result that stands for it.
ZENDARA_EXPORT zendara_result ResultOfException() noexcept;
// The same for a call that is refused: keeps `why`, a line for the log, and gives `result` back.
ZENDARA_EXPORT zendara_result ResultOfRefusal(zendara_result result, std::string_view why) noexcept;

}  // namespace zendara

// The clock and the log, one for the process. A library that stands on the component uses the component's.
#pragma once

#include <functional>
#include <string_view>

#include "zendara/export.h"
#include "zendara/value.hpp"

namespace zendara {

// The date and time of the user: of the clock that was set, otherwise the machine's.
ZENDARA_EXPORT Date Now();
// A whole line, without its line feed: to the log that was set, otherwise to standard error behind "zendara: ". What
// the log throws is dropped.
ZENDARA_EXPORT void LogLine(std::string_view line) noexcept;

// Empty functions set nothing: the machine's serves.
void SetClock(std::function<Date()> clock);
void SetLog(std::function<void(std::string_view line)> log);

}  // namespace zendara

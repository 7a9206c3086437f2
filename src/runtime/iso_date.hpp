// Dates as stores and exchange files write them: yyyy-mm-dd, and Thh:mm:ss behind it when there is a time of day.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "zendara/value.hpp"

namespace zendara {

// Times are rounded to the second. Error 6 for a date out of range.
std::string IsoDate(Date date);
// Nothing when the text is not exactly such a date.
std::optional<Date> ReadIsoDate(std::string_view text);

}  // namespace zendara

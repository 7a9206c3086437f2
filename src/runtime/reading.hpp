// Readings of texts that report a failure instead of throwing it.
#pragma once

#include <string_view>

namespace zendara {

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// As CDbl of a text: 0 and `number` set, or the number of the error (6 or 13).
int ReadNumber(std::string_view text, double& number);

}  // namespace zendara

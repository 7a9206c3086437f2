// Texts inside statements of the dialect.
#pragma once

#include <string>
#include <string_view>

namespace zendara {

// What stands between the single quotes of a statement for this text: its own single quotes doubled.
inline std::string SqlText(std::string_view text) {
  std::string quoted;
  for (const char c : text) quoted.append(c == '\'' ? 2 : 1, c);
  return quoted;
}

}  // namespace zendara

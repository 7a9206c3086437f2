// Names of tables, columns and indexes: compared without regard to case.
#pragma once

#include <algorithm>
#include <string_view>

namespace zendara {

inline char FoldCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

inline bool SameName(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, FoldCase, FoldCase);
}

}  // namespace zendara

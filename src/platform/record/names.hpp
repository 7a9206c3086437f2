// Names of tables, columns and indexes: compared without regard to case.
#pragma once

#include <algorithm>
#include <string_view>

#include "runtime/characters.hpp"

namespace zendara {

inline bool SameName(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, FoldCase, FoldCase);
}

}  // namespace zendara

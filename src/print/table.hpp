// Rows and columns on pages.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "print/page_flow.hpp"

namespace zendara::print {

struct Table {
  std::vector<Side> columns;                   // figures stand on the right: those are never wrapped
  std::size_t heads = 0;                       // rows at the top that are the head, on every page anew
  std::size_t names = 0;                       // columns on the left that say what the row is
  std::vector<std::vector<std::string>> rows;  // of as many cells as there are columns
  bool result = false;                         // the last row is what the others lead to
};

// Each column as wide as its widest text. If that is too much the widest ones are wrapped; what still has no room
// beside the names stands below, with the names again.
void AddTable(PageFlow& flow, const Table& table);

}  // namespace zendara::print

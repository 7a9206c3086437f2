// What is wrong with a file, as far as the server and the keys can tell.
#pragma once

#include <string>
#include <vector>

#include "adapters/postgres/open_file.hpp"

namespace zendara::postgres {

// One line a fault.
std::vector<std::string> FaultsOf(OpenFile& file);

}  // namespace zendara::postgres

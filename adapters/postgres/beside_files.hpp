// The files beside the databases, such as the parameter files: rows of the catalogue.
#pragma once

#include <memory>
#include <string_view>

#include "zendara/ports.hpp"

namespace zendara::postgres {

// On a connection of its own, which it makes at the first call.
std::unique_ptr<Files> MakeFilesBeside(std::string_view conninfo);

}  // namespace zendara::postgres

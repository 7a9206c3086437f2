// Ready-made surroundings for a host on an ordinary file system.
#pragma once

#include <memory>
#include <string_view>

#include "zendara/ports.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

// Files of the machine: separators "\" and "/", names whatever their case.
std::unique_ptr<Files> MakeHostFiles();

// The engine of a place, by its scheme: "sqlite:" or nothing is the default engine, one SQLite file for each database
// file. Error 3170 for a place of any other kind.
std::unique_ptr<Engine> MakeEngine(std::string_view place = {});

}  // namespace zendara

// Ready-made surroundings for a host on an ordinary file system.
#pragma once

#include <memory>

#include "zendara/ports.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

// Files of the machine: separators "\" and "/", names whatever their case.
std::unique_ptr<Files> MakeHostFiles();

// The default engine: one SQLite file for each database file.
std::unique_ptr<Engine> MakeSqliteEngine();

}  // namespace zendara

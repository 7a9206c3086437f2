// The default engine: one SQLite file for each database file.
#pragma once

#include <memory>

#include "zendara/engines.hpp"

namespace zendara::sqlite {

std::unique_ptr<Engine> MakeFileEngine(Access access);

}  // namespace zendara::sqlite

// Ready-made surroundings for a host on an ordinary file system.
#pragma once

#include <memory>
#include <string_view>

#include "zendara/export.h"
#include "zendara/neighbours.hpp"
#include "zendara/ports.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

// Files of the machine: separators "\" and "/", names whatever their case.
ZENDARA_EXPORT std::unique_ptr<Files> MakeHostFiles();

// What an engine opens its databases for. kRead: writing, creating and renaming are error 3027, and a folder on a
// network file system can be read, as long as no log with rows lies beside the file there (3051). Its file is read
// without locks; when it changes, what is open on it raises 3420.
enum class Access { kWrite, kRead };

// The engine of a place, by its scheme: "sqlite:" or nothing is the default engine, one SQLite file for each database
// file. Error 3170 for a place of any other kind.
ZENDARA_EXPORT std::unique_ptr<Engine> MakeEngine(std::string_view place = {}, Access access = Access::kWrite);

// The classes that libraries of this machine have registered in its class files (zendara/loader.h says where those are
// looked for). A library is loaded at the first use of its class and stays.
ZENDARA_EXPORT std::shared_ptr<const ClassSource> MakeClassFiles();

}  // namespace zendara

// Ready-made surroundings for a host on an ordinary file system.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
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
// file; "postgresql://" or "postgres://" is MakePostgresEngine. Error 3170 for a place of any other kind.
ZENDARA_EXPORT std::unique_ptr<Engine> MakeEngine(std::string_view place = {}, Access access = Access::kWrite);

// The databases of a PostgreSQL server, in the first schema of the connection's search path. `conninfo` is what libpq
// takes: "postgresql://user@host,other/database?target_session_attrs=read-write", or "host=... dbname=...". A password
// stands there at the host's own risk; libpq also finds one in its password file and its service file. It is in no
// error and in no log line. Connects when something is opened. Errors: 3170 a text that is no conninfo, 3043 no server
// answers, 3051 it refuses the user or the database. With kRead the session is read-only on the server too, which a
// standby takes.
ZENDARA_EXPORT std::unique_ptr<Engine> MakePostgresEngine(std::string_view conninfo, Access access = Access::kWrite);

// Makes the sort keys of a server's rows anew. They are made by ICU, and keys of another version of ICU are of another
// order: until this is done a program with that version gets 3051 when it opens a file. Nobody else may be connected
// (3045). When it is interrupted no program opens a file until it is done again. `progress` may be empty; it gets the
// number of rows that are done.
ZENDARA_EXPORT void MakeSortKeys(std::string_view conninfo, const std::function<void(std::int64_t rows)>& progress);

// Where the data of an installation stand, as Platform takes it.
struct Store {
  std::unique_ptr<Engine> engine;
  std::unique_ptr<Files> files;  // those beside the databases
  std::string folder;            // Platform::application_folder; of a server its name, without user and password
};

// `place`: an application's folder, or the connection of a server as MakeEngine takes it. Nothing is opened yet.
ZENDARA_EXPORT Store OpenStore(std::string_view place, Access access = Access::kWrite);

// The classes that libraries of this machine have registered in its class files (zendara/loader.h says where those are
// looked for). A library is loaded at the first use of its class and stays.
ZENDARA_EXPORT std::shared_ptr<const ClassSource> MakeClassFiles();

}  // namespace zendara

// The log of a file that stood in another one's place.
#pragma once

#include <filesystem>

struct sqlite3;

namespace zendara::sqlite {

// A file that is put into the place of an open one finds that one's log beside it, and the store would read the two
// together. Takes such a log away: one that programs have open although none of them has this file open. Not the log
// that a program left when it was killed: that one is the file's own.
// REQUIRES: nothing was read through `database` yet.
void DropStaleLog(sqlite3* database, const std::filesystem::path& path);

}  // namespace zendara::sqlite

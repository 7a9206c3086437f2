// A position in the rows of one table of one file, on the server.
#pragma once

#include <memory>

#include "adapters/postgres/open_file.hpp"
#include "platform/record/cursor.hpp"

namespace zendara::postgres {

std::unique_ptr<TableCursor> MakeTableCursor(std::shared_ptr<OpenFile> file, const Relation& relation);

}  // namespace zendara::postgres

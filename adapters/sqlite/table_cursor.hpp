// Positions in a table: index order by key comparison, one open scan while moves go on in one direction.
#pragma once

#include <memory>

#include "adapters/sqlite/connection.hpp"
#include "platform/record/cursor.hpp"

namespace zendara::sqlite {

std::unique_ptr<TableCursor> MakeTableCursor(std::shared_ptr<Connection> connection, TableInfo& table);

}  // namespace zendara::sqlite

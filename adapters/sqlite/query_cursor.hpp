// A running SELECT.
#pragma once

#include <memory>

#include "adapters/sqlite/connection.hpp"
#include "platform/record/cursor.hpp"
#include "platform/sql/statement.hpp"

namespace zendara::sqlite {

std::unique_ptr<QueryCursor> MakeQueryCursor(std::shared_ptr<Connection> connection, const sql::Select& select);
// Runs the statement.
void RunDelete(Connection& connection, const sql::Delete& statement);

}  // namespace zendara::sqlite

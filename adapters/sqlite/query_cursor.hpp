// A running SELECT.
#pragma once

#include <memory>
#include <string_view>

#include "adapters/sqlite/connection.hpp"
#include "platform/record/cursor.hpp"

namespace zendara::sqlite {

// `sql` is what zendara/record_engine.hpp says of OpenRecordset and Execute, with its errors; `window` is what the
// two-digit years of its dates mean.
std::unique_ptr<QueryCursor> MakeQueryCursor(std::shared_ptr<Connection> connection, std::string_view sql,
                                             YearWindow window);
void RunDelete(Connection& connection, std::string_view sql, YearWindow window);

}  // namespace zendara::sqlite

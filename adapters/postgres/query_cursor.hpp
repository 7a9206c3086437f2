// Queries of the dialect on the server.
#pragma once

#include <memory>
#include <string_view>

#include "adapters/postgres/open_file.hpp"
#include "platform/record/cursor.hpp"

namespace zendara::postgres {

// The rows are those of one moment. No transaction and no cursor stays open on the server: what is not read yet when
// the connection is needed for something else is put aside.
std::unique_ptr<QueryCursor> MakeQueryCursor(std::shared_ptr<OpenFile> file, std::string_view sql, YearWindow window);
// Runs one DELETE * FROM.
void RunDelete(OpenFile& file, std::string_view sql, YearWindow window);

}  // namespace zendara::postgres

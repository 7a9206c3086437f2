#include "adapters/postgres/query_cursor.hpp"

#include "zendara/runtime_error.hpp"

namespace zendara::postgres {

std::unique_ptr<QueryCursor> MakeQueryCursor(std::shared_ptr<OpenFile>, std::string_view, YearWindow) {
  throw RuntimeError(kNoSuchEngine);
}
void RunDelete(OpenFile&, std::string_view, YearWindow) { throw RuntimeError(kNoSuchEngine); }

}  // namespace zendara::postgres

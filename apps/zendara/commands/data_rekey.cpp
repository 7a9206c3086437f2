#include "apps/zendara/commands/commands.hpp"
#include "zendara/engines.hpp"

namespace zendara {

int DataRekey(const std::string& server, Console& console) {
  console.Doing("making sort keys");
  std::int64_t all = 0;
  MakeSortKeys(server, [&](std::int64_t rows) { console.Progress("rows done", all = rows); });
  console.Out(std::to_string(all) + (all == 1 ? " row has" : " rows have") + " new sort keys\n");
  return 0;
}

}  // namespace zendara

#include "apps/demo/demo_company.hpp"
#include "apps/zendara/commands/commands.hpp"
#include "zendara/engines.hpp"

namespace zendara {

int Demo(const DemoCommandOptions& options, Console& console) {
  console.Doing("writing the demonstration company in " + options.dir);
  const std::unique_ptr<Engine> engine = MakeEngine();
  WriteDemoCompany(*engine, {.folder = options.dir, .workers = options.workers, .seed = options.seed},
                   [&](int done, int of) { console.Progress("workers written", done, of); });
  console.Out("company 00001, years 00 to 02, " + std::to_string(options.workers) + " workers\n");
  return 0;
}

}  // namespace zendara

#include "apps/demo/demo_company.hpp"
#include "apps/zendara/commands/command_error.hpp"
#include "apps/zendara/commands/commands.hpp"
#include "runtime/failure.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

int Demo(const DemoCommandOptions& options, Console& console) {
  const Store store = OpenStore(options.place);
  console.Doing("writing the demonstration company in " + store.folder);
  try {
    WriteDemoCompany(*store.engine, {.folder = store.folder, .workers = options.workers, .seed = options.seed},
                     [&](int done, int of) { console.Progress("workers written", done, of); });
  } catch (const RuntimeError& error) {
    if (error.number() != kObjectExists) throw CommandError("cannot write in " + store.folder + ": " + OneLine(error));
    throw CommandError("there is a company already: " + error.detail() + " exists, nothing was written");
  }
  console.Out("company 00001, years 00 to 02, " + std::to_string(options.workers) + " workers\n");
  return 0;
}

}  // namespace zendara

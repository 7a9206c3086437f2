#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>

#include "adapters/headless/headless.hpp"
#include "apps/zendara/commands/command_error.hpp"
#include "apps/zendara/commands/commands.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

std::string ReadText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  if (in && in.peek() != std::char_traits<char>::eof()) text << in.rdbuf();
  // A folder opens and cannot be read.
  if (!in.is_open() || in.bad()) throw CommandError(path + ": " + std::strerror(errno));
  return text.str();
}

}  // namespace

int RunScript(const RunOptions& options, Console& console) {
  const auto fail = [&](int status, const std::string& reason) {
    console.Flush();
    console.Error(options.script + ":" + reason);
    return status;
  };
  Script script;
  try {
    script = ReadScript(ReadText(options.script));
  } catch (const ScriptError& error) {
    return fail(error.status(), error.what());
  }
  console.Doing("playing " + options.script);
  const Store store = OpenStore(options.place);
  // Line by line, so that whoever reads along, or looks after a run that was cut short, has what was done.
  const auto print = [&](std::string_view line) {
    console.Out(line);
    console.Flush();
  };
  const ScriptResult result = PlayHeadless(std::move(script), *store.engine, *store.files, store.folder, print);
  return result.status == 0 ? 0 : fail(result.status, result.message);
}

}  // namespace zendara

#include "engine/contract.hpp"

namespace zendara {

std::vector<EngineUnderTest> EnginesUnderTest() {
  return {{.name = "Sqlite", .site = [] { return std::make_unique<FolderSite>(); }, .files = true},
          {.name = "Postgres", .site = [] { return std::make_unique<ServerSite>(); }, .files = false}};
}

std::vector<EngineUnderTest> EnginesUnderTest(bool files) {
  auto engines = EnginesUnderTest();
  std::erase_if(engines, [&](const EngineUnderTest& engine) { return engine.files != files; });
  return engines;
}

}  // namespace zendara

#include "engine/contract.hpp"
#include "zendara/engines.hpp"

namespace zendara {

std::vector<EngineUnderTest> EnginesUnderTest() {
  return {{"Sqlite", [] { return MakeEngine("sqlite:"); }}};
}

}  // namespace zendara

// Databases on a server: a path has no folders there.
#include "engine/contract.hpp"

namespace zendara {
namespace {

class ServerContract : public EngineContract {};
ZENDARA_FOR_ENGINES(ServerContract, EnginesUnderTest(false));

TEST_P(ServerContract, OfAPathTheNameBehindTheLastSeparatorCounts) {
  for (const char* path : {"Prueba.MDB", "/srv/nominas/DATOS/prueba.mdb", "C:\\NOMINAS\\DATOS\\PRUEBA.MDB"}) {
    EXPECT_THAT(engine->Workspaces(0)->OpenDatabase(path)->Tables(), testing::ElementsAre(People())) << path;
  }
  EXPECT_EQ(ErrorOf([&] { engine->Workspaces(0)->OpenDatabase("DATOS/"); }), 3055);
}

}  // namespace
}  // namespace zendara

// Databases on a server: a path has no folders there.
#include "engine/contract.hpp"
#include "zendara/engines.hpp"

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

TEST_P(ServerContract, WhoWaitsForARowIsToldForWhom) {
  Add(*Open("Gente"), {"00001", "x"});
  const Program other = OtherProgram();
  auto mine = Open("Gente");
  mine->Edit();
  mine->Fields(1).Set("mia");
  other.db->BeginTrans();
  Change(*other.people, 1, "suya");
  EXPECT_EQ(ErrorOf([&] { mine->Update(); }), 3260);
  other.db->Rollback();
  mine->Update();
  EXPECT_EQ(mine->Fields(1).Get(), Value("mia"));
}

// As after an upgrade of the library that makes the keys.
TEST_P(ServerContract, KeysOfAnotherVersionAreRefusedUntilTheyAreMadeAnew) {
  for (const char* key : {"00001", "00002"}) Add(*Open("Gente"), {key});
  EXPECT_EQ(ErrorOf([&] { MakeSortKeys(site->Place(), {}); }), 3045) << "somebody is connected";
  db.reset();
  engine.reset();
  RunSql(site->Place(), "UPDATE zendara_store SET keys = 'other'");
  RunSql(site->Place(), "UPDATE gente SET campo0_key = campo0_key || '\\x00'::bytea");
  const auto refused = [&] { AnotherEngine()->Workspaces(0)->OpenDatabase(Path("Prueba.MDB")); };
  EXPECT_EQ(ErrorOf(refused), 3051);
  MakeSortKeys(site->Place(), {});
  const Program program = OtherProgram();
  EXPECT_THAT(program.db->CheckIntegrity(), testing::IsEmpty());
  program.people->SetIndex("Icampo0");
  program.people->Seek({"00002"});
  EXPECT_FALSE(program.people->NoMatch());
  RunSql(site->Place(), "UPDATE gente SET campo0_key = campo0_key || '\\x00'::bytea");
  EXPECT_EQ(program.db->CheckIntegrity().size(), 1U);
}

}  // namespace
}  // namespace zendara

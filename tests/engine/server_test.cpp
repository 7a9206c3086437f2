// Databases on a server: paths without folders, connections that are lost at any point.
#include <set>

#include "engine/contract.hpp"
#include "support/disk_faults.hpp"

namespace zendara {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;

class ServerContract : public EngineContract {
 protected:
  // What is stored, as another program sees it.
  std::vector<std::string> Rows() {
    const Program other = OtherProgram();
    std::vector<std::string> rows;
    auto& rs = *other.people;
    for (rs.SetIndex("Icampo0"); !rs.Eof(); rs.MoveNext()) {
      rows.push_back(Key(rs).Text() + " " + rs.Fields(1).Get().Text());
    }
    return rows;
  }

  // Loses the connection at that call of the machine's, from 1; the error, or -1 when it came to an end before.
  static int LoseAt(int call, const std::function<void()>& work) {
    disk.fault_in = call - 1;
    const int error = ErrorOf(work);
    const bool lost = disk.faults > 0;
    disk = {};
    EXPECT_TRUE(lost || error == 0) << error;
    return lost ? error : -1;
  }
};
ZENDARA_FOR_ENGINES(ServerContract, EnginesUnderTest(false));

TEST_P(ServerContract, OfAPathTheNameBehindTheLastSeparatorCounts) {
  for (const char* path : {"Prueba.MDB", "/srv/nominas/DATOS/prueba.mdb", "C:\\NOMINAS\\DATOS\\PRUEBA.MDB"}) {
    EXPECT_THAT(engine->Workspaces(0)->OpenDatabase(path)->Tables(), ElementsAre(People())) << path;
  }
  EXPECT_EQ(ErrorOf([&] { engine->Workspaces(0)->OpenDatabase("DATOS/"); }), 3055);
}

TEST_P(ServerContract, AWriteWhoseConnectionIsLostIsDoneOnceWhenItIsRepeated) {
  struct {
    std::function<void(Recordset&)> begin;
    void (Recordset::*write)();
    std::vector<std::string> rows;
  } const cases[] = {
      {[](Recordset& rs) {
         rs.AddNew();
         rs.Fields(0).Set("00009");
         rs.Fields(1).Set("nueva");
       },
       &Recordset::Update,
       {"00001 vieja", "00002 vieja", "00009 nueva"}},
      {[](Recordset& rs) {
         rs.Edit();
         rs.Fields(1).Set("nueva");
       },
       &Recordset::Update,
       {"00001 nueva", "00002 vieja"}},
      {[](Recordset&) {}, &Recordset::Delete, {"00002 vieja"}},
  };
  std::set<int> repeated;
  for (const auto& c : cases) {
    for (int call = 1, error = 0; error >= 0; ++call) {
      db->Execute("DELETE * FROM Gente");
      const auto rs = Open("Gente", "Icampo0");
      for (const char* key : {"00001", "00002"}) Add(*rs, {key, "vieja"});
      rs->MoveFirst();
      c.begin(*rs);
      const auto write = [&] { (rs.get()->*c.write)(); };
      error = LoseAt(call, write);
      EXPECT_THAT(error, AnyOf(-1, 0, 3043, 3146)) << "call " << call;
      if (error > 0) {
        EXPECT_EQ(ErrorOf(write), 0) << "call " << call << " after " << error;
        repeated.insert(error);
      }
      EXPECT_EQ(Rows(), c.rows) << "call " << call;
    }
  }
  EXPECT_THAT(repeated, Contains(3043));
}

TEST_P(ServerContract, APositionOutlivesItsConnection) {
  for (const char* key : {"00001", "00002", "00003", "00004"}) Add(*Open("Gente"), {key, "x"});
  int lost = 0;
  for (const char* index : {"Icampo0", "ICampo1_2"}) {
    for (int call = 1, error = 0; error >= 0; ++call) {
      const auto rs = Open("Gente", index);
      std::string keys;
      const auto read_on = [&] {
        for (; !rs->Eof(); rs->MoveNext()) {
          const std::string key = Key(*rs).Text();
          if (!keys.ends_with(key)) keys += " " + key;
          engine->Idle(1);
        }
      };
      error = LoseAt(call, read_on);
      EXPECT_THAT(error, AnyOf(-1, 3043)) << "call " << call;
      read_on();
      if (error > 0) ++lost;
      EXPECT_EQ(keys, " 00001 00002 00003 00004");
    }
  }
  EXPECT_GT(lost, 10);
}

TEST_P(ServerContract, ATransactionWhoseConnectionIsLostIsWholeOrNothing) {
  const auto rs = Open("Gente", "Icampo0");
  const std::vector<std::string> all = {"00001 x", "00002 x"};
  const std::vector<std::string> none;
  int call = 1;
  for (int error = 0; error >= 0; ++call) {
    db->Execute("DELETE * FROM Gente");
    bool begun = false;
    bool committing = false;
    error = LoseAt(call, [&] {
      db->BeginTrans();
      begun = true;
      for (const char* key : {"00001", "00002"}) Add(*rs, {key, "x"});
      committing = true;
      db->CommitTrans();
    });
    if (error < 0) {
      EXPECT_EQ(Rows(), all);
      break;
    }
    EXPECT_THAT(error, AnyOf(3043, 3146)) << "call " << call;
    if (error == 3043) {
      EXPECT_EQ(Rows(), none) << "call " << call;
      const int ended = ErrorOf([&] { db->Rollback(); });
      EXPECT_EQ(ended, begun && !committing ? 0 : 3034) << "call " << call;
    } else {
      const bool done = ErrorOf([&] { db->CommitTrans(); }) == 0;
      EXPECT_EQ(Rows(), done ? all : none) << "call " << call;
    }
    EXPECT_EQ(ErrorOf([&] { Add(*rs, {"00003", "x"}); }), 0) << "call " << call;
  }
  EXPECT_GT(call, 4);
}

}  // namespace
}  // namespace zendara

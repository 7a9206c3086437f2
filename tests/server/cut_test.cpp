// A connection that is cut at each byte of what a write sends and of what comes back: the row is there once or not at
// all, and the same write once more ends with what was wanted.
#include "engine/contract.hpp"
#include "server/faults.hpp"
#include "support/cutting_proxy.hpp"

namespace zendara {
namespace {

// A table whose rows nothing but their number tells apart.
TableDef Notes() { return {"Apuntes", {{"Campo0", ColumnType::kText, 10}}, {}}; }

struct Tables {
  explicit Tables(const std::string& place) : engine(MakeEngine(place)) {}
  void Open() {
    db = engine->Workspaces(0)->OpenDatabase("Prueba.MDB");
    people = db->OpenRecordset("Gente", RecordsetType::kTable);
    people->SetIndex("Icampo0");
    notes = db->OpenRecordset("Apuntes", RecordsetType::kTable);
  }
  void Prepare(Recordset& rs, const std::vector<Value>& row) const {
    rs.AddNew();
    for (std::size_t i = 0; i < row.size(); ++i) rs.Fields(static_cast<int>(i)).Set(row[i]);
  }

  std::unique_ptr<Engine> engine;
  std::shared_ptr<Database> db;
  std::shared_ptr<Recordset> people;
  std::shared_ptr<Recordset> notes;
};

struct Act {
  std::string name;
  // Up to what is cut; `key` is of this time alone.
  std::function<void(Tables&, const std::string& key)> begin;
  std::function<void(Tables&)> write;
  bool is_transaction;
  // What another program finds of the key, when it is not done and when it is done: rows of each table.
  std::string before;
  std::string after;
};

void PrintTo(const Act& act, std::ostream* out) { *out << act.name; }

const Act kActs[] = {
    {"AddNew",
     [](Tables& t, const std::string& key) {
       t.Prepare(*t.people, {key, "nueva"});
     },
     [](Tables& t) { t.people->Update(); }, false, "", "nueva;"},
    {"AddNewWithoutKey", [](Tables& t, const std::string& key) { t.Prepare(*t.notes, {key}); },
     [](Tables& t) { t.notes->Update(); }, false, "", "apunte;"},
    {"Edit",
     [](Tables& t, const std::string& key) {
       Add(*t.people, {key, "antes"});
       t.people->Seek({key});
       t.people->Edit();
       t.people->Fields(1).Set("luego");
     },
     [](Tables& t) { t.people->Update(); }, false, "antes;", "luego;"},
    {"Delete",
     [](Tables& t, const std::string& key) {
       Add(*t.people, {key, "antes"});
       t.people->Seek({key});
     },
     [](Tables& t) { t.people->Delete(); }, false, "antes;", ""},
    {"CommitTrans",
     [](Tables& t, const std::string& key) {
       t.db->BeginTrans();
       Add(*t.people, {key, "nueva"});
       Add(*t.notes, {key});
     },
     [](Tables& t) { t.db->CommitTrans(); }, true, "", "nueva;apunte;"},
};

class Cut : public testing::TestWithParam<Act> {
 protected:
  void SetUp() override {
    if (!TestServer()) GTEST_SKIP() << "ZENDARA_TEST_SERVER says of no server";
  }

  static std::string Stored(const Tables& other, const std::string& key) {
    std::string rows;
    const auto people = other.db->OpenRecordset("SELECT Campo1 FROM Gente WHERE Campo0 = '" + key + "'");
    for (; !people->Eof(); people->MoveNext()) rows += Key(*people).Text() + ";";
    const auto notes = other.db->OpenRecordset("SELECT Campo0 FROM Apuntes WHERE Campo0 = '" + key + "'");
    for (; !notes->Eof(); notes->MoveNext()) rows += "apunte;";
    return rows;
  }
};

TEST_P(Cut, AtEachByte) {
  const Act& act = GetParam();
  const ServerSite site;
  const std::string place = site.Place();
  const std::size_t host = place.find("host=") + 5;
  CuttingProxy proxy(place.substr(host) + "/.s.PGSQL.5432");
  Tables other(place);
  other.engine->Workspaces(0)->CreateDatabase("Prueba.MDB", {People(), Notes()});
  other.Open();
  Tables desk(place.substr(0, host) + proxy.Folder());
  desk.Open();

  int times = 0;
  for (const auto direction : {CuttingProxy::kToServer, CuttingProxy::kToClient}) {
    bool cut = true;
    for (int bytes = 0; cut; ++bytes) {
      std::string key = std::to_string(10'000 + ++times);
      SCOPED_TRACE(std::to_string(bytes) + " bytes, direction " + std::to_string(direction));
      act.begin(desk, key);
      proxy.CutBehind(direction, bytes);
      int error = ErrorOf([&] { act.write(desk); });
      cut = proxy.StopCutting();
      const std::string stored = Stored(other, key);
      ASSERT_THAT(stored, testing::AnyOf(act.before, act.after));
      ASSERT_THAT(error, testing::AnyOf(0, kDiskOrNetwork, kOutcomeUnknown));
      ASSERT_TRUE(error != 0 || stored == act.after) << stored;
      ASSERT_TRUE(cut || error == 0) << error;
      if (error != 0) {
        if (act.is_transaction && error == kDiskOrNetwork) act.begin(desk, key);
        error = ErrorOf([&] { act.write(desk); });
      }
      ASSERT_EQ(error, 0);
      ASSERT_EQ(Stored(other, key), act.after);
    }
  }
  EXPECT_GT(times, 50);
}

INSTANTIATE_TEST_SUITE_P(Writes, Cut, testing::ValuesIn(kActs), [](const auto& act) { return act.param.name; });

}  // namespace
}  // namespace zendara

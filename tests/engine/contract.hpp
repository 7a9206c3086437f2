// The contract of zendara/record_engine.hpp, tested through the port alone: every engine passes the same tests, each
// test with databases of its own. Those of the engine on a server are skipped without one (support/site.hpp).
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/errors.hpp"
#include "support/print_value.hpp"
#include "support/site.hpp"
#include "zendara/engines.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

struct EngineUnderTest {
  std::string name;
  std::function<std::unique_ptr<Site>()> site;
  bool files;  // the databases are files of the machine, in its folders; otherwise the whole place is one folder
};

inline void PrintTo(const EngineUnderTest& engine, std::ostream* out) { *out << engine.name; }

// All engines of this build, and those whose databases are files, or are not.
std::vector<EngineUnderTest> EnginesUnderTest();
std::vector<EngineUnderTest> EnginesUnderTest(bool files);

// Key of five characters, a name, a date and a number, with indexes that admit repeats and Nulls.
inline TableDef People() {
  return {"Gente",
          {{"Campo0", ColumnType::kText, 5},
           {"Campo1", ColumnType::kText, 10},
           {"Campo2", ColumnType::kDate, 0},
           {"Campo3", ColumnType::kNumber, 0}},
          {{"Icampo0", {0}, true}, {"ICampo1", {1}, false}, {"ICampo1_2", {1, 2}, false}, {"ICampo3", {3}, false}}};
}

inline Value Key(Recordset& rs) { return rs.Fields(0).Get(); }

// Where it stands: the key of the record, or the error that it gives, and the ends that it is at: "3021 bof eof".
inline std::string Place(Recordset& rs) {
  const std::string ends = std::string(rs.Bof() ? " bof" : "") + (rs.Eof() ? " eof" : "");
  std::string key;
  const int error = ErrorOf([&] { key = Key(rs).Text(); });
  return (error ? std::to_string(error) : key) + ends;
}

inline void Add(Recordset& rs, const std::vector<Value>& row) {
  rs.AddNew();
  for (std::size_t i = 0; i < row.size(); ++i) rs.Fields(static_cast<int>(i)).Set(row[i]);
  rs.Update();
}

inline void Change(Recordset& rs, int column, const Value& value) {
  rs.Edit();
  rs.Fields(column).Set(value);
  rs.Update();
}

// First, last, next, previous; Edit, AddNew, Update, CancelUpdate, Delete: where each of these initials leads, or the
// error that it raises: "00003, 3021 eof, !3021".
inline std::string Walk(Recordset& rs, std::string_view steps) {
  const std::map<char, void (Recordset::*)()> calls = {
      {'F', &Recordset::MoveFirst},    {'L', &Recordset::MoveLast},     {'N', &Recordset::MoveNext},
      {'P', &Recordset::MovePrevious}, {'E', &Recordset::Edit},         {'A', &Recordset::AddNew},
      {'U', &Recordset::Update},       {'C', &Recordset::CancelUpdate}, {'D', &Recordset::Delete}};
  std::string places;
  for (const char step : steps) {
    const int error = ErrorOf([&] { (rs.*calls.at(step))(); });
    places += (places.empty() ? "" : ", ") + (error ? "!" + std::to_string(error) : Place(rs));
  }
  return places;
}

// A file with that table as another program has it open.
struct Program {
  Program(std::unique_ptr<Engine> own, const std::string& path)
      : engine(std::move(own)), db(engine->Workspaces(0)->OpenDatabase(path)) {}

  std::unique_ptr<Engine> engine;
  std::shared_ptr<Database> db;
  std::shared_ptr<Recordset> people = db->OpenRecordset("Gente", RecordsetType::kTable);
};

class EngineContract : public testing::TestWithParam<EngineUnderTest> {
 protected:
  void SetUp() override {
    if (!GetParam().files && !TestServer()) GTEST_SKIP() << "ZENDARA_TEST_SERVER says of no server";
    site = GetParam().site();
    Store store = OpenStore(site->Place());
    folder = store.folder;
    engine = std::move(store.engine);
    db = engine->Workspaces(0)->CreateDatabase(Path("Prueba.MDB"), {People()});
  }

  std::string Path(const std::string& file) const { return folder + "/" + file; }
  std::unique_ptr<Engine> AnotherEngine(Access access = Access::kWrite) const {
    return OpenStore(site->Place(), access).engine;
  }

  std::shared_ptr<Recordset> Open(const std::string& table, const std::string& index = {}) const {
    auto rs = db->OpenRecordset(table, RecordsetType::kTable);
    if (!index.empty()) rs->SetIndex(index);
    return rs;
  }

  Program OtherProgram() const { return {AnotherEngine(), Path("Prueba.MDB")}; }

  // First column of every row of a query.
  std::vector<Value> Query(const std::string& sql) const {
    std::vector<Value> values;
    auto rs = db->OpenRecordset(sql);
    for (; !rs->Eof(); rs->MoveNext()) values.push_back(Key(*rs));
    return values;
  }

  std::unique_ptr<Site> site;
  std::string folder;
  std::unique_ptr<Engine> engine;
  std::shared_ptr<Database> db;
};

}  // namespace zendara

#define ZENDARA_FOR_ENGINES(suite, engines)                            \
  INSTANTIATE_TEST_SUITE_P(Engines, suite, testing::ValuesIn(engines), \
                           [](const auto& engine) { return engine.param.name; })
#define ZENDARA_FOR_EVERY_ENGINE(suite) ZENDARA_FOR_ENGINES(suite, EnginesUnderTest())

// The contract of zendara/record_engine.hpp, tested through the port alone: every engine passes the same tests.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "support/errors.hpp"
#include "support/print_value.hpp"
#include "support/temp_folder.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

struct EngineUnderTest {
  std::string name;
  std::function<std::unique_ptr<Engine>()> make;
};

inline void PrintTo(const EngineUnderTest& engine, std::ostream* out) { *out << engine.name; }

// All engines of this build.
std::vector<EngineUnderTest> EnginesUnderTest();

class EngineContract : public testing::TestWithParam<EngineUnderTest> {
 protected:
  EngineContract() { db = engine->Workspaces(0)->CreateDatabase(Path("Prueba.MDB")); }

  std::string Path(const std::string& file) const { return folder / file; }

  std::shared_ptr<Recordset> Open(const std::string& table, const std::string& index = {}) const {
    auto rs = db->OpenRecordset(table, RecordsetType::kTable);
    if (!index.empty()) rs->SetIndex(index);
    return rs;
  }

  static void Add(Recordset& rs, const std::vector<Value>& row) {
    rs.AddNew();
    for (std::size_t i = 0; i < row.size(); ++i) rs.Fields(static_cast<int>(i)).Set(row[i]);
    rs.Update();
  }

  // First column of every row of a query.
  std::vector<Value> Query(const std::string& sql) const {
    std::vector<Value> values;
    auto rs = db->OpenRecordset(sql);
    for (; !rs->Eof(); rs->MoveNext()) values.push_back(rs->Fields(0).Get());
    return values;
  }

  TempFolder folder;
  std::unique_ptr<Engine> engine = GetParam().make();
  std::shared_ptr<Database> db;
};

// Key of five characters, a name, a date and a number, with indexes that admit repeats and Nulls.
inline TableDef People() {
  return {"Gente",
          {{"Campo0", ColumnType::kText, 5},
           {"Campo1", ColumnType::kText, 10},
           {"Campo2", ColumnType::kDate, 0},
           {"Campo3", ColumnType::kNumber, 0}},
          {{"Icampo0", {0}, true}, {"ICampo1", {1}, false}, {"ICampo1_2", {1, 2}, false}, {"ICampo3", {3}, false}}};
}

inline std::string EngineName(const testing::TestParamInfo<EngineUnderTest>& info) { return info.param.name; }

}  // namespace zendara

#define ZENDARA_FOR_EVERY_ENGINE(suite) \
  INSTANTIATE_TEST_SUITE_P(Engines, suite, testing::ValuesIn(EnginesUnderTest()), EngineName)

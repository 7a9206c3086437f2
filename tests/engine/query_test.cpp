// Query recordsets, the dialect's rules, Execute, query definitions.
#include "engine/contract.hpp"
#include "runtime/date.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;

class QueryContract : public EngineContract {
 protected:
  void SetUp() override {
    EngineContract::SetUp();
    if (IsSkipped()) return;
    db->CreateTable(
        {"Otra", {{"Campo0", ColumnType::kText, 5}, {"Campo1", ColumnType::kText, 5}}, {{"Icampo0_1", {0, 1}, true}}});
    auto rs = Open("Gente");
    Add(*rs, {"00003", "Ñu", *MakeDate(2001, 5, 3), 1});
    Add(*rs, {"00001", "nube", *MakeDate(2001, 3, 5), 2});
    Add(*rs, {"00002", "Oso", Null(), 3});
    Add(*rs, {"00005", "álamo", *MakeDate(1999, 3, 15), Null()});
    Add(*rs, {"00004", "Alba", *MakeDate(2001, 12, 25), 3});
    auto other = Open("Otra");
    for (const auto& [key, value] : {std::pair("00001", "b"), {"00001", "a"}, {"00004", "x"}})
      Add(*other, {key, value});
  }
};
ZENDARA_FOR_EVERY_ENGINE(QueryContract);

TEST_P(QueryContract, Rows) {
  struct {
    const char* where;
    std::vector<Value> keys;
  } const cases[] = {
      {"", {"00001", "00002", "00003", "00004", "00005"}},
      {" where CAMPO1 = 'ÑU'", {"00003"}},
      {" where campo1 = \"oso  \"", {"00002"}},
      {" where Campo1 = 'it''s' or campo0 = '00002'", {"00002"}},
      {" where [campo0] >= '00002' and not campo0 > '00003'", {"00002", "00003"}},
      // Dates are read month first, then year first, then day first.
      {" where campo2 = #05/03/01#", {"00003"}},
      {" where campo2 = #03/05/2001#", {"00001"}},
      {" where campo2 = #12/25/01#", {"00004"}},
      {" where campo2 = #15/03/99#", {"00005"}},
      {" where campo2 = #2001-12-25#", {"00004"}},
      // Null is found by Is Null alone.
      {" where campo2 = null or campo2 <> Null", {}},
      {" where Campo2 is null", {"00002"}},
      {" where not campo2 is not null", {"00002"}},
      {" where not (campo2 = #12/25/01#)", {"00001", "00003", "00005"}},
      // Between: both ends, in either order, nothing with Null.
      {" where campo0 between '00004' and '00002'", {"00002", "00003", "00004"}},
      {" where #4/4/01# between campo2 and #5/3/01#", {"00001", "00005"}},
      {" where #4/4/01# between campo2 and null", {}},
      {" where campo1 between 'OSO' and 'alba'", {"00001", "00002", "00003", "00004"}},
      {" where 'ñ' = 'Ñ ' and campo3 between - 1 and 1.5", {"00003"}},
      // Spanish order, Null first, primary key among equals.
      {" order by campo1", {"00005", "00004", "00001", "00003", "00002"}},
      {" ORDER BY Campo3", {"00005", "00003", "00001", "00002", "00004"}},
      {" order by campo3 DESC, campo0 desc", {"00004", "00002", "00001", "00003", "00005"}},
  };
  for (const auto& c : cases) EXPECT_EQ(Query(std::string("SELECT Campo0 FROM gente") + c.where), c.keys) << c.where;
  EXPECT_EQ(Query("GENTE").size(), 5U);
  EXPECT_EQ(Query("  select *\nfrom\tGente;").size(), 5U);
}

// What a reading gives, row after row, while `between` does something else with the same database.
std::vector<std::vector<Value>> Read(Recordset& rs, const std::function<void()>& between) {
  std::vector<std::vector<Value>> rows;
  for (; !rs.Eof(); rs.MoveNext()) {
    between();
    std::vector<Value>& row = rows.emplace_back();
    for (std::size_t i = 0; i < rs.Columns().size(); ++i) row.push_back(rs.Fields(static_cast<int>(i)).Get());
  }
  return rows;
}

TEST_P(QueryContract, GroupsJoinsAndAggregates) {
  EXPECT_THAT(Query("select campo3 from gente group by campo3"), ElementsAre(Null(), 1, 2, 3));
  EXPECT_THAT(Query("select campo3, campo0 from gente group by campo0, campo3 order by campo3"),
              ElementsAre(Null(), 1, 2, 3, 3));
  EXPECT_THAT(Query("select otra.campo1 from gente, otra where gente.campo0=otra.campo0 "), ElementsAre("a", "b", "x"));
  EXPECT_THAT(
      Query("select gente.campo1 from otra INNER JOIN gente ON otra.campo0 = gente.campo0 order by gente.campo1"),
      ElementsAre("Alba", "nube", "nube"));
  auto rs = db->OpenRecordset("SELECT Min(Campo1) as MinCod ,Max(Campo2), Count(*), sum(campo3) FROM Gente");
  EXPECT_EQ(rs->Fields("mincod").Get(), Value("álamo"));
  EXPECT_EQ(Read(*rs, [] {}), (std::vector<std::vector<Value>>{{"álamo", *MakeDate(2001, 12, 25), 5, 9}}));
  EXPECT_THAT(Query("SELECT Max(Campo2) FROM Gente WHERE Campo0 = '9'"), ElementsAre(Null()));
}

TEST_P(QueryContract, AJoinOfTextsThatAreWrittenInTwoWays) {
  for (const char* table : {"Una", "Dos"}) db->CreateTable({table, {{"Campo0", ColumnType::kText, 5}}, {}});
  for (const char* text : {"a", "ñ  ", "", "b"}) Add(*Open("Una"), {text});
  for (const char* text : {"A  ", "Ñ", "  ", "á"}) Add(*Open("Dos"), {text});
  EXPECT_THAT(Query("select una.campo0 from una, dos where una.campo0 = dos.campo0"), ElementsAre("a", "ñ  ", ""));
  EXPECT_THAT(Query("select campo0 from dos where campo0 between 'n' and 'á'"), ElementsAre("á"));
}

// However a join and an OR find their rows: with the OR in two negations, of which no key follows, they are the same.
TEST_P(QueryContract, AJoinWithAlternatives) {
  const std::string joins[] = {"gente inner join otra on gente.campo0 = otra.campo0 where ",
                               "otra inner join gente on otra.campo0 = gente.campo0 where ",
                               "gente, otra where gente.campo0 >= otra.campo0 and "};
  const std::pair<const char*, const char*> alternatives[] = {
      {"gente.campo0 = '00001'", "otra.campo0 = '00004'"},
      {"gente.campo0 = '00001' and gente.campo3 = 2", "otra.campo0 = '00001' and otra.campo1 = 'a'"},
      {"gente.campo0 = '00001' and otra.campo1 = 'A '", "otra.campo0 = '00004' and gente.campo3 > 3"},
      {"gente.campo0 = '00001'", "otra.campo1 = 'x'"},
      {"gente.campo0 = null", "otra.campo0 = '00004'"},
      {"gente.campo2 = null and gente.campo0 = '00001'", "otra.campo0 = '00001' and not otra.campo1 = null"},
      {"gente.campo0 = '00001' and #3/5/01# between gente.campo2 and null", "otra.campo0 = '00004' and 1 = 1"},
  };
  std::size_t rows = 0;
  for (const std::string& join : joins) {
    for (const auto& [one, other] : alternatives) {
      const std::string either = "((" + std::string(one) + ") or (" + other + "))";
      const auto found = Query("select otra.campo1 from " + join + either);
      EXPECT_EQ(found, Query("select otra.campo1 from " + join + "not (not " + either + ")")) << join << either;
      rows += found.size();
    }
  }
  EXPECT_GT(rows, 20U);
}

TEST_P(QueryContract, ResultsMoveBothWaysAndCountWhatWasReached) {
  auto rs = db->OpenRecordset("select campo0 from gente");
  EXPECT_EQ(rs->RecordCount(), 1);
  EXPECT_EQ(Walk(*rs, "NPPPNL"), "00002, 00001, 3021 bof, !3021, 00001, 00005");
  EXPECT_EQ(rs->RecordCount(), 5);
  auto clone = rs->Clone();
  EXPECT_EQ(Place(*clone), "3021");
  clone->GoTo(rs->Bookmark());
  EXPECT_EQ(Place(*clone), "00005");
  EXPECT_EQ(Walk(*rs, "NFEAD"), "3021 eof, 00001, !3027, !3027, !3027");
  EXPECT_EQ(ErrorOf([&] { rs->Seek({"x"}); }), 3019);

  auto empty = db->OpenRecordset("select campo0 from gente where campo0='x'");
  EXPECT_EQ(Place(*empty), "3021 bof eof");
  EXPECT_EQ(Walk(*empty, "FL"), "!3021, !3021");
  EXPECT_EQ(empty->RecordCount(), 0);
}

TEST_P(QueryContract, AnOpenResultKeepsItsRowsWhileTheTablesChange) {
  const auto wanted = Read(*db->OpenRecordset("gente"), [] {});
  for (const RecordsetType type : {RecordsetType::kQuery, RecordsetType::kForward}) {
    db->BeginTrans();
    auto rs = db->OpenRecordset("gente", type);
    auto table = Open("Gente", "Icampo0");
    for (; !table->Eof(); table->MoveNext()) Change(*table, 1, "x");
    EXPECT_EQ(Read(*rs, [&] { db->Execute("delete * from gente where campo0 > '00002'"); }), wanted);
    EXPECT_EQ(Read(*db->OpenRecordset("gente", type), [] {}).size(), 2U) << "what the transaction did is seen";
    db->Rollback();
  }
}

// Statements that differ in their literals alone share what was prepared for them.
TEST_P(QueryContract, TheSameTextNestsWithOtherLiterals) {
  const auto from = [](int key) {
    return "select campo0 from gente where campo0 >= '0000" + std::to_string(key) + "'";
  };
  for (const RecordsetType type : {RecordsetType::kQuery, RecordsetType::kForward}) {
    auto rs = db->OpenRecordset(from(2), type);
    const auto rows = Read(*rs, [&] {
      auto inner = db->OpenRecordset(from(4), type);
      inner->MoveNext();
      EXPECT_EQ(Query(from(5)), std::vector<Value>{"00005"});
      EXPECT_EQ(Place(*inner), "00005");
      // So many others that no engine keeps them all.
      std::string columns = "campo0";
      for (int i = 0; i < 100; ++i) EXPECT_EQ(Query("select " + (columns += ", campo1") + " from gente").size(), 5U);
    });
    EXPECT_EQ(rows, (std::vector<std::vector<Value>>{{"00002"}, {"00003"}, {"00004"}, {"00005"}}));
  }
}

TEST_P(QueryContract, AForwardOnlyResultGoesForward) {
  auto rs = db->OpenRecordset("select campo0 from gente", RecordsetType::kForward);
  EXPECT_EQ(Walk(*rs, "FNFLPEAD"), "00001, 00002, !5, !5, !5, !3027, !3027, !3027");
  EXPECT_EQ(rs->RecordCount(), 2);
  EXPECT_EQ(ErrorOf([&] { rs->Clone(); }), 5);
  EXPECT_EQ(ErrorOf([&] { rs->GoTo(rs->Bookmark()); }), 5);
  EXPECT_EQ(Walk(*rs, "NNNNNF"), "00003, 00004, 00005, 3021 eof, !3021, !3021");
  EXPECT_EQ(Place(*db->OpenRecordset("select campo0 from gente where campo0='x'", RecordsetType::kForward)),
            "3021 bof eof");
}

std::string Repeated(int times, const std::string& text) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

// A long or deep text is run, or refused as one; it never reaches what the store cannot do.
TEST_P(QueryContract, LongTexts) {
  const std::string x = "campo0='x' or ";
  const std::string deep = "campo0='x' and not (campo0='y' or (";
  struct {
    const char* name;
    std::string where;
    int error;
  } const cases[] = {
      {"27,734 conditions", Repeated(27732, x), 0},
      {"100,000 conditions", Repeated(99998, x), 3075},
      {"in brackets of their own", Repeated(150, "(") + Repeated(150, "campo0='x') or "), 0},
      {"pairs in brackets", Repeated(3000, "(campo0='x' and campo1='y') or "), 0},
      {"denials", "campo0='x' and " + Repeated(10001, "not ") + "campo0='y' or ", 0},
      {"20 brackets in each other", Repeated(10, deep) + "campo0='x'" + Repeated(10, "))") + " or ", 0},
      {"200 brackets in each other", Repeated(100, deep) + "campo0='x'" + Repeated(100, "))") + " or ", 3075},
      {"an open bracket too many", Repeated(100000, "("), 3075},
  };
  for (const auto& c : cases) {
    const std::string sql = "select campo0 from gente where " + c.where + "campo0='00001' or campo0='00004'";
    std::vector<Value> keys;
    EXPECT_EQ(ErrorOf([&] { keys = Query(sql); }), c.error) << c.name;
    EXPECT_EQ(keys, c.error ? std::vector<Value>() : std::vector<Value>({"00001", "00004"})) << c.name;
  }
  EXPECT_EQ(Query("select campo0" + Repeated(1599, ", campo1") + " from gente").size(), 5U);
  for (const std::string& sql : {"select campo0" + Repeated(2999, ", campo1") + " from gente",
                                 std::string("select * from gente, otra, gente")}) {
    EXPECT_EQ(ErrorOf([&] { Query(sql); }), 3075);
  }
}

TEST_P(QueryContract, RefusedTexts) {
  struct {
    const char* sql;
    int error;
  } const cases[] = {
      {"select * from nada", 3078},
      {"nada", 3078},
      {"select campo9 from gente", 3061},
      {"select campo0 from gente, otra", 3061},  // whose campo0 it is cannot be told
      {"select * from gente where campo0='O'Brien'", 3075},
      {"select * from gente where campo2=#31/31/31#", 3075},
      {"select * from gente where campo0", 3075},
      {"select * from gente where (campo0='x'", 3075},
      {"select * from gente where campo0='x' campo1='y'", 3075},
      {"select * from gente where campo2=#1/2/01", 3075},
      {"select campo0 from gente group by campo1", 3075},
      {"select campo0, max(campo1) from gente", 3075},
      {"select * from gente where campo0=7", 3421},
      {"select * from gente where campo2='05/03/01'", 3421},
      {"select sum(campo1) from gente", 3421},
      {"select * from gente; delete * from gente", 3075},
      {"insert into gente values ('x')", 3075},
      {"", 3075},
  };
  for (const auto& c : cases) EXPECT_EQ(ErrorOf([&] { db->OpenRecordset(c.sql); }), c.error) << c.sql;
  try {
    db->OpenRecordset("select campo8, campo9 from gente");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.text(), "Pocos parámetros. Se esperaba 2.");
  }
  for (const char* sql : {"select * from gente", "delete from gente", "delete * from gente, otra", "gente",
                          "delete * from gente; delete * from otra"}) {
    EXPECT_EQ(ErrorOf([&] { db->Execute(sql); }), 3075) << sql;
  }
  EXPECT_EQ(ErrorOf([&] { db->Execute("delete * from nada"); }), 3078);
  EXPECT_EQ(ErrorOf([&] { db->OpenRecordset("nada", RecordsetType::kTable); }), 3011);
  EXPECT_EQ(Open("Gente")->RecordCount(), 5);
}

TEST_P(QueryContract, QueryDefinitionsStayInTheFile) {
  EXPECT_EQ(ErrorOf([&] { db->QueryDefs("Consulta"); }), 3265);
  EXPECT_EQ(db->CreateQueryDef("Consulta")->Name(), "Consulta");
  EXPECT_EQ(ErrorOf([&] { db->CreateQueryDef("CONSULTA"); }), 3012);
  const auto other = OtherProgram().db;
  EXPECT_EQ(ErrorOf([&] { other->CreateQueryDef("Consulta"); }), 3012);
  EXPECT_EQ(other->QueryDefs("consulta")->Name(), "Consulta");
  EXPECT_EQ(db->Tables().size(), 2U) << "they are not among the tables";
}

}  // namespace
}  // namespace zendara

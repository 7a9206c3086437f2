// Current record, moves, Seek and writes of table-type recordsets.
#include <algorithm>
#include <optional>
#include <random>

#include "engine/contract.hpp"
#include "runtime/date.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;

class RecordsetContract : public EngineContract {
 protected:
  // Three people, opened by that index.
  std::shared_ptr<Recordset> AddPeople(const std::string& index = "Icampo0") {
    auto rs = Open("Gente");
    for (const char* key : {"00003", "00001", "00002"}) Add(*rs, {key, std::string("N") + key[4]});
    return Open("Gente", index);
  }
};
ZENDARA_FOR_EVERY_ENGINE(RecordsetContract);

TEST_P(RecordsetContract, AnEmptyTableIsAtBothEndsUntilItHasRows) {
  auto rs = Open("Gente", "Icampo0");
  EXPECT_EQ(Place(*rs), "3021 bof eof");
  EXPECT_EQ(rs->RecordCount(), 0);
  EXPECT_EQ(Walk(*rs, "FNED"), "!3021, !3021, !3021, !3021");
  Add(*rs, {"00001"});
  EXPECT_EQ(Place(*rs), "3021") << "the row before AddNew, which was none, is still the current one";
  EXPECT_EQ(Walk(*rs, "F"), "00001");
}

TEST_P(RecordsetContract, StandsOnTheFirstRowAfterOpeningAndAfterEachChoiceOfIndex) {
  auto rs = AddPeople("");
  EXPECT_EQ(Key(*rs), Value("00001"));
  EXPECT_EQ(rs->Index(), "");
  EXPECT_EQ(ErrorOf([&] { rs->Seek({"00002"}); }), 3019);
  rs->SetIndex("ICAMPO0");
  EXPECT_EQ(rs->Index(), "Icampo0");
  rs->MoveLast();
  rs->SetIndex("Icampo0");
  EXPECT_EQ(Key(*rs), Value("00001"));
  EXPECT_EQ(ErrorOf([&] { rs->SetIndex("Icampo9"); }), 3015);
}

TEST_P(RecordsetContract, MovesPassAnEndOnce) {
  EXPECT_EQ(Walk(*AddPeople(), "LNNPFPPN"), "00003, 3021 eof, !3021, 00003, 00001, 3021 bof, !3021, 00001");
}

TEST_P(RecordsetContract, SeekFindsTheFirstMatchOrLeavesNoCurrentRecord) {
  auto rs = AddPeople();
  EXPECT_FALSE(rs->NoMatch());
  rs->Seek({"00002"});
  EXPECT_FALSE(rs->NoMatch());
  EXPECT_EQ(Place(*rs), "00002");
  rs->Seek({"2"});
  EXPECT_TRUE(rs->NoMatch());
  EXPECT_EQ(Place(*rs), "3021");
  EXPECT_EQ(Walk(*rs, "N"), "!3021");
  rs->MoveFirst();
  EXPECT_TRUE(rs->NoMatch()) << "a move leaves it";

  EXPECT_EQ(ErrorOf([&] { rs->Seek({"00001", "x"}); }), 5);
  EXPECT_EQ(ErrorOf([&] { rs->Seek({}); }), 5);
  rs->Seek({std::string(300, '0')});
  EXPECT_TRUE(rs->NoMatch());
}

TEST_P(RecordsetContract, KeysIgnoreCaseAndEndBlanksAndConvertLikeAssignments) {
  auto rs = Open("Gente", "ICampo1_2");
  Add(*rs, {"00001", "Peña", *MakeDate(2001, 2, 28)});
  Add(*rs, {"00002", "Peña", *MakeDate(2001, 3, 5)});
  Add(*rs, {"00003", "Pena", Null()});
  Add(*rs, {"00004", Null(), Null()});
  const auto found = [&](const std::vector<Value>& keys) {
    rs->Seek(keys);
    return rs->NoMatch() ? Value() : Key(*rs);
  };
  EXPECT_EQ(found({"PEÑA"}), Value("00001"));
  EXPECT_EQ(found({"peña  ", "05/03/01"}), Value("00002"));
  EXPECT_EQ(found({"peña", *MakeDate(2001, 3, 5)}), Value("00002"));
  EXPECT_EQ(found({"pena"}), Value("00003")) << "ñ is a letter of its own";
  EXPECT_EQ(found({"péna"}), Value()) << "accents count";
  EXPECT_EQ(found({"Pena", Null()}), Value("00003"));
  EXPECT_EQ(found({Null()}), Value("00004"));
  EXPECT_EQ(ErrorOf([&] { rs->Seek({"x", "no date"}); }), 3421);
  rs->SetIndex("ICampo3");
  EXPECT_EQ(ErrorOf([&] { rs->Seek({"12abc"}); }), 3421);
}

TEST_P(RecordsetContract, WritesLeaveTheCurrentRecordAsDescribed) {
  auto rs = AddPeople();
  rs->Seek({"00002"});
  Add(*rs, {"00009"});
  EXPECT_EQ(Key(*rs), Value("00002"));

  rs->Edit();
  rs->Fields("campo1").Set("Nuevo");
  EXPECT_EQ(rs->Fields("CAMPO1").Get(), Value("Nuevo"));
  rs->MoveFirst();  // drops the change
  EXPECT_EQ(Walk(*rs, "U"), "!3020");
  EXPECT_EQ(ErrorOf([&] { rs->Fields(1).Set("x"); }), 3020);
  EXPECT_EQ(Query("SELECT Campo1 FROM Gente WHERE Campo0='00002'"), std::vector<Value>{"N2"});

  rs->AddNew();
  EXPECT_TRUE(Key(*rs).IsNull());
  EXPECT_EQ(Walk(*rs, "CC"), "00001, !3020");

  const auto mark = rs->Bookmark();
  const std::function<void()> dropping[] = {[&] { rs->SetIndex("Icampo0"); }, [&] { rs->GoTo(mark); },
                                            [&] { rs->Seek({"00001"}); },     [&] { rs->MoveLast(); },
                                            [&] { rs->MovePrevious(); },      [&] { rs->MoveNext(); }};
  for (const auto& drop : dropping) {
    rs->AddNew();
    drop();
    EXPECT_EQ(Walk(*rs, "U"), "!3020");
  }

  rs->Seek({"00002"});
  Change(*rs, 0, "00007");
  EXPECT_EQ(Place(*rs), "00007") << "the changed row stays current";
  EXPECT_EQ(Walk(*rs, "N"), "00009");
}

TEST_P(RecordsetContract, ADeletedRowKeepsItsPlaceForTheNextMove) {
  auto rs = AddPeople();
  rs->Seek({"00002"});
  EXPECT_EQ(Walk(*rs, "E"), "00002") << "during Edit it is allowed";
  EXPECT_EQ(Walk(*rs, "DEDNDPDN"), "3167, !3167, !3167, 00003, 3167, 00001, 3167, 3021 bof eof");
}

TEST_P(RecordsetContract, RefusedRowsAreNotWrittenAndCanBeMended) {
  auto rs = AddPeople();
  EXPECT_EQ(ErrorOf([&] { Add(*rs, {}); }), 3058);
  rs->Fields(0).Set("00002");
  EXPECT_EQ(Walk(*rs, "U"), "!3022");
  EXPECT_EQ(rs->RecordCount(), 3);
  rs->Fields(0).Set("a1");
  rs->Update();
  EXPECT_EQ(ErrorOf([&] { Add(*rs, {"A1 "}); }), 3022) << "neither case nor end blanks make another key";
  rs->Seek({"a1"});
  rs->Delete();
  Add(*rs, {"00004"});
  EXPECT_EQ(rs->RecordCount(), 4);
  rs->MoveFirst();
  EXPECT_EQ(ErrorOf([&] { Change(*rs, 0, Null()); }), 3058);
  rs->Fields(0).Set("00003");
  EXPECT_EQ(Walk(*rs, "U"), "!3022");
  EXPECT_THAT(Query("SELECT Campo0 FROM Gente"), ElementsAre("00001", "00002", "00003", "00004"));
}

TEST_P(RecordsetContract, AssignmentsConvertOrFailAtOnce) {
  struct {
    int column;
    Value given;
    Value kept;
    int error;
  } const cases[] = {
      {1, 12.5, "12,5", 0},
      {1, *MakeDate(2001, 3, 5), "05/03/01", 0},
      {1, "ññññññññññ", "ññññññññññ", 0},
      {1, "12345678901", {}, 3163},
      {2, "29/02/01", *MakeDate(2029, 2, 1), 0},
      {2, "", {}, 3421},
      {2, "13/13/13", {}, 3421},
      {2, 36923, *MakeDate(2001, 2, 1), 0},
      {2, 3e6, {}, 3421},
      {3, "1.234,5", 1234.5, 0},
      {3, "12abc", {}, 3421},
      {3, Date{36923.5}, 36923.5, 0},
      {2, Null(), Null(), 0},
  };
  auto rs = Open("Gente");
  for (const auto& c : cases) {
    rs->AddNew();
    rs->Fields(0).Set("00001");
    EXPECT_EQ(ErrorOf([&] { rs->Fields(c.column).Set(c.given); }), c.error) << testing::PrintToString(c.given);
    if (c.error) continue;
    rs->Update();
    rs->MoveFirst();
    EXPECT_EQ(rs->Fields(c.column).Get(), c.kept);
    rs->Delete();
  }
  EXPECT_EQ(ErrorOf([&] { rs->Fields(4); }), 3265);
  EXPECT_EQ(ErrorOf([&] { rs->Fields("campo9"); }), 3265);
}

TEST_P(RecordsetContract, ValuesComeBackAsTheyWereStored) {
  const std::vector<Value> rows[] = {
      {"00001", "a'b\"c\n", *MakeDate(100, 1, 1), 0.1},
      {"00002", "  x", *MakeDate(9999, 12, 31), -1e300},
      {"00003", std::string("a\0b", 3), Date{MakeDate(2001, 3, 5)->serial + 0.75}, 123456789012345678.0},
      {"00004", "", *MakeDate(1899, 12, 29), 5e-324}};
  auto rs = Open("Gente");
  for (const auto& row : rows) Add(*rs, row);
  rs->MoveFirst();
  for (const auto& row : rows) {
    for (int i = 0; i < 4; ++i) EXPECT_EQ(rs->Fields(i).Get(), row[static_cast<std::size_t>(i)]);
    rs->MoveNext();
  }
}

TEST_P(RecordsetContract, ClonesHaveTheirOwnPositionAndShareBookmarks) {
  auto rs = AddPeople();
  rs->Seek({"00002"});
  auto clone = rs->Clone();
  EXPECT_EQ(clone->Index(), "");
  EXPECT_EQ(Place(*clone), "3021");
  clone->GoTo(rs->Bookmark());
  EXPECT_EQ(Walk(*clone, "N"), "00003");
  EXPECT_EQ(Place(*rs), "00002");
  const Bookmark mark = clone->Bookmark();
  clone->Delete();
  EXPECT_EQ(ErrorOf([&] { rs->GoTo(mark); }), 3167);

  rs->Close();
  EXPECT_EQ(ErrorOf([&] { rs->Eof(); }), 3420);
  EXPECT_EQ(ErrorOf([&] { rs->Fields(0); }), 3420);
  const auto query = db->OpenRecordset("Gente");
  query->Close();
  EXPECT_EQ(Walk(*query, "FAU"), "!3420, !3420, !3420");
  db->Close();
  EXPECT_EQ(ErrorOf([&] { db->OpenRecordset("Gente"); }), 3420);
}

struct ModelRow {
  std::string key;
  std::optional<int> name;  // stored as one letter
  std::optional<int> day;   // of January 2001

  Value Name(char a) const { return name ? Value(std::string(1, static_cast<char>(a + *name))) : Value(); }
  Value Day() const { return day ? Value(*MakeDate(2001, 1, 1 + *day)) : Value(); }
};

// Random walks and writes compared with a plain sorted vector, by an index with repeats and Nulls. Two recordsets and
// idling in between show whether a position survives what the other one does.
TEST_P(RecordsetContract, RandomWalksAgreeWithASortedVector) {
  std::mt19937 random(7);
  const auto draw = [&](std::size_t n) { return static_cast<int>(random() % n); };
  const auto some = [&](std::size_t n) { return draw(4) == 0 ? std::nullopt : std::optional(draw(n)); };
  std::vector<ModelRow> model;  // in the order of writing, which rows that are equal in the index keep
  const std::shared_ptr<Recordset> recordsets[] = {Open("Gente", "ICampo1_2"), Open("Gente", "ICampo1_2")};
  std::string place[2];  // key of the current record, empty for none
  int next_key = 0;
  for (int i = 0; i < 6000; ++i) {
    const int who = draw(2);
    Recordset& rs = *recordsets[who];
    std::string& at = place[who];
    auto sorted = model;  // no name comes before any, as Null does
    std::ranges::stable_sort(sorted, {}, [](const ModelRow& row) { return std::pair(row.name, row.day); });
    const auto here = std::ranges::find(sorted, at, &ModelRow::key);
    const auto move = [&](bool next) {
      next ? rs.MoveNext() : rs.MovePrevious();
      const bool ends = next ? here + 1 == sorted.end() : here == sorted.begin();
      at = ends ? "" : (next ? here + 1 : here - 1)->key;
    };
    const int action = draw(20);
    if (action == 0) engine->Idle(1);
    if (action < 4) {
      const ModelRow row{std::to_string(10000 + next_key++), some(4), some(5)};
      Add(rs, {row.key, row.Name('a'), row.Day()});
      model.push_back(row);
    } else if (action < 6 && here != sorted.end() && place[0] != place[1]) {
      rs.Delete();
      std::erase_if(model, [&](const ModelRow& row) { return row.key == at; });
      move(draw(2) == 0);
    } else if (action < 8 && !sorted.empty()) {
      const ModelRow& wanted = sorted[static_cast<std::size_t>(draw(sorted.size()))];
      std::vector<Value> keys{wanted.Name('A')};
      auto first = std::ranges::find(sorted, wanted.name, &ModelRow::name);
      if (draw(2) == 0) {
        keys.push_back(wanted.Day());
        while (first->day != wanted.day) ++first;
      }
      rs.Seek(keys);
      ASSERT_FALSE(rs.NoMatch());
      at = first->key;
    } else if (action < 19 && here != sorted.end()) {
      move(action < 14);
    } else if (!sorted.empty()) {
      const bool first = draw(2) == 0;
      first ? rs.MoveFirst() : rs.MoveLast();
      at = first ? sorted.front().key : sorted.back().key;
    }
    if (!at.empty()) {
      ASSERT_EQ(Place(rs), at) << "step " << i;
    }
    ASSERT_EQ(rs.RecordCount(), static_cast<std::int64_t>(model.size()));
  }
  EXPECT_GT(next_key, 500);
}

// Texts that are assigned, keys, dates of statements, and what a clone takes over; each handle on a file for itself.
TEST_P(RecordsetContract, TwoDigitYearsFollowTheWindowOfTheDatabase) {
  const auto other = engine->Workspaces(0)->OpenDatabase(Path("Prueba.MDB"));
  db->SetYearWindow({2001});
  const auto years = [](Database& database, YearWindow window) {
    const auto rs = database.OpenRecordset("Gente", RecordsetType::kTable);
    EXPECT_EQ(rs->Years(), window);
    const auto clone = rs->Clone();
    clone->SetIndex("ICampo1_2");
    for (Recordset* writer : {rs.get(), clone.get()}) {
      Add(*writer, {"00001", "x", "05/03/25"});
      clone->Seek({"x", "05/03/25"});
      EXPECT_EQ(clone->Fields(2).Get(), Value(*MakeDate(FullYear(25, window), 3, 5)));
      EXPECT_FALSE(database.OpenRecordset("SELECT * FROM Gente WHERE Campo2 = #03/05/25#")->Eof());
      database.Execute("DELETE * FROM Gente WHERE Campo2 = #03/05/25#");
      EXPECT_EQ(rs->RecordCount(), 0);
    }
  };
  years(*db, {2001});
  years(*other, {2029});
}

TEST_P(RecordsetContract, TablesWithoutAPrimaryKeyComeInTheOrderOfWriting) {
  db->CreateTable({"Listado", {{"Campo0", ColumnType::kText, 255}}, {{"ICampo0", {0}, false}}});
  auto rs = Open("Listado");
  for (const Value& value : std::vector<Value>{"b", Null(), "a", Null(), ""}) Add(*rs, {value});
  std::vector<Value> read;
  for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) read.push_back(Key(*rs));
  EXPECT_THAT(read, ElementsAre("b", Null(), "a", Null(), ""));
  EXPECT_EQ(Query("SELECT Campo0 FROM Listado"), read);
}

}  // namespace
}  // namespace zendara

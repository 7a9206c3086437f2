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
  RecordsetContract() { db->CreateTable(People()); }

  void AddPeople() {
    auto rs = Open("Gente");
    for (const char* key : {"00003", "00001", "00002"}) Add(*rs, {key, std::string("N") + key[4]});
  }
};
ZENDARA_FOR_EVERY_ENGINE(RecordsetContract);

Value Key(Recordset& rs) { return rs.Fields(0).Get(); }

TEST_P(RecordsetContract, AnEmptyTableIsAtBothEndsUntilItHasRows) {
  auto rs = Open("Gente", "Icampo0");
  EXPECT_TRUE(rs->Bof() && rs->Eof());
  EXPECT_EQ(rs->RecordCount(), 0);
  EXPECT_EQ(ErrorOf([&] { rs->MoveFirst(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rs->MoveNext(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { Key(*rs); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rs->Edit(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rs->Delete(); }), 3021);

  Add(*rs, {"00001"});
  EXPECT_FALSE(rs->Bof() || rs->Eof());
  EXPECT_EQ(ErrorOf([&] { Key(*rs); }), 3021) << "the row before AddNew, which was none, is still the current one";
  rs->MoveFirst();
  EXPECT_EQ(Key(*rs), Value("00001"));
}

TEST_P(RecordsetContract, StandsOnTheFirstRowAfterOpeningAndAfterEachChoiceOfIndex) {
  AddPeople();
  auto rs = Open("Gente");
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
  AddPeople();
  auto rs = Open("Gente", "Icampo0");
  rs->MoveLast();
  rs->MoveNext();
  EXPECT_TRUE(rs->Eof());
  EXPECT_FALSE(rs->Bof());
  EXPECT_EQ(ErrorOf([&] { Key(*rs); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rs->MoveNext(); }), 3021);
  rs->MovePrevious();
  EXPECT_EQ(Key(*rs), Value("00003"));
  rs->MoveFirst();
  rs->MovePrevious();
  EXPECT_TRUE(rs->Bof());
  EXPECT_EQ(ErrorOf([&] { rs->MovePrevious(); }), 3021);
  rs->MoveNext();
  EXPECT_EQ(Key(*rs), Value("00001"));
}

TEST_P(RecordsetContract, SeekFindsTheFirstMatchOrLeavesNoCurrentRecord) {
  AddPeople();
  auto rs = Open("Gente", "Icampo0");
  EXPECT_FALSE(rs->NoMatch());
  rs->Seek({"00002"});
  EXPECT_FALSE(rs->NoMatch());
  EXPECT_EQ(Key(*rs), Value("00002"));
  rs->MoveNext();
  EXPECT_EQ(Key(*rs), Value("00003"));

  rs->Seek({"2"});
  EXPECT_TRUE(rs->NoMatch());
  EXPECT_FALSE(rs->Bof() || rs->Eof());
  EXPECT_EQ(ErrorOf([&] { Key(*rs); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rs->MoveNext(); }), 3021);
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
  AddPeople();
  auto rs = Open("Gente", "Icampo0");
  rs->Seek({"00002"});
  Add(*rs, {"00009"});
  EXPECT_EQ(Key(*rs), Value("00002"));

  rs->Edit();
  rs->Fields("campo1").Set("Nuevo");
  EXPECT_EQ(rs->Fields("CAMPO1").Get(), Value("Nuevo"));
  rs->MoveFirst();  // drops the change
  EXPECT_EQ(ErrorOf([&] { rs->Update(); }), 3020);
  EXPECT_EQ(ErrorOf([&] { rs->Fields(1).Set("x"); }), 3020);
  EXPECT_EQ(Query("SELECT Campo1 FROM Gente WHERE Campo0='00002'"), std::vector<Value>{"N2"});

  rs->AddNew();
  EXPECT_TRUE(Key(*rs).IsNull());
  rs->CancelUpdate();
  EXPECT_EQ(Key(*rs), Value("00001"));

  rs->Seek({"00002"});
  rs->Edit();
  rs->Fields(0).Set("00007");
  rs->Update();
  EXPECT_EQ(Key(*rs), Value("00007")) << "the changed row stays current";
  rs->MoveNext();
  EXPECT_EQ(Key(*rs), Value("00009"));
}

TEST_P(RecordsetContract, ADeletedRowKeepsItsPlaceForTheNextMove) {
  AddPeople();
  auto rs = Open("Gente", "Icampo0");
  rs->Seek({"00002"});
  rs->Edit();
  rs->Delete();  // during Edit it is allowed
  EXPECT_FALSE(rs->Bof() || rs->Eof());
  EXPECT_EQ(ErrorOf([&] { Key(*rs); }), 3167);
  EXPECT_EQ(ErrorOf([&] { rs->Edit(); }), 3167);
  EXPECT_EQ(ErrorOf([&] { rs->Delete(); }), 3167);
  rs->MoveNext();
  EXPECT_EQ(Key(*rs), Value("00003"));
  rs->Delete();
  rs->MovePrevious();
  EXPECT_EQ(Key(*rs), Value("00001"));
  rs->Delete();
  EXPECT_FALSE(rs->Eof());
  rs->MoveNext();
  EXPECT_TRUE(rs->Eof());
}

TEST_P(RecordsetContract, RefusedRowsAreNotWrittenAndCanBeMended) {
  AddPeople();
  auto rs = Open("Gente", "Icampo0");
  rs->AddNew();
  EXPECT_EQ(ErrorOf([&] { rs->Update(); }), 3058);
  rs->Fields(0).Set("00002");
  EXPECT_EQ(ErrorOf([&] { rs->Update(); }), 3022);
  EXPECT_EQ(rs->RecordCount(), 3);
  rs->Fields(0).Set("a1");
  rs->Update();
  EXPECT_EQ(ErrorOf([&] { Add(*rs, {"A1 "}); }), 3022) << "neither case nor end blanks make another key";
  rs->Seek({"a1"});
  rs->Delete();
  rs->AddNew();
  rs->Fields(0).Set("00004");
  rs->Update();
  EXPECT_EQ(rs->RecordCount(), 4);
  rs->MoveFirst();
  rs->Edit();
  rs->Fields(0).Set(Null());
  EXPECT_EQ(ErrorOf([&] { rs->Update(); }), 3058);
  rs->Fields(0).Set("00003");
  EXPECT_EQ(ErrorOf([&] { rs->Update(); }), 3022);
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
      {1, "", "", 0},
      {1, "ññññññññññ", "ññññññññññ", 0},
      {1, "12345678901", {}, 3163},
      {2, "5/3/1", *MakeDate(2001, 3, 5), 0},
      {2, "29/02/01", *MakeDate(2029, 2, 1), 0},
      {2, "", {}, 3421},
      {2, "010203", {}, 3421},
      {2, "13/13/13", {}, 3421},
      {2, 36923, *MakeDate(2001, 2, 1), 0},
      {2, 3e6, {}, 3421},
      {3, "1.234,5", 1234.5, 0},
      {3, "12abc", {}, 3421},
      {3, "", {}, 3421},
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
  auto again = Open("Gente", "Icampo0");
  for (const auto& row : rows) {
    for (int i = 0; i < 4; ++i) EXPECT_EQ(again->Fields(i).Get(), row[static_cast<std::size_t>(i)]);
    again->MoveNext();
  }
}

TEST_P(RecordsetContract, ClonesHaveTheirOwnPositionAndShareBookmarks) {
  AddPeople();
  auto rs = Open("Gente", "Icampo0");
  rs->Seek({"00002"});
  auto clone = rs->Clone();
  EXPECT_EQ(clone->Index(), "");
  EXPECT_EQ(ErrorOf([&] { Key(*clone); }), 3021);
  EXPECT_FALSE(clone->Bof() || clone->Eof());
  clone->GoTo(rs->Bookmark());
  EXPECT_EQ(Key(*clone), Value("00002"));
  clone->MoveNext();
  EXPECT_EQ(Key(*clone), Value("00003"));
  EXPECT_EQ(Key(*rs), Value("00002"));
  const Bookmark mark = clone->Bookmark();
  clone->Delete();
  EXPECT_EQ(ErrorOf([&] { rs->GoTo(mark); }), 3167);
}

TEST_P(RecordsetContract, AnEditSeesWhatOthersDidMeanwhile) {
  AddPeople();
  auto mine = Open("Gente", "Icampo0");
  auto theirs = Open("Gente", "Icampo0");
  mine->Seek({"00001"});
  theirs->Seek({"00001"});
  theirs->Edit();
  theirs->Fields(1).Set("Suyo");
  theirs->Update();

  mine->Edit();
  EXPECT_EQ(mine->Fields(1).Get(), Value("Suyo"));
  mine->Fields(3).Set(1);
  theirs->Edit();
  theirs->Fields(3).Set(2);
  theirs->Update();
  EXPECT_EQ(ErrorOf([&] { mine->Update(); }), 3197);
  EXPECT_EQ(Query("SELECT Campo3 FROM Gente WHERE Campo0='00001'"), std::vector<Value>{2});
  theirs->Delete();
  EXPECT_EQ(ErrorOf([&] { mine->Update(); }), 3167);
  EXPECT_EQ(ErrorOf([&] { mine->Edit(); }), 3167);
}

TEST_P(RecordsetContract, ClosedObjectsSaySo) {
  AddPeople();
  auto rs = Open("Gente");
  rs->Close();
  EXPECT_EQ(ErrorOf([&] { rs->MoveFirst(); }), 3420);
  EXPECT_EQ(ErrorOf([&] { rs->Eof(); }), 3420);
  EXPECT_EQ(ErrorOf([&] { rs->Fields(0); }), 3420);
  db->Close();
  EXPECT_EQ(ErrorOf([&] { db->OpenRecordset("Gente"); }), 3420);
}

// Random walks and writes compared with a plain sorted vector, by an index with repeats and Nulls. Two recordsets and
// idling in between show whether a position survives what the other one does.
class Model {
 public:
  struct Row {
    std::string key;
    std::optional<int> name;  // stored as one letter
    std::optional<int> day;   // of January 2001
  };

  std::vector<Row> rows;

  static bool Before(const Row& a, const Row& b) {
    if (a.name != b.name) return a.name < b.name;  // nothing comes before something, as Null does
    return a.day < b.day;
  }

  // In index order; rows that are equal there keep the order of writing.
  std::vector<Row> Sorted() const {
    std::vector<Row> sorted = rows;
    std::ranges::stable_sort(sorted, Before);
    return sorted;
  }
};

TEST_P(RecordsetContract, RandomWalksAgreeWithASortedVector) {
  std::mt19937 random(7);
  const auto draw = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  const auto some = [&](int n) { return draw(4) == 0 ? std::nullopt : std::optional(draw(n)); };
  Model model;
  auto a = Open("Gente", "ICampo1_2");
  auto b = Open("Gente", "ICampo1_2");
  std::string place[2];  // key of the current record, empty for none
  int next_key = 0;
  for (int i = 0; i < 6000; ++i) {
    const int who = draw(2);
    Recordset& rs = who ? *b : *a;
    std::string& at = place[who];
    const auto sorted = model.Sorted();
    const auto here = std::ranges::find(sorted, at, &Model::Row::key);
    const int action = draw(20);
    if (action == 0) engine->Idle(1);
    if (action < 4) {
      const Model::Row row{std::to_string(10000 + next_key++), some(4), some(5)};
      Add(rs, {row.key, row.name ? Value(std::string(1, static_cast<char>('a' + *row.name))) : Value(),
               row.day ? Value(*MakeDate(2001, 1, 1 + *row.day)) : Value()});
      model.rows.push_back(row);
    } else if (action < 6 && here != sorted.end() && place[0] != place[1]) {
      rs.Delete();
      std::erase_if(model.rows, [&](const Model::Row& row) { return row.key == at; });
      const auto next = here + 1;
      if (draw(2) == 0) {
        rs.MoveNext();
        at = next == sorted.end() ? "" : next->key;
      } else {
        rs.MovePrevious();
        at = here == sorted.begin() ? "" : (here - 1)->key;
      }
    } else if (action < 8 && !sorted.empty()) {
      const Model::Row& wanted = sorted[static_cast<std::size_t>(draw(static_cast<int>(sorted.size())))];
      std::vector<Value> keys{wanted.name ? Value(std::string(1, static_cast<char>('A' + *wanted.name))) : Value()};
      auto first = std::ranges::find(sorted, wanted.name, &Model::Row::name);
      if (draw(2) == 0) {
        keys.push_back(wanted.day ? Value(*MakeDate(2001, 1, 1 + *wanted.day)) : Value());
        while (first->day != wanted.day) ++first;
      }
      rs.Seek(keys);
      ASSERT_FALSE(rs.NoMatch());
      at = first->key;
    } else if (action < 14 && here != sorted.end()) {
      rs.MoveNext();
      at = here + 1 == sorted.end() ? "" : (here + 1)->key;
    } else if (action < 19 && here != sorted.end()) {
      rs.MovePrevious();
      at = here == sorted.begin() ? "" : (here - 1)->key;
    } else if (!sorted.empty()) {
      const bool first = draw(2) == 0;
      first ? rs.MoveFirst() : rs.MoveLast();
      at = first ? sorted.front().key : sorted.back().key;
    }
    if (!at.empty()) {
      ASSERT_EQ(Key(rs), Value(at)) << "step " << i;
    }
    ASSERT_EQ(rs.RecordCount(), static_cast<std::int64_t>(model.rows.size()));
  }
  EXPECT_GT(next_key, 500);
}

TEST_P(RecordsetContract, TablesWithoutAPrimaryKeyComeInTheOrderOfWriting) {
  db->CreateTable({"Listado",
                   {{"Campo0", ColumnType::kText, 255}, {"Campo1", ColumnType::kText, 255}},
                   {{"ICampo1", {1}, false}, {"ICampo0_1", {0, 1}, false}}});
  auto rs = Open("Listado");
  for (const Value& value : std::vector<Value>{"b", Null(), "a", Null(), ""}) Add(*rs, {value});
  std::vector<Value> read;
  for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) read.push_back(Key(*rs));
  EXPECT_THAT(read, ElementsAre("b", Null(), "a", Null(), ""));
  EXPECT_THAT(Query("SELECT Campo0 FROM Listado"), ElementsAre("b", Null(), "a", Null(), ""));
  db->Execute("DELETE * FROM Listado");
  EXPECT_EQ(rs->RecordCount(), 0);
}

}  // namespace
}  // namespace zendara

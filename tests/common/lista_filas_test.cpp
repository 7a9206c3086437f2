#include "common/lista_filas.hpp"

#include <gtest/gtest.h>

#include "frame/fakes.hpp"
#include "lists_fixture.hpp"
#include "platform/record/cursor.hpp"
#include "runtime/text.hpp"
#include "support/errors.hpp"

namespace zendara {
namespace {

constexpr int kRows = 100'000;

// Rows "00000" to "99999", counted as they are read.
class NumberRows : public QueryCursor {
 public:
  explicit NumberRows(int& read) : read_(read) {}
  const std::vector<ColumnDef>& Columns() const override { return columns_; }
  bool Step() override { return ++row_ < kRows && ++read_; }
  Value Column(int) const override { return Right("0000" + std::to_string(row_), 5); }

 private:
  std::vector<ColumnDef> columns_ = {{"Campo0", ColumnType::kText, 5}};
  int row_ = -1;
  int& read_;
};

struct NumbersEngine : FakeEngine {
  struct Numbers : FakeDatabase {
    Numbers(Diary& d, int& r) : FakeDatabase(d, "numbers"), read(r) {}
    std::shared_ptr<Recordset> OpenRecordset(std::string_view, RecordsetType) override {
      return MakeQueryRecordset(std::make_unique<NumberRows>(read));
    }
    int& read;
  };
  NumbersEngine(Diary& d, int& r) : FakeEngine(d), read(r) {}
  std::shared_ptr<Database> OpenDatabase(std::string_view) override { return std::make_shared<Numbers>(diary, read); }
  int& read;
};

TEST(ListaFilasTest, ReadsNoFurtherThanItIsAsked) {
  Diary diary;
  int read = 0;
  const auto engine = std::make_shared<NumbersEngine>(diary, read);
  ListaFilas filas(*engine, "x", "x", {"001"}, {{1, 7}});
  EXPECT_LE(read, 1);
  EXPECT_TRUE(filas.Reach(29));
  EXPECT_EQ(read, 30);
  EXPECT_EQ(filas.Reached(), 30U);
  EXPECT_EQ(filas.Row(7), "00007  ");
  EXPECT_EQ(filas.Find(0, "0002", 10), 20U);
  EXPECT_EQ(read, 30) << "found among the rows reached";
  EXPECT_EQ(filas.Find(0, "005", 20), 500U);
  EXPECT_EQ(read, 501);
  EXPECT_EQ(filas.Row(3), "00003  ") << "back again";
  EXPECT_EQ(filas.Find(0, "0002", 30), std::nullopt) << "from the row on, not before it";
  EXPECT_TRUE(filas.Complete());
  EXPECT_EQ(filas.Total(), static_cast<std::size_t>(kRows));
  EXPECT_EQ(read, kRows);
  EXPECT_FALSE(filas.Reach(kRows));
  EXPECT_EQ(filas.Row(kRows - 1), "99999  ");
}

class FilasTest : public ListsTest {
 protected:
  ListaFilas Open(const std::vector<std::string>& columnas, const std::vector<RowPlace>& lugares,
                  const std::string& sql = "select campo0, campo1 from Secciones order by campo0") {
    return {*engine, PathOf(FileKind::kCompany), sql, columnas, lugares};
  }
};

TEST_F(FilasTest, TypingFindsWithoutCaseAndAccents) {
  const char* const names[] = {"Álvarez", "ALVARADO", "Nuez", "Núñez", "Ñoño", "Güell", "O'Hara", "", "Núñez Vega"};
  int code = 0;
  for (const char* name : names) Add(FileKind::kCompany, "Secciones", {{0, std::to_string(++code)}, {1, name}});
  Add(FileKind::kCompany, "Secciones", {{0, std::to_string(++code)}});
  ListaFilas filas = Open({"010", "001"}, {{1, 8}, {10, 2}}, "select campo0, campo1 from Secciones");
  struct Case {
    const char* typed;
    std::size_t from;
    int found;  // row from 0, -1 none
  };
  // Rows in the order of the code as text: 1, 10, 2 ...
  for (const Case& c : {Case{"alv", 0, 0},
                        {"ALVÁRA", 0, 2},
                        {"álv", 1, 2},
                        {"núñ", 0, 4},
                        {"NUÑ", 5, 9},
                        {"nun", 0, -1},
                        {"n", 0, 3},
                        {"ñ", 0, 5},
                        {"gue", 0, 6},
                        {"o'h", 0, 7},
                        {"", 3, 3},
                        {"alv", 3, -1},
                        {"núñez v", 0, 9}}) {
    const auto row = filas.Find(0, c.typed, c.from);
    EXPECT_EQ(row ? static_cast<int>(*row) : -1, c.found) << c.typed << " from " << c.from;
  }
  EXPECT_EQ(filas.Find(1, "10", 0), 1U) << "any column";
  EXPECT_EQ(filas.Row(1), "         10") << "Null is blank, and so is what no column has";
  EXPECT_EQ(filas.Row(9), "Núñez Ve 9 ") << "a text never runs into the next column";
  EXPECT_EQ(filas.Cell(9, 0), "Núñez Vega") << "shown in full";
}

TEST_F(FilasTest, FixedRowsAreKeptToTheLetter) {
  ListaFilas filas({"1 - N.I.F. ", "  2"});
  EXPECT_EQ(filas.Total(), 2U);
  EXPECT_EQ(filas.Row(0), "1 - N.I.F. ");
  EXPECT_EQ(filas.Find(0, "  2", 0), 1U);
  EXPECT_FALSE(filas.Reach(2));
}

TEST_F(FilasTest, BadArgumentsAreErrors) {
  const RowPlace first{1, 3};
  struct Case {
    std::vector<std::string> codes;
    std::vector<RowPlace> places;
    int error;
  };
  for (const Case& c : {Case{{"001"}, {first}, 0},
                        {{"052,010"}, {first}, 0},  // the first that the query has
                        {{"052,062"}, {first}, kItemNotFound},
                        {{"020"}, {first}, kItemNotFound},
                        {{"01"}, {first}, kInvalidCall},
                        {{"x10"}, {first}, kInvalidCall},
                        {{""}, {first}, kItemNotFound},
                        {{"001", "010"}, {first}, kInvalidCall},
                        {{"001", "010"}, {first, {3, 5}}, kInvalidCall},
                        {{"001"}, {{0, 5}}, kInvalidCall}}) {
    EXPECT_EQ(ErrorOf([&] { Open(c.codes, c.places); }), c.error) << c.codes[0];
  }
  EXPECT_EQ(ErrorOf([&] { Open({"001"}, {first}, "select campo0 from Nadie"); }), kInputTableNotFound);
  EXPECT_EQ(Open({"001"}, {first}).Total(), 0U);
}

}  // namespace
}  // namespace zendara

#include "common/lista_filas.hpp"

#include <gtest/gtest.h>

#include "lists_fixture.hpp"
#include "platform/record/cursor.hpp"
#include "runtime/text.hpp"
#include "support/fake_engine.hpp"

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

struct Numbers : FakeDatabase {
  explicit Numbers(int& r) : read(r) {}
  std::shared_ptr<Recordset> OpenRecordset(std::string_view, RecordsetType) override {
    return MakeQueryRecordset(std::make_unique<NumberRows>(read));
  }
  int& read;
};

struct NumbersEngine : FakeEngine {
  std::shared_ptr<Database> OpenDatabase(std::string_view) override { return std::make_shared<Numbers>(read); }
  int read = 0;
};

TEST(ListaFilasTest, ReadsNoFurtherThanItIsAsked) {
  const auto engine = std::make_shared<NumbersEngine>();
  const int& read = engine->read;
  ListaFilas filas(*engine, "x", "x", {"001"}, {{1, 7}});
  EXPECT_LE(read, 1);
  EXPECT_TRUE(filas.Reach(29));
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

TEST_F(ListsTest, TypingFindsWithoutCaseAndAccents) {
  int code = 0;
  for (const char* name : {"Álvarez", "ALVARADO", "Nuez", "Núñez", "Ñoño", "Güell", "O'Hara", "", "Núñez Vega"}) {
    Add(FileKind::kCompany, "Secciones", {{0, std::to_string(++code)}, {1, name}});
  }
  Add(FileKind::kCompany, "Secciones", {{0, std::to_string(++code)}});
  // Rows in the order of the code as text: 1, 10, 2 ...
  ListaFilas filas(*engine, PathOf(FileKind::kCompany), "select campo0, campo1 from Secciones", {"010", "001"},
                   {{1, 8}, {10, 2}});
  const struct {
    const char* typed;
    std::size_t from;
    std::optional<std::size_t> row;
  } cases[] = {{"alv", 0, 0},     {"ALVÁRA", 0, 2}, {"álv", 1, 2}, {"alv", 3, {}}, {"núñ", 0, 4}, {"NUÑ", 5, 9},
               {"núñez v", 0, 9}, {"nun", 0, {}},   {"ñ", 0, 5},   {"gue", 0, 6},  {"o'h", 0, 7}, {"", 3, 3}};
  for (const auto& [typed, from, row] : cases) EXPECT_EQ(filas.Find(0, typed, from), row) << typed;
  EXPECT_EQ(filas.Find(1, "10", 0), 1U) << "any column";
  EXPECT_EQ(filas.Row(1), "         10") << "Null is blank, and so is what no column has";
  EXPECT_EQ(filas.Row(9), "Núñez Ve 9 ") << "a text never runs into the next column";
  EXPECT_EQ(filas.Cell(9, 0), "Núñez Vega") << "shown in full";
}

}  // namespace
}  // namespace zendara

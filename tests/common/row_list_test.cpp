#include "common/row_list.hpp"

#include <gtest/gtest.h>

#include "lists_fixture.hpp"

namespace zendara {
namespace {

TEST_F(ListsTest, ReadsNoFurtherThanItIsAsked) {
  const auto tabla = engine->Workspaces(0)
                         ->OpenDatabase(PathOf(FileKind::kCompany))
                         ->OpenRecordset("Secciones", RecordsetType::kTable);
  for (int code = 0; code < 200; ++code) {
    tabla->AddNew();
    tabla->Fields(0).Set(std::to_string(1000 + code).substr(1));
    tabla->Update();
  }
  RowList filas(*engine, PathOf(FileKind::kCompany), "select campo0 from Secciones", {"001"}, {{1, 7}});
  EXPECT_LE(filas.Reached(), 1U);
  EXPECT_TRUE(filas.Reach(29));
  EXPECT_EQ(filas.Row(7), "007    ");
  EXPECT_EQ(filas.Find(0, "02", 10), 20U);
  EXPECT_EQ(filas.Reached(), 30U) << "found among the rows reached";
  EXPECT_EQ(filas.Find(0, "1", 20), 100U);
  EXPECT_EQ(filas.Reached(), 101U);
  EXPECT_EQ(filas.Row(3), "003    ") << "back again";
  EXPECT_EQ(filas.Find(0, "02", 30), std::nullopt) << "from the row on, not before it";
  EXPECT_TRUE(filas.Complete());
  EXPECT_EQ(filas.Total(), 200U);
  EXPECT_FALSE(filas.Reach(200));
  EXPECT_EQ(filas.Row(199), "199    ");
}

TEST_F(ListsTest, TypingFindsWithoutCaseAndAccents) {
  int code = 0;
  for (const char* name : {"Álvarez", "ALVARADO", "Nuez", "Núñez", "Ñoño", "Güell", "O'Hara", "", "Núñez Vega"}) {
    Add(FileKind::kCompany, "Secciones", {{0, std::to_string(++code)}, {1, name}});
  }
  Add(FileKind::kCompany, "Secciones", {{0, std::to_string(++code)}});
  // Rows in the order of the code as text: 1, 10, 2 ...
  RowList filas(*engine, PathOf(FileKind::kCompany), "select campo0, campo1 from Secciones", {"010", "001"},
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

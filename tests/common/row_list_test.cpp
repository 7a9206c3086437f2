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
  EXPECT_EQ(filas.Reached(), 30U);
  EXPECT_EQ(filas.Total(), 200U);
  EXPECT_TRUE(filas.Complete());
  EXPECT_FALSE(filas.Reach(200));
  EXPECT_EQ(filas.Row(199), "199    ");
}

TEST_F(ListsTest, RowsAreLaidOutAndShownInFull) {
  Add(FileKind::kCompany, "Secciones", {{0, "1"}});
  Add(FileKind::kCompany, "Secciones", {{0, "2"}, {1, "Núñez Vega"}});
  RowList filas(*engine, PathOf(FileKind::kCompany), "select campo0, campo1 from Secciones", {"010", "001"},
                {{1, 8}, {10, 2}});
  ASSERT_EQ(filas.Total(), 2U);
  EXPECT_EQ(filas.Row(0), "         1 ") << "Null is blank, and so is what no column has";
  EXPECT_EQ(filas.Row(1), "Núñez Ve 2 ") << "a text never runs into the next column";
  EXPECT_EQ(filas.Cell(1, 0), "Núñez Vega") << "shown in full";
}

}  // namespace
}  // namespace zendara

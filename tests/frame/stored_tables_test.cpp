#include "frame/stored_tables.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "runtime/text.hpp"

namespace zendara {
namespace {

TEST(StoredTables, ColumnsAreNumberedAndIndexesAreOnTheColumnsOfTheirNames) {
  const std::set<std::string> listings = {"ListadosNOM", "ListadosTRA", "ListadosCON", "Listados"};
  for (const StoredFile& file : StoredFiles()) {
    EXPECT_EQ(&FileOf(file.kind), &file);
    std::set<std::string> names;
    for (const TableDef& table : file.tables) {
      SCOPED_TRACE(table.name);
      EXPECT_TRUE(names.insert(LCase(table.name)).second);
      for (std::size_t i = 0; i < table.columns.size(); ++i) {
        EXPECT_EQ(table.columns[i].name, "Campo" + std::to_string(i));
        EXPECT_EQ(table.columns[i].width > 0, table.columns[i].type == ColumnType::kText) << i;
      }
      for (const IndexDef& index : table.indexes) {
        EXPECT_EQ(std::ranges::count(table.indexes, LCase(index.name), [](const auto& i) { return LCase(i.name); }), 1);
        std::string name;
        for (const int column : index.columns) {
          EXPECT_LT(column, static_cast<int>(table.columns.size())) << index.name;
          name += (name.empty() ? "icampo" : "_") + std::to_string(column);
        }
        EXPECT_EQ(LCase(index.name), name);
      }
      // The key is the first index, if it begins with the first column; listings have none.
      const IndexDef& first = table.indexes.at(0);
      EXPECT_EQ(first.primary, first.columns.front() == 0 && !listings.contains(table.name));
      EXPECT_EQ(std::ranges::count_if(table.indexes, &IndexDef::primary), first.primary);
    }
  }
}

TEST(StoredTables, AreFoundByNameInAnyCaseInTheirOwnFile) {
  EXPECT_NE(StoredTable(FileKind::kCompany, "TRABAJADORESFIJO"), nullptr);
  EXPECT_EQ(StoredTable(FileKind::kYear, "TrabajadoresFijo"), nullptr);
  EXPECT_EQ(FileWithTable("Clientes"), nullptr);
  for (const TableDef& table : FileOf(FileKind::kEmpresas).tables) {
    EXPECT_EQ(table, *StoredTable(FileKind::kEmpresa, table.name)) << "read under both names: " << table.name;
  }
  EXPECT_EQ(FileName(FileKind::kYear, "12   ", "01"), "N12   01.MDB");
}

}  // namespace
}  // namespace zendara

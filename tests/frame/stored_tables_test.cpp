#include "frame/stored_tables.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "frame/catalogo.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;

TEST(Catalogo, EveryEntryHasItsTableAndIndexInItsFile) {
  std::vector<std::size_t> sizes;
  std::set<int> slots;
  std::vector<int> doubled;
  for (const GrupoCatalogo& grupo : Catalogo()) {
    EXPECT_EQ(&Grupo(grupo.numero), &grupo);
    EXPECT_EQ(LCase(grupo.nombre), LCase(FileName(grupo.fichero, "<code>", "<yy>")));
    sizes.push_back(grupo.entradas.size());
    for (const EntradaCatalogo& entrada : grupo.entradas) {
      const TableDef* table = StoredTable(grupo.fichero, entrada.tabla);
      ASSERT_NE(table, nullptr) << entrada.tabla;
      EXPECT_EQ(table->name, entrada.tabla);
      EXPECT_GE(table->IndexOrdinal(entrada.indice), 0) << entrada.tabla << " " << entrada.indice;
      if (!slots.insert(entrada.ranura).second) doubled.push_back(entrada.ranura);
    }
    EXPECT_EQ(FileOf(grupo.fichero).tables.size(), grupo.entradas.size()) << grupo.nombre;
  }
  EXPECT_THAT(sizes, ElementsAre(11, 9, 25, 6, 13, 7));
  EXPECT_THAT(doubled, ElementsAre(414, 406));
}

TEST(StoredTables, ColumnsFollowByOrdinalAndIndexesAreOnTheColumnsOfTheirNames) {
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
      std::set<std::string> indexes;
      for (const IndexDef& index : table.indexes) {
        EXPECT_TRUE(indexes.insert(LCase(index.name)).second) << index.name;
        std::string name = "icampo";
        for (const int column : index.columns) {
          EXPECT_LT(column, static_cast<int>(table.columns.size())) << index.name;
          name += (name == "icampo" ? "" : "_") + std::to_string(column);
        }
        EXPECT_EQ(LCase(index.name), name);
      }
    }
  }
}

TEST(StoredTables, TheFirstIndexThatBeginsWithTheFirstColumnIsThePrimaryKeyExceptForListings) {
  const std::set<std::string> listings = {"ListadosNOM", "ListadosTRA", "ListadosCON", "Listados"};
  for (const StoredFile& file : StoredFiles()) {
    for (const TableDef& table : file.tables) {
      SCOPED_TRACE(table.name);
      const auto primaries = std::ranges::count_if(table.indexes, &IndexDef::primary);
      ASSERT_FALSE(table.indexes.empty());
      const IndexDef& first = table.indexes.front();
      const bool keyed = first.columns.front() == 0 && !listings.contains(table.name);
      EXPECT_EQ(primaries, keyed ? 1 : 0);
      EXPECT_EQ(first.primary, keyed);
    }
  }
  EXPECT_EQ(StoredTable(FileKind::kYear, "ConTrabajadorConceptos")->Primary()->name, "Icampo0_1_2_3");
}

// One fact a kind of column, and the columns on which a slip in the ones before would show.
TEST(StoredTables, LastColumnsAndWidthsOfTheScreensFields) {
  struct Case {
    const char* table;
    std::size_t columns;
    std::size_t column;
    ColumnType type;
    int width;
  };
  const Case cases[] = {
      {"TrabajadoresFijo", 91, 19, ColumnType::kDate, 0},
      {"TrabajadoresFijo", 91, 52, ColumnType::kText, 4},
      {"TrabajadoresFijo", 91, 80, ColumnType::kText, 1},
      {"TrabajadoresFijo", 91, 90, ColumnType::kText, 30},
      {"TrabajadoresVar", 54, 8, ColumnType::kDate, 0},
      {"TrabajadoresVar", 54, 37, ColumnType::kDate, 0},
      {"TrabajadoresVar", 54, 44, ColumnType::kText, 5},
      {"TrabajadoresVar", 54, 50, ColumnType::kText, 50},
      {"TincidenciasIT", 5, 1, ColumnType::kText, 37},
      {"TIncidenciasVar", 8, 7, ColumnType::kText, 5},
      {"ConTrabajadorConceptos", 20, 19, ColumnType::kNumber, 0},
      {"ConTrabajadorPagas", 111, 110, ColumnType::kText, 50},
      {"Historico", 30, 2, ColumnType::kText, 5},
      {"Historico", 30, 11, ColumnType::kNumber, 0},
      {"IRPF", 75, 74, ColumnType::kNumber, 0},
      {"EmpresasNom", 3, 2, ColumnType::kText, 7},
      {"ListadosNOM", 9, 8, ColumnType::kText, 255},
      {"NIFS", 1, 0, ColumnType::kText, 50},
  };
  for (const Case& c : cases) {
    const TableDef& table = *StoredTable(FileWithTable(c.table)->kind, c.table);
    EXPECT_EQ(table.columns.size(), c.columns) << c.table;
    const ColumnDef expected = {"Campo" + std::to_string(c.column), c.type, c.width};
    EXPECT_EQ(table.columns.at(c.column), expected) << c.table << " " << expected.name;
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

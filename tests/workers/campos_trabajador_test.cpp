// The table of fields against the stored tables.
#include "workers/campos_trabajador.hpp"

#include <gtest/gtest.h>

#include "frame/stored_tables.hpp"

namespace zendara {
namespace {

TEST(CamposTrabajador, AreAsWideAsTheirColumns) {
  const TableDef& fijo = *StoredTable(FileKind::kCompany, "TrabajadoresFijo");
  const TableDef& var = *StoredTable(FileKind::kCompany, "TrabajadoresVar");
  int anterior = 0;
  for (const CampoTrabajador& campo : CamposTrabajador()) {
    EXPECT_GT(campo.indice, anterior);
    anterior = campo.indice;
    const TableDef& tabla = campo.indice <= 91 ? fijo : var;
    const ColumnDef& columna = tabla.columns.at(static_cast<std::size_t>(ColumnaDe(campo.indice)));
    EXPECT_EQ(campo.Tiene(kFecha), columna.type == ColumnType::kDate) << campo.indice;
    EXPECT_EQ(campo.largo, columna.type == ColumnType::kDate ? 8 : columna.width) << campo.indice;
    EXPECT_EQ(CampoDe(campo.indice), &campo);
  }
  EXPECT_EQ(anterior, 144);
  EXPECT_EQ(CamposTrabajador().size(), 94U) << "with the 50 cells, every index from 1 to 144 once";
  for (const int indice : {0, 26, 55, 75, 145}) EXPECT_EQ(CampoDe(indice), nullptr) << indice;
}

TEST(CamposTrabajador, CellsTakeTheColumnsRowByRow) {
  for (int fila = 1; fila <= 10; ++fila) {
    const int columnas_hijo[] = {22 + 3 * fila, 23 + 3 * fila, 24 + 3 * fila};
    const int columnas_ascendiente[] = {53 + 2 * fila, 54 + 2 * fila};
    const auto prueba = [fila](int rejilla, std::span<const int> columnas) {
      for (std::size_t i = 0; i < columnas.size(); ++i) {
        const CeldaTrabajador celda = CeldaDe(columnas[i] + 1);
        EXPECT_EQ(celda.rejilla, rejilla);
        EXPECT_EQ(celda.fila, fila);
        EXPECT_EQ(celda.columna, static_cast<int>(i) + 2);
      }
    };
    prueba(kHijos, columnas_hijo);
    prueba(kAscendientes, columnas_ascendiente);
  }
}

}  // namespace
}  // namespace zendara

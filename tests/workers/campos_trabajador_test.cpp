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
    const TableDef& tabla = campo.indice <= campo::kUltimoFijo ? fijo : var;
    const ColumnDef& columna = tabla.columns.at(static_cast<std::size_t>(ColumnaDe(campo.indice)));
    const bool fecha = columna.type == ColumnType::kDate;
    EXPECT_EQ(campo.Tiene(kFecha), fecha) << campo.indice;
    EXPECT_EQ(campo.largo, fecha ? 8 : columna.width) << campo.indice;
    EXPECT_EQ(CampoDe(campo.indice), &campo);
  }
  EXPECT_EQ(anterior, 144);
  EXPECT_EQ(CamposTrabajador().size(), 94U) << "with the 50 cells, every index from 1 to 144 once";
  for (const int indice : {0, 26, 55, 75, 145}) EXPECT_EQ(CampoDe(indice), nullptr) << indice;
}

}  // namespace
}  // namespace zendara

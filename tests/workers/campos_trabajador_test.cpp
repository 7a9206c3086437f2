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
  for (const Campo& campo : CamposTrabajador()) {
    EXPECT_GT(campo.indice, anterior);
    anterior = campo.indice;
    const bool es_fijo = campo.indice <= kTramoFijo.hasta;
    const Tramo& tramo = es_fijo ? kTramoFijo : kTramoVar;
    const ColumnDef& columna =
        (es_fijo ? fijo : var).columns.at(static_cast<std::size_t>(tramo.ColumnaDe(campo.indice)));
    const bool fecha = columna.type == ColumnType::kDate;
    EXPECT_EQ(campo.Tiene(kFecha), fecha) << campo.indice;
    EXPECT_EQ(campo.largo, fecha ? 8 : columna.width) << campo.indice;
  }
  EXPECT_EQ(anterior, 144);
  EXPECT_EQ(CamposTrabajador().size(), 94U) << "with the 50 cells, every index from 1 to 144 once";
}

}  // namespace
}  // namespace zendara

// The declared tables and the host's part over the default engine.
#include <gtest/gtest.h>

#include "fakes.hpp"
#include "frame/bases_datos.hpp"
#include "frame/sesion_anfitrion.hpp"
#include "support/temp_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

TEST(StoredFiles, TheHostsPartFillsEverySlot) {
  const TempFolder folder;
  std::filesystem::create_directory(folder / "DATOS");
  const std::unique_ptr<Engine> engine = MakeEngine();
  for (const StoredFile& file : StoredFiles()) {
    const auto db = engine->Workspaces(0)->CreateDatabase(folder / "DATOS/" + FileName(file.kind, "00001", "01"));
    for (const TableDef& table : file.tables) db->CreateTable(table);
    EXPECT_EQ(db->Tables(), file.tables);
  }
  FakeDialogs dialogs;
  Sesion sesion{Platform{engine.get(), &dialogs, nullptr, folder.path().string()}};
  AbreEmpresa(sesion, "00001", "2001");
  for (const GrupoCatalogo& grupo : Catalogo()) {
    EXPECT_EQ(&Grupo(grupo.numero), &grupo);
    EXPECT_EQ(FileOf(grupo.fichero).tables.size(), grupo.entradas.size()) << grupo.nombre;
    for (const EntradaCatalogo& entrada : grupo.entradas) {
      // The general tables took these two.
      if (grupo.numero == 4 && (entrada.ranura == 406 || entrada.ranura == 414)) continue;
      const Recordset& slot = sesion.Tabla(entrada.ranura);
      EXPECT_EQ(slot.RecordCount(), 0);
      EXPECT_EQ(slot.Index(), entrada.indice);
      EXPECT_EQ(slot.Columns(), StoredTable(grupo.fichero, entrada.tabla)->columns) << entrada.tabla;
    }
  }
  EXPECT_EQ(sesion.Tabla(kTiposVia).Columns(), StoredTable(FileKind::kEmpresas, "Calles")->columns);
  EXPECT_EQ(sesion.BDEmpresa->Name(), sesion.DirDatos + "Nom00001.MDB");
  EXPECT_EQ(sesion.BDSegunda->Name(), sesion.DirDatos + "Empresa.MDB");

  // A screen opens the same files afterwards, a second time with the query already there.
  for (int i = 0; i < 2; ++i) {
    sesion.ConsultaQD = nullptr;
    AbreTablas(sesion, 0, "00001", "01");
    EXPECT_EQ(sesion.ConsultaQD->Name(), "Consulta");
  }
  EXPECT_EQ(sesion.Tabla(414).Columns(), StoredTable(FileKind::kOfficial, "IRPFE")->columns);
  EXPECT_TRUE(dialogs.texts.empty());
}

}  // namespace
}  // namespace zendara

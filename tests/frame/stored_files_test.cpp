// The declared tables and the host's part over the default engine.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "fakes.hpp"
#include "frame/bases_datos.hpp"
#include "frame/parametros.hpp"
#include "frame/sesion_anfitrion.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

class StoredFilesTest : public testing::Test {
 protected:
  StoredFilesTest() { std::filesystem::create_directories(folder / "DATOS"); }
  ~StoredFilesTest() override { std::filesystem::remove_all(folder); }

  void Create(const StoredFile& file) {
    const std::string path = (folder / "DATOS" / FileName(file.kind, "00001", "01")).string();
    const std::shared_ptr<Database> db = engine->Workspaces(0)->CreateDatabase(path);
    for (const TableDef& table : file.tables) db->CreateTable(table);
    EXPECT_EQ(db->Tables(), file.tables) << path;
  }
  int ErrorOf(void (*open)(Sesion&, std::string_view, std::string_view)) {
    try {
      open(sesion, "00001", "01");
    } catch (const RuntimeError& error) {
      return error.number();
    }
    return 0;
  }

  std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("zendara_frame_" + std::to_string(std::random_device()()));
  std::unique_ptr<Engine> engine = MakeSqliteEngine();
  FakeDialogs dialogs;
  FakeFiles files;
  Sesion sesion{Platform{engine.get(), &dialogs, &files, folder.string()}};
};

TEST_F(StoredFilesTest, TheHostsPartFillsEverySlot) {
  for (const StoredFile& file : StoredFiles()) Create(file);
  AbreEmpresa(sesion, "00001", "2001");
  for (const GrupoCatalogo& grupo : Catalogo()) {
    for (const EntradaCatalogo& entrada : grupo.entradas) {
      // The general tables took these two.
      if (grupo.numero == 4 && (entrada.ranura == 406 || entrada.ranura == 414)) continue;
      const Recordset& slot = sesion.Tabla(entrada.ranura);
      EXPECT_EQ(slot.RecordCount(), 0);
      EXPECT_EQ(slot.Index(), entrada.indice);
      EXPECT_EQ(slot.Columns(), StoredTable(grupo.fichero, entrada.tabla)->columns) << entrada.tabla;
    }
  }
  EXPECT_EQ(sesion.Tabla(414).Columns(), StoredTable(FileKind::kEmpresa, "Calles")->columns);
  EXPECT_EQ(sesion.Tabla(kTiposVia).Columns(), StoredTable(FileKind::kEmpresas, "Calles")->columns);
  EXPECT_EQ(sesion.BDEmpresa->Name(), sesion.DirDatos + "Nom00001.MDB");
  EXPECT_EQ(sesion.BDSegunda->Name(), sesion.DirDatos + "Empresa.MDB");

  // A screen opens the same files afterwards, a second time with the query already there.
  for (int i = 0; i < 2; ++i) AbreTablas(sesion, 0, "00001", "01");
  EXPECT_EQ(sesion.ConsultaQD->Name(), "Consulta");
  EXPECT_EQ(sesion.Tabla(414).Columns(), StoredTable(FileKind::kOfficial, "IRPFE")->columns);
  EXPECT_TRUE(dialogs.texts.empty());
}

TEST_F(StoredFilesTest, RatesNeedOnlyTheCompanyAndTheOfficialFile) {
  EXPECT_EQ(ErrorOf(AbreEmpresaParaTipos), kDatabaseNotFound);
  Create(FileOf(FileKind::kCompany));
  EXPECT_EQ(ErrorOf(AbreEmpresaParaTipos), kDatabaseNotFound);
  Create(FileOf(FileKind::kOfficial));
  EXPECT_EQ(ErrorOf(AbreEmpresaParaTipos), 0);
  EXPECT_EQ(sesion.Tabla(kIRPF).Columns().size(), 75u);
  EXPECT_EQ(sesion.Tabla(kTrabajadoresFijo).Index(), "Icampo0");
  EXPECT_EQ(sesion.Tabla(kTrabajadoresVar).Index(), "Icampo0_1");
  EXPECT_EQ(sesion.BDEmpresa->Name(), sesion.DirDatos + "Nom00001.MDB");
  EXPECT_EQ(ErrorOf(AbreEmpresa), kDatabaseNotFound);
  EXPECT_TRUE(dialogs.texts.empty()) << "a host is told by the error alone";
}

TEST_F(StoredFilesTest, AFileThatLacksATableStopsAbreTablasWithItsMessage) {
  StoredFile company = FileOf(FileKind::kCompany);
  std::erase_if(company.tables, [](const TableDef& table) { return table.name == "Secciones"; });
  Create(company);
  PonCarpetas(sesion);
  AbreTablas(sesion, 0, "00001", "01");
  EXPECT_EQ(dialogs.texts, std::vector<std::string>{"Error: Base de Datos vacia ó dañada"});
  EXPECT_TRUE(sesion.Tablas[424]);
  EXPECT_FALSE(sesion.Tablas[426]);
}

}  // namespace
}  // namespace zendara

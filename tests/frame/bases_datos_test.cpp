// The declared tables, and what opens them, over the default engine.
#include "frame/bases_datos.hpp"

#include <gmock/gmock.h>

#include <fstream>
#include <functional>

#include "frame/parametros.hpp"
#include "frame/sesion_anfitrion.hpp"
#include "support/errors.hpp"
#include "support/fake_dialogs.hpp"
#include "support/temp_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class BasesDatos : public testing::Test {
 protected:
  BasesDatos() {
    std::filesystem::create_directory(folder / "DATOS");
    for (const StoredFile& file : StoredFiles()) EXPECT_EQ(Crea(file.kind)->Tables(), file.tables);
    PonCarpetas(sesion);
  }

  // The file anew, with something changed in each table.
  std::shared_ptr<Database> Crea(
      FileKind kind, const std::function<void(TableDef&)>& change = [](TableDef&) {}) const {
    std::filesystem::remove(PathOf(kind));
    auto db = engine->Workspaces(0)->CreateDatabase(PathOf(kind));
    for (TableDef table : FileOf(kind).tables) {
      change(table);
      db->CreateTable(table);
    }
    return db;
  }
  std::string PathOf(FileKind kind) const { return folder / "DATOS/" + FileName(kind, "00001", "01"); }
  const std::vector<ColumnDef>& ColumnsOf(int slot) const { return sesion.Tabla(slot).Columns(); }
  static const std::vector<ColumnDef>& Stored(FileKind kind, std::string_view table) {
    return StoredTable(kind, table)->columns;
  }

  TempFolder folder;
  std::unique_ptr<Engine> engine = MakeEngine();
  std::unique_ptr<Files> files = MakeHostFiles();
  FakeDialogs dialogs;
  Sesion sesion{Platform{engine.get(), &dialogs, files.get(), folder.path().string()}};
};

TEST_F(BasesDatos, TheHostsPartFillsEverySlot) {
  AbreEmpresa(sesion, "00001", "2001");
  for (const GrupoCatalogo& grupo : Catalogo()) {
    EXPECT_EQ(&Grupo(grupo.numero), &grupo);
    EXPECT_EQ(FileOf(grupo.fichero).tables.size(), grupo.entradas.size()) << grupo.nombre;
    for (const EntradaCatalogo& entrada : grupo.entradas) {
      // The general tables took these two.
      if (grupo.numero == 4 && (entrada.ranura == 406 || entrada.ranura == 414)) continue;
      EXPECT_EQ(sesion.Tabla(entrada.ranura).Index(), entrada.indice);
      EXPECT_EQ(ColumnsOf(entrada.ranura), Stored(grupo.fichero, entrada.tabla)) << entrada.tabla;
    }
  }
  EXPECT_EQ(ColumnsOf(kTiposVia), Stored(FileKind::kEmpresas, "Calles"));
  EXPECT_EQ(sesion.BDEmpresa->Name(), sesion.DirDatos + "Nom00001.MDB");
  EXPECT_EQ(sesion.BDSegunda->Name(), sesion.DirDatos + "Empresa.MDB");
  EXPECT_EQ(ErrorOf([&] { sesion.Tabla(500); }), 91) << "left empty by the host";
  for (const int no_slot : {501, -1}) EXPECT_EQ(ErrorOf([&] { sesion.Tabla(no_slot); }), 9) << no_slot;
}

TEST_F(BasesDatos, AbreTablasOpensEveryGroupButTheGeneralTablesWhichTakeTheDoubleSlots) {
  for (const int group : {0, 1, 5}) {
    AbreTablas(sesion, group, "00001", "  ");
    AbreTablas(sesion, group, "     ", "01");
  }
  EXPECT_EQ(sesion.BDEmpresa, nullptr) << "a blank code or year does nothing";

  // A second time with the query already there.
  for (int i = 0; i < 2; ++i) {
    sesion.ConsultaQD = nullptr;
    AbreTablas(sesion, 0, "00001", "01");
    EXPECT_EQ(sesion.ConsultaQD->Name(), "Consulta");
  }
  EXPECT_EQ(std::ranges::count(sesion.Tablas, nullptr), kSlots + 1 - 58);
  EXPECT_EQ(ColumnsOf(414), Stored(FileKind::kOfficial, "IRPFE"));
  EXPECT_EQ(sesion.BDEmpresa->Name(), sesion.DirDatos + "HACIEN01.MDB");
  AbreTablas(sesion, 5, "00001", "01");
  EXPECT_EQ(ColumnsOf(414), Stored(FileKind::kEmpresa, "Calles"));
  EXPECT_EQ(ColumnsOf(404), Stored(FileKind::kOfficial, "IRPF"));
  EXPECT_EQ(sesion.BDEmpresa->Name(), sesion.DirDatos + "Empresa.MDB");
  EXPECT_THAT(dialogs.boxes, IsEmpty());
}

TEST_F(BasesDatos, TheFirstFailureEndsAbreTablas) {
  const auto earlier = Crea(FileKind::kEmpresa)->OpenRecordset("Calles", RecordsetType::kTable);
  const auto opens = [&](bool in_first_group, const std::vector<std::string>& boxes) {
    sesion.Tablas = {};
    sesion.Tablas[490] = earlier;
    dialogs.boxes.clear();
    AbreTablas(sesion, 0, "00001", "01");
    EXPECT_NE(sesion.Tablas[420], nullptr) << "what came before stays";
    EXPECT_EQ(sesion.Tablas[460], nullptr);
    EXPECT_EQ(sesion.Tablas[490] == earlier, in_first_group) << "what was not reached keeps its recordset";
    EXPECT_EQ(dialogs.boxes.size(), boxes.size());
    for (std::size_t i = 0; i < boxes.size(); ++i) EXPECT_THAT(dialogs.boxes.at(i), StartsWith(boxes[i]));
  };
  std::filesystem::remove(PathOf(FileKind::kYear));
  opens(false, {"3024  "});
  Crea(FileKind::kCompany, [](TableDef& table) {
    if (table.name == "FPago") table.indexes.clear();
  });
  opens(true, {});
  Crea(FileKind::kCompany, [](TableDef& table) {
    if (table.name == "FPago") table.name = "FPagos";
  });
  opens(true, {"Error: Base de Datos vacia ó dañada"});
}

TEST_F(BasesDatos, AFileThatDoesNotOpenIsShownAndLeavesTheHandle) {
  std::shared_ptr<Database> db;
  ASSERT_TRUE(AbreTabla(sesion, db, "Nom00001.MDB"));
  EXPECT_EQ(sesion.ConsultaQD, nullptr) << "the query of the files NOM: the case counts";
  const std::shared_ptr<Database> before = db;
  EXPECT_FALSE(AbreTabla(sesion, db, "Nom00009.MDB"));
  EXPECT_FALSE(AbreTabla(sesion, db, "NOM00009.MDB"));
  EXPECT_EQ(db, before);
  EXPECT_THAT(dialogs.boxes, ElementsAre(StartsWith("3024  "), StartsWith("3024  ")));
}

TEST_F(BasesDatos, CargaParametrosReadsTheThreeFilesAndLetsAMissingOneThrough) {
  for (const char* name : {"IMPM1600.DAT", "IMPM0999.DAT", "NOM00997.DAT"}) {
    std::ofstream(folder / "DATOS/" + name) << name << std::string(300, '.');
  }
  sesion.DirDatos.clear();
  CargaParametros(sesion);
  EXPECT_EQ(sesion.ParametrosListado, "IMPM1600.DAT" + std::string(244, '.'));
  EXPECT_EQ(sesion.ParametrosImpresion, "IMPM0999.DAT" + std::string(288, '.'));
  EXPECT_EQ(sesion.ParametrosNomina, "NOM00997.DAT" + std::string(244, '.'));
  std::filesystem::remove(folder / "DATOS/IMPM0999.DAT");
  EXPECT_EQ(ErrorOf([&] { CargaParametros(sesion); }), kFileNotFound);
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

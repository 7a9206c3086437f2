#include "frame/bases_datos.hpp"

#include <gmock/gmock.h>

#include "fakes.hpp"
#include "frame/parametros.hpp"
#include "support/errors.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class BasesDatos : public testing::Test {
 protected:
  BasesDatos() { PonCarpetas(sesion); }

  std::vector<std::string> Lines(std::string_view start) const {
    std::vector<std::string> found;
    for (const std::string& line : diary.lines) {
      if (line.starts_with(start)) found.push_back(line.substr(start.size()));
    }
    return found;
  }
  std::string TableIn(std::size_t slot) const {
    const auto& recordset = sesion.Tablas[slot];
    return recordset ? static_cast<const FakeRecordset&>(*recordset).table : "";
  }

  Diary diary;
  std::shared_ptr<FakeEngine> engine = std::make_shared<FakeEngine>(diary);
  FakeDialogs dialogs;
  FakeFiles files;
  Sesion sesion{Platform{engine.get(), &dialogs, &files, "C:\\nom"}};
  std::shared_ptr<Database> db;
};

TEST_F(BasesDatos, AbreTablasOpensEveryGroupButTheGeneralTablesWhichTakeTheDoubleSlots) {
  AbreTablas(sesion, 0, "00001", "01");
  EXPECT_THAT(Lines("open C:\\nom\\DATOS\\"),
              ElementsAre("NOM00001.MDB", "N0000101.MDB", "DOC00001.MDB", "NOM00A01.MDB", "HACIEN01.MDB"));
  // The two files whose names start with NOM have the query; locks go once a group.
  EXPECT_EQ(Lines("create ").size(), 2u);
  EXPECT_EQ(Lines("idle 1").size(), 5u);
  EXPECT_EQ(std::ranges::count(sesion.Tablas, nullptr), kSlots + 1 - 58);
  EXPECT_EQ(TableIn(414), "IRPFE");
  EXPECT_EQ(TableIn(429), "");
  EXPECT_EQ(sesion.BDEmpresa->Name(), "C:\\nom\\DATOS\\HACIEN01.MDB");
  EXPECT_TRUE(sesion.WsTrabajo);
  AbreTablas(sesion, 5, "00001", "01");
  EXPECT_EQ(sesion.BDEmpresa->Name(), "C:\\nom\\DATOS\\Empresa.MDB");
  EXPECT_EQ(TableIn(414), "Calles");
  EXPECT_EQ(TableIn(404), "IRPF");
  EXPECT_THAT(dialogs.texts, IsEmpty());

  EXPECT_EQ(&sesion.Tabla(402), sesion.Tablas[402].get());
  EXPECT_EQ(ErrorOf([&] { sesion.Tabla(500); }), 91) << "left empty by the host";
  for (const int no_slot : {501, -1}) EXPECT_EQ(ErrorOf([&] { sesion.Tabla(no_slot); }), 9) << no_slot;
}

TEST_F(BasesDatos, AGroupOpensItsTablesInOrderEachWithItsIndex) {
  AbreTablas(sesion, 6, "00001", "01");
  EXPECT_THAT(
      diary.lines,
      ElementsAre("open C:\\nom\\DATOS\\HACIEN01.MDB", "table MAN190", "index MAN190 Icampo0_1_2_3_4_5", "table M110",
                  "index M110 Icampo1_3", "table C190", "index C190 Icampo1", "table PendientesMensual",
                  "index PendientesMensual Icampo1", "table M111", "index M111 Icampo1_3", "table N110",
                  "index N110 Icampo1_3", "table N111", "index N111 Icampo1_3", "idle 1"));
  EXPECT_EQ(TableIn(115), "N111");
}

TEST_F(BasesDatos, ABlankCodeOrYearDoesNothing) {
  for (const int group : {0, 1, 5}) {
    AbreTablas(sesion, group, "00001", "  ");
    AbreTablas(sesion, group, "     ", "01");
  }
  EXPECT_THAT(diary.lines, IsEmpty());
}

TEST_F(BasesDatos, TheFirstFailureEndsAbreTablas) {
  struct Case {
    const char* line;
    int number;
    bool in_first_group;
    std::string box;  // how it starts
  };
  const auto earlier = std::make_shared<FakeRecordset>(diary, "earlier");
  for (const Case& c : std::initializer_list<Case>{
           {"table FPago", kObjectNotFound, true, "Error: Base de Datos vacia ó dañada"},
           {"table FPago", kObjectClosed, true, "Error: Base de Datos vacia ó dañada"},
           {"table FPago", kCannotOpenFile, true, ""},
           {"index FPago Icampo0", kNotAnIndex, true, ""},
           {"open C:\\nom\\DATOS\\N0000101.MDB", kDatabaseNotFound, false, "3024  "},
           {"open C:\\nom\\DATOS\\N0000101.MDB", kObjectClosed, false, "3420  "},
       }) {
    SCOPED_TRACE(std::string(c.line) + " " + std::to_string(c.number));
    diary = {{}, {{c.line, c.number}}};
    sesion.Tablas = {};
    sesion.Tablas[490] = earlier;
    dialogs.texts.clear();
    AbreTablas(sesion, 0, "00001", "01");
    EXPECT_EQ(diary.lines.back(), c.line) << "nothing was opened after the failure";
    EXPECT_EQ(TableIn(420), "TincidenciasESP") << "what came before stays";
    EXPECT_EQ(TableIn(460), "");
    EXPECT_EQ(sesion.Tablas[490] == earlier, c.in_first_group) << "what was not reached keeps its recordset";
    EXPECT_EQ(dialogs.texts.size(), c.box.empty() ? 0u : 1u);
    EXPECT_THAT(dialogs.texts, testing::Each(StartsWith(c.box)));
  }
}

TEST_F(BasesDatos, AFileThatDoesNotOpenIsShownAndLeavesTheHandle) {
  ASSERT_TRUE(AbreTabla(sesion, db, "Nom00002.MDB"));
  EXPECT_EQ(sesion.ConsultaQD, nullptr) << "the query of the files NOM: the case counts";
  const std::shared_ptr<Database> before = db;
  diary.failures["open C:\\nom\\DATOS\\Nom00001.MDB"] = kDatabaseNotFound;
  diary.failures["open C:\\nom\\DATOS\\NOM00001.MDB"] = kForeignFile;
  EXPECT_FALSE(AbreTabla(sesion, db, "Nom00001.MDB"));
  EXPECT_FALSE(AbreTabla(sesion, db, "NOM00001.MDB"));
  EXPECT_EQ(db, before);
  EXPECT_THAT(dialogs.texts, ElementsAre(StartsWith("3024  "), StartsWith("3343  ")));
}

TEST_F(BasesDatos, CargaParametrosReadsTheThreeFilesAndLetsAMissingOneThrough) {
  CargaParametros(sesion);
  EXPECT_EQ(sesion.ParametrosListado, "C:\\nom\\DATOS\\IMPM1600.DAT 256");
  EXPECT_EQ(sesion.ParametrosImpresion, "C:\\nom\\DATOS\\IMPM0999.DAT 300");
  EXPECT_EQ(sesion.ParametrosNomina, "C:\\nom\\DATOS\\NOM00997.DAT 256");
  files.missing = "C:\\nom\\DATOS\\IMPM0999.DAT";
  EXPECT_EQ(ErrorOf([&] { CargaParametros(sesion); }), kFileNotFound);
}

}  // namespace
}  // namespace zendara

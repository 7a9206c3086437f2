// What `data check` says of incidents.
#include <gmock/gmock.h>
#include <sqlite3.h>

#include <nlohmann/json.hpp>

#include "frame/stored_tables.hpp"
#include "tests/commands/command_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

using testing::HasSubstr;

class IncidentAdviceTest : public CommandFolder {
 protected:
  IncidentAdviceTest() {
    Create();
    Load("TrabajadoresFijo", "Campo0\n00001\n00002\n00003\n00004\n00005\n00006\n");
    Load("TrabajadoresVar",
         "Campo0,Campo1,Campo3,Campo4\n00001,001,1998-01-01,1999-12-31\n00001,002,2001-01-01,\n00002,001,1998-01-01,\n"
         "00003,001,1998-01-01,\n00004,001,1998-01-01,\n00006,001,,\n00006,002,1998-01-01,1998-12-31\n");
    Load("ConTrabajadorConceptos",
         "Campo0,Campo1,Campo2,Campo3\n01,00001,002,001\n02,00002,001,001\n02,00002,001,005\n01,00003,001,001\n"
         "01,00004,001,001\n");
  }
};

TEST_F(IncidentAdviceTest, EachRowIsToldWhatIsWrongWithIt) {
  const std::pair<std::string, std::string> tables[] = {
      {"TincidenciasIT",
       "Campo0,Campo2,Campo3,Campo4\n"
       "00001,1,1999-12-20,2000-01-10\n"  // meets a situación
       "00001,2,2000-02-01,2000-12-31\n"
       "00002,1,2001-01-01,2001-01-31\n"
       "00002,3,2001-01-10,2001-01-12\n"
       "00002,4,2001-02-11,2001-02-12\n"  // the day after
       "00002,5,2001-03-01,2001-03-31\n"
       "00002,2,2001-04-01,2001-04-02\n"
       "00003,1,2001-01-01,\n"
       "00003,3,2002-05-01,\n"
       "00004,9,2001-02-10,2001-02-01\n"
       "00004,,2001-02-11,2001-02-10\n"
       "00005,1,2001-01-01,\n"  // has no situación, which is told of him
       "00006,1,2001-01-01,\n"  // has one without a start
       "00009,1,2001-02-10,2001-02-01\n"},
      {"TincidenciasESP",
       "Campo0,Campo2,Campo3,Campo4\n"
       "00001,1,2001-01-01,2001-01-05\n"
       "00002,1,2001-01-31,2001-02-10\n"
       "00002,2,2001-03-05,2001-03-05\n"
       "00002,1,2001-04-01,2001-04-30\n"
       "00003,1,2001-06-01,2001-06-10\n"
       "00003,2,2002-01-01,\n"
       "00004,1,2001-02-05,2001-02-06\n"},  // what runs backwards overlaps nothing
      {"TIncidenciasVar",
       "Campo0,Campo1,Campo3,Campo4,Campo5\n"
       "01,00001,002,001,Dietas\n"
       "02,00002,001,004,H. extra\n"
       "03,00002,001,005,\n"  // in another month it is there
       "02,00002,009,001,Dietas\n"
       "01,00009,001,001,Dietas\n"},
  };
  for (const auto& [table, csv] : tables) ASSERT_EQ(Load(table, csv).status, 0) << table;
  const std::string first = "overlaps Enfermedad (TincidenciasIT) 2001-01-01 to 2001-01-31";
  const std::string strike = "overlaps Recaidad de Accidente (TincidenciasIT) 2001-03-01 to 2001-03-31";
  const std::string birth = "overlaps Maternidad (TincidenciasIT) 2001-04-01 to 2001-04-02";
  const std::string open = "Enfermedad (TincidenciasIT) since 2001-01-01";
  const std::string none = " is not in ConTrabajadorConceptos";
  const std::string gone = " has no worker in TrabajadoresFijo";
  const std::string advice[] = {
      "1: Maternidad (TincidenciasIT) 2000-02-01 to 2000-12-31 is outside every situación",
      "2: Accidente (TincidenciasIT) 2001-01-10 to 2001-01-12 " + first,
      "2: Vacaciones (TincidenciasESP) 2001-01-31 to 2001-02-10 " + first,
      "2: Huelga (TincidenciasESP) 2001-03-05 to 2001-03-05 " + strike,
      "2: Vacaciones (TincidenciasESP) 2001-04-01 to 2001-04-30 " + birth,
      "2, situación 001: concepto 004 H. extra (TIncidenciasVar) 2001-02" + none,
      "2, situación 001: concepto 005 (TIncidenciasVar) 2001-03" + none,
      "2, situación 009: concepto 001 Dietas (TIncidenciasVar) 2001-02 has no situación in TrabajadoresVar",
      "3: Vacaciones (TincidenciasESP) 2001-06-01 to 2001-06-10 overlaps " + open,
      "3: Huelga (TincidenciasESP) since 2002-01-01 is open, and so is " + open,
      "3: Accidente (TincidenciasIT) since 2002-05-01 is open, and so is " + open,
      "4: tipo 9 (TincidenciasIT) 2001-02-10 to 2001-02-01 ends before it starts",
      "4: sin tipo (TincidenciasIT) 2001-02-11 to 2001-02-10 ends before it starts",
      "5: has no situación",
      "9: Enfermedad (TincidenciasIT) 2001-02-10 to 2001-02-01" + gone,
      "9, situación 001: concepto 001 Dietas (TIncidenciasVar) 2001-01" + gone,
  };
  std::string lines;
  for (const std::string& line : advice) lines += "advice: worker 0000" + line + "\n";
  const Outcome check = RunHere({"data", "check"});
  EXPECT_EQ(check.out, lines + "16 pieces of advice\n");
  EXPECT_EQ(check.status, 0);

  const auto document = nlohmann::json::parse(RunHere({"data", "check"}, {"--format", "json"}).out);
  EXPECT_EQ(document["advice"][5]["field"], "concepto 004 H. extra (TIncidenciasVar)");
  EXPECT_EQ(document["advice"][5]["value"], "2001-02");
  std::filesystem::remove(DataFile("N0000101.MDB"));
  EXPECT_THAT(RunHere({"data", "check"}).out, HasSubstr("12 pieces of advice\n")) << "none on concepts";
}

// What only another program of the same store can write, into a table without a key: rows without dates take part in
// nothing, and all that is told of them is that their worker is gone.
TEST_F(IncidentAdviceTest, RowsOfAnyContent) {
  std::filesystem::remove(DataFile("Nom00001.MDB"));
  std::vector<TableDef> company = FileOf(FileKind::kCompany).tables;
  for (TableDef& table : company) {
    if (table.name.starts_with("Tincidencias")) table.indexes.clear();
  }
  MakeEngine()->Workspaces(0)->CreateDatabase(DataFile("Nom00001.MDB").string(), company);
  Load("TrabajadoresFijo", "Campo0\n00001\n");
  Load("TrabajadoresVar", "Campo0,Campo1,Campo3\n00001,002,1998-01-01\n");
  sqlite3* store = nullptr;
  sqlite3_open(DataFile("Nom00001.MDB").c_str(), &store);
  EXPECT_EQ(sqlite3_exec(store,
                         "INSERT INTO TincidenciasIT VALUES ('00001', NULL, '1', '2001-01-01', ''), "
                         "('00001', '', '1', '2001-01-02', 'mayo'), ('00001', '', '1', NULL, NULL), "
                         "('00001', '', '1', 'enero', '2001-12-31'), (NULL, NULL, NULL, NULL, NULL), "
                         "(CAST(x'FF' AS TEXT), 5, 7, 'enero', 8.5); "
                         "INSERT INTO TincidenciasESP VALUES ('00001 ', '', '2 ', '2001-06-01', NULL)",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  sqlite3_close(store);
  const Outcome check = RunHere({"data", "check"});
  EXPECT_EQ(check.status, 1);
  EXPECT_THAT(check.out, HasSubstr("\nadvice: worker : sin tipo (TincidenciasIT) since ? has no worker in "
                                   "TrabajadoresFijo\nadvice: worker \\xFF: tipo 7 (TincidenciasIT) ? to ? has no "
                                   "worker in TrabajadoresFijo\n2 pieces of advice\n"));
}

}  // namespace
}  // namespace zendara

// The stored tables from the command line: made, checked, filled and read.
#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>

#include "frame/stored_tables.hpp"
#include "tests/commands/command_folder.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class DataTest : public CommandFolder {
 protected:
  DataTest() { Create(); }
};

TEST_F(DataTest, CreateNeverOverwrites) {
  WriteFile(DataFile("IMPM0999.DAT"), "mine");
  std::filesystem::rename(DataFile("Empresas.mdb"), DataFile("EMPRESAS.MDB"));
  std::filesystem::remove(DataFile("HACIEN01.MDB"));
  const auto files = [this] {
    std::map<std::string, std::string> bytes;
    for (const auto& entry : std::filesystem::directory_iterator(dir_ / "DATOS")) {
      bytes[entry.path().filename().string()] = ReadFile(entry.path());
    }
    return bytes;
  };
  const auto before = files();
  EXPECT_EQ(RunHere({"data", "create"}).out, "created HACIEN01.MDB\n");
  auto after = files();
  EXPECT_EQ(after.erase("HACIEN01.MDB"), 1U);
  EXPECT_TRUE(after == before);

  ASSERT_EQ(RunHere({"data", "create"}, {"--name", "Ñandú, S.A."}).status, 0);
  EXPECT_THAT(RunHere({"data", "create"}, {"--name", "Otra"}).out, HasSubstr("company 00001 is there already"));
  EXPECT_EQ(Dump("EmpresasNom"), "Campo0,Campo1,Campo2\r\n00001,\"Ñandú, S.A.\",\r\n");
  EXPECT_EQ(RunHere({"data", "dump"}, {"EmpresasNom", "--file", "EMPRESAS.MDB"}).out, Dump("EmpresasNom"));
}

TEST_F(DataTest, CheckNamesEachFault) {
  const auto expect_only = [this](const std::string& fault) {
    const Outcome check = RunHere({"data", "check"});
    EXPECT_EQ(check.status, 1);
    EXPECT_THAT(check.out, StartsWith(fault));
    EXPECT_EQ(std::count(check.out.begin(), check.out.end(), '\n'), 1) << check.out;
    EXPECT_EQ(check.err, "");
  };
  const std::pair<std::string, std::function<void(TableDef&)>> tables[] = {
      {"FPago: missing table", [](TableDef& t) { t.columns.clear(); }},
      {"FPago: missing column Campo1", [](TableDef& t) { t.columns.pop_back(); }},
      {"FPago: column 1 is Nombre, not Campo1", [](TableDef& t) { t.columns[1].name = "Nombre"; }},
      {"FPago: Campo1 is text 31, not text 30", [](TableDef& t) { t.columns[1].width = 31; }},
      {"TrabajadoresFijo: Campo19 is text 0, not date", [](TableDef& t) { t.columns[19] = {"Campo19"}; }},
      {"TrabajadoresVar: missing index ICampo0", [](TableDef& t) { t.indexes.pop_back(); }},
      {"FPago: Icampo0 is index on 0, not primary key on 0", [](TableDef& t) { t.indexes[0].primary = false; }}};
  for (const auto& [fault, change] : tables) {
    std::filesystem::remove(DataFile("Nom00001.MDB"));
    std::vector<TableDef> company = FileOf(FileKind::kCompany).tables;
    change(*std::ranges::find(company, fault.substr(0, fault.find(':')), &TableDef::name));
    std::erase_if(company, [](const TableDef& table) { return table.columns.empty(); });
    MakeEngine()->Workspaces(0)->CreateDatabase(DataFile("Nom00001.MDB").string(), company);
    expect_only("Nom00001.MDB: " + fault);
  }
  const std::pair<std::string, std::function<void()>> files[] = {
      {"N0000101.MDB: missing file", [&] { std::filesystem::remove(DataFile("N0000101.MDB")); }},
      {"HACIEN01.MDB: 3343  ", [&] { WriteFile(DataFile("HACIEN01.MDB"), std::string(4096, 'x')); }},
      {"IMPM1600.DAT: missing file", [&] { std::filesystem::remove(DataFile("IMPM1600.DAT")); }},
      {"IMPM1600.DAT: 255 bytes, not 256", [&] { WriteFile(DataFile("IMPM1600.DAT"), std::string(255, ' ')); }},
      {"IMPM1600.DAT: is no file",
       [&] { std::filesystem::remove(DataFile("IMPM1600.DAT")), mkfifo(DataFile("IMPM1600.DAT").c_str(), 0600); }},
      {"Nom00001.MDB: FPago: key 7: Campo0: \"7\" has 1 characters, not 2", [&] { Load("FPago", "Campo0\n7\n"); }}};
  for (const auto& [fault, damage] : files) {
    std::filesystem::remove_all(dir_ / "DATOS");
    Create();
    damage();
    expect_only(fault);
  }
  // A page that nothing holds.
  std::string bytes = ReadFile(DataFile("Nom00001.MDB")) + std::string(4096, '\0');
  ++bytes[31];
  WriteFile(DataFile("Nom00001.MDB"), bytes);
  EXPECT_THAT(RunHere({"data", "check"}).out, HasSubstr(" is never used"));
}

// The first worker is as he should be, but for his last situación.
TEST_F(DataTest, CheckAdvisesOnWorkersAndSituaciones) {
  const std::pair<std::string, std::string> tables[] = {
      {"Calles", "Campo0\nCLL\n"},
      {"FPago", "Campo0\n01\n"},
      {"ConEmpresaConceptos", "Campo0,Campo2,Campo4\n0000101,01,001\n0000202,02,001\n"},
      {"Epigrafes", "Campo0\n097\n"},
      {"Contratos", "Campo0,Campo1\n001,01\n002,02\n"},
      {"Centros", "Campo0\n001\n"},
      {"Secciones", "Campo0\n001\n"},
      {"TrabajadoresFijo",
       "Campo0,Campo4,Campo5,Campo6,Campo7,Campo8,Campo9,Campo23,Campo85,Campo86,Campo87,Campo88,Campo89\n"
       "00001,1,12345678Z,28,12345678,40,CLL,x-1234567-l,1234,5678,06,1234567890,01\n"
       "00002,1,12345678A,,,,CNO,,,,,,02\n"
       "00003,6,X1234567M,28,12345678,41,,12345678,1234,5678,60,1234567890,\n"
       "00004,2,PA000022,08,01234567,74,,,,,,,\n"
       "00005,9,A12345678,,,,cll,,1234,,,,\n"
       "00006,,,,,,,,,,,,\n"},
      {"TrabajadoresVar",
       "Campo0,Campo1,Campo3,Campo4,Campo10,Campo12,Campo15,Campo17,Campo19,Campo20,Campo26,Campo49,Campo51\n"
       "00001,001,1998-01-01,2000-12-31,0000101,01,097,11,001,01,,001,001\n"
       "00001,002,2001-01-01,,0000101,01,097,,001,01,,001,\n"
       "00001,003,2002-01-01,,,,,,,,,,\n"
       "00002,001,2001-01-01,,0000101,02,113,12,001,02,01,009,002\n"
       "00003,001,1998-01-01,,0000303,01,,,003,01,,,\n"
       "00004,001,2001-02-01,2001-01-31,,,,,,,,,\n"
       "00004,002,1990-01-01,1999-12-31,,,,,,,,,\n"
       "00004,003,1991-01-01,1991-12-31,,,,,,,,,\n"
       "00004,004,1999-12-31,2000-01-31,,,,,,,,,\n"
       "00005,001,2000-01-01,2001-01-01,,,,,,,,,\n"
       "00007,001,2000-01-01,2000-12-31,,,,,,,,,\n"},
      {"ConTrabajadorConceptos",
       "Campo0,Campo1,Campo2,Campo3\n01,00001,002,001\n01,00001,002,002\n01,00003,001,001\n02,00002,001,001\n"},
  };
  for (const auto& [table, csv] : tables) ASSERT_EQ(Load(table, csv).status, 0) << table;
  const std::string advice[] = {
      "worker 00001, situación 003: fecha inicio 2002-01-01 is within situación 002",
      "worker 00002: siglas CNO is not in Calles",
      "worker 00002: forma de pago 02 is not in FPago",
      "worker 00002: identificación 12345678A has not the letter of its number",
      "worker 00002, situación 001: categoría 0000101 02 is not in ConEmpresaConceptos",
      "worker 00002, situación 001: epígrafe 113 is not in Epigrafes",
      "worker 00002, situación 001: tipo de contrato 001 02 is not in Contratos",
      "worker 00002, situación 001: centro 009 is not in Centros",
      "worker 00002, situación 001: sección 002 is not in Secciones",
      "worker 00002, situación 001: grupo de tarifa 12 is none of the tariff groups",
      "worker 00003: identificación X1234567M has not the letter of its number",
      "worker 00003: afiliación 28 12345678 41 has not the control digits of its number",
      "worker 00003: N.I.F. del cónyuge 12345678 has not the letter of its number",
      "worker 00003: cuenta 1234 5678 60 1234567890 has not the control digits of its number",
      "worker 00003, situación 001: convenio 0000303 is not in ConEmpresaConceptos",
      "worker 00003, situación 001: contrato 003 is not in Contratos",
      "worker 00004, situación 001: fecha fin 2001-01-31 is before fecha inicio 2001-02-01",
      "worker 00004, situación 003: fecha inicio 1991-01-01 is within situación 002",
      "worker 00004, situación 004: fecha inicio 1999-12-31 is within situación 002",
      "worker 00005: cuenta 1234 has not the control digits of its number",
      "worker 00005, situación 001: has no concepts in 2001",
      "worker 00006: has no situación",
      "worker 00007, situación 001: there is no such worker",
  };
  std::string lines;
  for (const std::string& line : advice) lines += "advice: " + line + "\n";
  const Outcome check = RunHere({"data", "check"});
  EXPECT_EQ(check.out, lines + "23 pieces of advice\n");
  EXPECT_EQ(check.status, 0);

  std::filesystem::remove(DataFile("N0000101.MDB"));
  const Outcome json = RunHere({"data", "check"}, {"--format", "json"});
  EXPECT_EQ(json.status, 1);
  const auto document = nlohmann::json::parse(json.out);
  EXPECT_EQ(document["faults"].dump(), R"([{"place":"N0000101.MDB","text":"missing file"}])");
  EXPECT_EQ(document["advice"].size(), 21U) << "neither centres nor concepts";
  EXPECT_EQ(document["advice"][5].dump(), R"({"field":"epígrafe","situacion":"001","text":"is not in Epigrafes",)"
                                          R"("value":"113","worker":"00002"})");
}

// What only another program of the same store can write.
TEST_F(DataTest, ValuesThatAreNoneOfTheirColumnsAreNamedAndDumpedAsTheyAre) {
  Load("TrabajadoresFijo", "Campo0,Campo1,Campo19\n00001,Uno,1960-01-01\n00002,Dos,1960-01-02\n");
  sqlite3* store = nullptr;
  sqlite3_open(DataFile("Nom00001.MDB").c_str(), &store);
  EXPECT_EQ(sqlite3_exec(store,
                         "UPDATE TrabajadoresFijo SET Campo1 = CAST(x'4EF1' AS TEXT), Campo19 = '31/02/60', "
                         "Campo3 = 'dieciséis letras' WHERE rowid = 1",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  sqlite3_close(store);
  const std::string row = "Nom00001.MDB: TrabajadoresFijo: key 00001: ";
  EXPECT_THAT(RunHere({"data", "check"}).out,
              StartsWith(row + "Campo1: \"N\\xF1\" is no UTF-8\n" + row +
                         "Campo3: \"dieciséis letras\" has 16 characters, more than 15\n" + row +
                         "Campo19: \"31/02/60\" is no date\nadvice: "));
  const Outcome dump = RunHere({"data", "dump"}, {"TrabajadoresFijo"});
  EXPECT_EQ(dump.status, 1);
  EXPECT_EQ(dump.err, "zendara: " + row + "Campo1: \"N\\xF1\" is no UTF-8; 2 more, all shown by `data check`\n");
  EXPECT_THAT(dump.out,
              testing::AllOf(HasSubstr("\r\n00001,N\xF1,,"), HasSubstr(",31/02/60,"), HasSubstr("00002,Dos,")));
}

// As a user for whom permissions hold.
TEST_F(DataTest, AFolderThatMayOnlyBeReadIsReadAndOneThatMayNotBeEnteredIsSaidToBeOne) {
  using std::filesystem::perms;
  Load("FPago", "Campo0\n01\n");
  for (const auto& entry : std::filesystem::directory_iterator(dir_ / "DATOS")) permissions(entry, perms(0444));
  std::filesystem::permissions(dir_, perms(0755));
  const auto run = [&](perms folder, const std::vector<std::string>& words, const std::vector<std::string>& more = {}) {
    std::filesystem::permissions(dir_ / "DATOS", folder);
    const uid_t user = geteuid();
    const uid_t nobody = 65534;
    EXPECT_TRUE(user != 0 || setresuid(nobody, nobody, 0) == 0);
    const Outcome outcome = RunHere(words, more);
    EXPECT_EQ(setresuid(user, user, user), 0);
    std::filesystem::permissions(dir_ / "DATOS", perms(0755));
    return outcome.out + outcome.err;
  };
  EXPECT_EQ(run(perms(0555), {"data", "dump"}, {"FPago"}), "Campo0,Campo1\r\n01,\r\n");
  EXPECT_EQ(run(perms(0555), {"data", "check"}) + run(perms(0555), {"data", "create"}), "");
  EXPECT_THAT(run(perms(0555), {"rate"}), HasSubstr("table IRPF of ")) << "which has no row";
  EXPECT_THAT(run(perms(0555), {"data", "load"}, {"FPago", (dir_ / "in.csv").string()}), HasSubstr("3027  "));
  const std::vector<std::string> commands[] = {{"data", "check"}, {"data", "create"}, {"rate"}};
  for (const auto& command : commands) EXPECT_THAT(run(perms(0), command), HasSubstr("Permission denied"));
}

TEST_F(DataTest, DumpLoadsBackToTheSameRows) {
  const Outcome load = Load("TrabajadoresFijo",
                            "Campo0,Campo1,Campo2,Campo3,Campo5,campo19\r\n"
                            "00001,\"Núñez, \"\"el\"\"\",\"línea 1\r\nlínea 2\",\"\",,1899-12-29\r\n"
                            "00002, blancos ,\"\n\",😀,NULL,9999-12-31T23:59:59\r\n");
  EXPECT_EQ(load.out, "Nom00001.MDB: TrabajadoresFijo: 2 rows loaded\n") << load.err;
  const std::string dump = Dump("trabajadoresfijo");
  EXPECT_THAT(dump, HasSubstr("\r\n00002, blancos ,\"\n\",😀,,NULL,"));
  EXPECT_THAT(dump, HasSubstr(",9999-12-31T23:59:59,"));

  std::filesystem::remove(DataFile("Nom00001.MDB"));
  Create();
  ASSERT_EQ(Load("TrabajadoresFijo", dump).status, 0);
  EXPECT_EQ(Dump("TrabajadoresFijo"), dump);

  // A table of one column, where a blank line is a row, and without a primary key.
  const std::string csv = "Campo0\r\nb\r\n\r\n\"\"\r\na\r\n";
  Load("ListadosCON", csv);
  EXPECT_EQ(Dump("ListadosCON"), csv);
}

TEST_F(DataTest, ALoadIsAllOrNothing) {
  ASSERT_EQ(Load("TrabajadoresFijo", "Campo0,Campo1\n00001,Uno\n\n").status, 0);
  const std::string before = Dump("TrabajadoresFijo");
  const struct {
    std::string csv;
    std::string cause;
  } cases[] = {
      {"", "line 1: there is no header"},
      {"Campo0,Campo91\n00002,x\n", "line 1: the table has no column \"Campo91\""},
      {"Campo0,campo0\n00002,00003\n", "line 1: column Campo0 is named twice"},
      {"Campo0,Campo1\n00002,\"x\ny\"\n00001,z\n", "line 4: 3022  "},
      {"Campo1\nx\n", "line 2: 3058  "},
      {"Campo0,Campo1\n00002,x\n00003,x,y\n", "line 3: 3 fields, the header has 2"},
      {"Campo0,Campo1\n00002,x\n00003,ñññññññññññññññññññññ\n", "line 3: Campo1: 3163  "},
      {"Campo0,Campo19\n00002,2001-02-28\n00003,2001-02-29\n", "line 3: Campo19: \"2001-02-29\" is no date"},
  };
  for (const auto& c : cases) {
    const Outcome load = Load("TrabajadoresFijo", c.csv);
    EXPECT_EQ(load.status, 1);
    EXPECT_THAT(load.err, testing::AllOf(HasSubstr("in.csv: " + c.cause), testing::EndsWith("; no row was loaded\n")));
    EXPECT_EQ(Dump("TrabajadoresFijo"), before) << c.cause;
  }
}

TEST_F(DataTest, NamesThatAreNotThere) {
  EXPECT_THAT(RunHere({"data", "dump"}, {"Nada"}).err, HasSubstr("no database file holds a table Nada"));
  EXPECT_THAT(RunHere({"data", "dump"}, {"IRPF", "--file", "x.mdb"}).err, HasSubstr("x.mdb is no database file"));
  EXPECT_THAT(RunHere({"data", "dump"}, {"IRPF", "--file", "Empresas.mdb"}).err, HasSubstr("3011  "));
  EXPECT_THAT(RunHere({"data", "load"}, {"IRPF", "none.csv"}).err, HasSubstr("none.csv: No such file"));
  std::filesystem::remove_all(dir_ / "DATOS");
  EXPECT_THAT(RunHere({"rate"}).err, testing::MatchesRegex("zendara: opening .*Nom00a01.MDB: 3044  .*\n"));
}

}  // namespace
}  // namespace zendara

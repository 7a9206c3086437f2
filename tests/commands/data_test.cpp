// The stored tables from the command line: made, checked, filled and read.
#include <gmock/gmock.h>

#include <map>

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
  DataTest() {
    const Outcome create = RunHere({"data", "create"});
    EXPECT_EQ(create.status, 0) << create.err;
  }

  // The company's file anew, with one table changed.
  void RemakeCompany(const std::string& table, const std::function<void(TableDef&)>& change) const {
    std::filesystem::remove(DataFile("Nom00001.MDB"));
    const std::unique_ptr<Engine> engine = MakeSqliteEngine();
    const auto database = engine->Workspaces(0)->CreateDatabase(DataFile("Nom00001.MDB").string());
    for (TableDef definition : FileOf(FileKind::kCompany).tables) {
      if (definition.name == table) change(definition);
      if (!definition.columns.empty()) database->CreateTable(definition);
    }
  }
};

TEST_F(DataTest, CreateNeverOverwrites) {
  EXPECT_EQ(RunHere({"data", "check"}).status, 0);
  ASSERT_EQ(Load("FPago", "Campo0,Campo1\n01,Talón\n").status, 0);
  WriteFile(DataFile("IMPM0999.DAT"), "mine");
  std::filesystem::rename(DataFile("Empresas.mdb"), DataFile("EMPRESAS.MDB"));
  std::filesystem::remove(DataFile("HACIEN01.MDB"));
  std::map<std::string, std::string> before;
  for (const auto& entry : std::filesystem::directory_iterator(dir_ / "DATOS")) {
    before[entry.path().filename().string()] = ReadFile(entry.path());
  }
  const Outcome again = RunHere({"data", "create"});
  EXPECT_EQ(again.status, 0) << again.err;
  EXPECT_EQ(again.out, "created HACIEN01.MDB\n");
  for (const auto& [name, bytes] : before) EXPECT_EQ(ReadFile(DataFile(name)), bytes) << name;
  std::size_t files = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(dir_ / "DATOS")) ++files;
  EXPECT_EQ(files, before.size() + 1);
}

TEST_F(DataTest, CreateNamesTheCompanyOnce) {
  ASSERT_EQ(RunHere({"data", "create"}, {"--name", "Ñandú, S.A."}).status, 0);
  const Outcome again = RunHere({"data", "create"}, {"--name", "Otra"});
  EXPECT_THAT(again.out, HasSubstr("company 00001 is there already"));
  EXPECT_EQ(Dump("EmpresasNom"), "Campo0,Campo1,Campo2\r\n00001,\"Ñandú, S.A.\",\r\n");
  EXPECT_EQ(RunHere({"data", "dump"}, {"EmpresasNom", "--file", "EMPRESAS.MDB"}).out, Dump("EmpresasNom"));
}

TEST_F(DataTest, CheckNamesEachFault) {
  const auto text_column = [](TableDef& table, std::size_t i) { table.columns[i] = {table.columns[i].name}; };
  const struct {
    std::string fault;
    std::function<void()> damage;
  } cases[] = {
      {"N0000101.MDB: missing file", [&] { std::filesystem::remove(DataFile("N0000101.MDB")); }},
      {"HACIEN01.MDB: 3343  ", [&] { WriteFile(DataFile("HACIEN01.MDB"), std::string(4096, 'x')); }},
      {"IMPM1600.DAT: missing file", [&] { std::filesystem::remove(DataFile("IMPM1600.DAT")); }},
      {"IMPM1600.DAT: 255 bytes, not 256", [&] { WriteFile(DataFile("IMPM1600.DAT"), std::string(255, ' ')); }},
      {"Nom00001.MDB: FPago: missing table", [&] { RemakeCompany("FPago", [](TableDef& t) { t.columns.clear(); }); }},
      {"Nom00001.MDB: FPago: missing column Campo1",
       [&] { RemakeCompany("FPago", [](TableDef& t) { t.columns.pop_back(); }); }},
      {"Nom00001.MDB: FPago: column 1 is Nombre, not Campo1",
       [&] { RemakeCompany("FPago", [](TableDef& t) { t.columns[1].name = "Nombre"; }); }},
      {"Nom00001.MDB: FPago: Campo1 is text 31, not text 30",
       [&] { RemakeCompany("FPago", [](TableDef& t) { t.columns[1].width = 31; }); }},
      {"Nom00001.MDB: TrabajadoresFijo: Campo19 is text 0, not date",
       [&] { RemakeCompany("TrabajadoresFijo", [&](TableDef& t) { text_column(t, 19); }); }},
      {"Nom00001.MDB: TrabajadoresVar: missing index ICampo0",
       [&] { RemakeCompany("TrabajadoresVar", [](TableDef& t) { t.indexes.pop_back(); }); }},
      {"Nom00001.MDB: FPago: Icampo0 is index on 0, not primary key on 0",
       [&] { RemakeCompany("FPago", [](TableDef& t) { t.indexes[0].primary = false; }); }},
      {"Nom00001.MDB: FPago: Campo0 \"7\" has 1 characters, not 2", [&] { Load("FPago", "Campo0\n7\n"); }},
  };
  for (const auto& c : cases) {
    std::filesystem::remove_all(dir_ / "DATOS");
    ASSERT_EQ(RunHere({"data", "create"}).status, 0);
    c.damage();
    const Outcome check = RunHere({"data", "check"});
    EXPECT_EQ(check.status, 1);
    EXPECT_THAT(check.out, StartsWith(c.fault));
    EXPECT_EQ(std::count(check.out.begin(), check.out.end(), '\n'), 1) << check.out;
    EXPECT_EQ(check.err, "");
  }
}

TEST_F(DataTest, CheckFindsADamagedPage) {
  std::string csv = "Campo0,Campo1\n";
  for (int i = 0; i < 1000; ++i) csv += std::to_string(1000 + i).substr(1) + ",Sección\n";
  ASSERT_EQ(Load("Secciones", csv).status, 0);
  std::string bytes = ReadFile(DataFile("Nom00001.MDB"));
  bytes.replace(bytes.size() - 8192, 4096, 4096, '\xFF');
  WriteFile(DataFile("Nom00001.MDB"), bytes);
  const Outcome check = RunHere({"data", "check"});
  EXPECT_EQ(check.status, 1);
  EXPECT_THAT(check.out, StartsWith("Nom00001.MDB: "));
}

TEST_F(DataTest, DumpLoadsBackToTheSameRows) {
  const std::string rows =
      "00001,\"Núñez, \"\"el\"\"\",\"línea 1\r\nlínea 2\",\"\",,1899-12-29\r\n"
      "00002, blancos ,\"\n\",😀,NULL,0100-01-01\r\n"
      "00003,,\"\",;,\"\"\"\",9999-12-31T23:59:59\r\n"
      "00004,'--,\\n,\t,%,2030-01-01\r\n";
  const Outcome load = Load("TrabajadoresFijo", "Campo0,Campo1,Campo2,Campo3,Campo5,campo19\r\n" + rows);
  ASSERT_EQ(load.status, 0) << load.err;
  EXPECT_EQ(load.out, "Nom00001.MDB: TrabajadoresFijo: 4 rows loaded\n");
  const std::string dump = Dump("trabajadoresfijo");
  EXPECT_THAT(dump, HasSubstr("\r\n00002, blancos ,\"\n\",😀,,NULL,"));
  EXPECT_THAT(dump, HasSubstr(",0100-01-01,"));
  EXPECT_THAT(dump, HasSubstr(",9999-12-31T23:59:59,"));

  std::filesystem::remove(DataFile("Nom00001.MDB"));
  ASSERT_EQ(RunHere({"data", "create"}).status, 0);
  ASSERT_EQ(Load("TrabajadoresFijo", dump).status, 0);
  EXPECT_EQ(Dump("TrabajadoresFijo"), dump);

  ASSERT_EQ(Load("IRPF", "Campo2,Campo0\n0.1,-1234.5\n5e-324,1e+300\n").status, 0);
  const std::string irpf = Dump("IRPF");
  EXPECT_THAT(irpf, HasSubstr("\r\n-1234.5,,0.1,,"));
  EXPECT_THAT(irpf, HasSubstr("\r\n1e+300,,5e-324,,"));
}

// A table of one column, where a blank line is a row, and one without a primary key.
TEST_F(DataTest, RowsOfNullInOneColumn) {
  const std::string csv = "Campo0\r\nb\r\n\r\n\"\"\r\na\r\n";
  ASSERT_EQ(Load("ListadosCON", csv).status, 0);
  EXPECT_EQ(Dump("ListadosCON"), csv);
}

TEST_F(DataTest, ALoadIsAllOrNothing) {
  ASSERT_EQ(Load("TrabajadoresFijo",
                 "\xEF\xBB\xBF"
                 "Campo0,Campo1\n00001,Uno\n\n")
                .status,
            0);
  const std::string before = Dump("TrabajadoresFijo");
  const struct {
    std::string csv;
    std::string cause;
  } cases[] = {
      {"", "line 1: there is no header"},
      {"Campo0,Campo91\n00002,x\n", "line 1: the table has no column \"Campo91\""},
      {"Campo0,campo0\n00002,00003\n", "line 1: column Campo0 is named twice"},
      {"Campo0,Campo1\n00002,\"x\ny\"\n00001,z\n", "line 4: 3022  "},
      {"Campo0,Campo1\n00002,x\n,z\n", "line 3: 3058  "},
      {"Campo1\nx\n", "line 2: 3058  "},
      {"Campo0,Campo1\n00002,x\n00003,x,y\n", "line 3: 3 fields, the header has 2"},
      {"Campo0,Campo1\n00002,x\n00003\n", "line 3: 1 fields, the header has 2"},
      {"Campo0,Campo1\n00002,x\n00003,ñññññññññññññññññññññ\n", "line 3: Campo1: 3163  "},
      {"Campo0,Campo19\n00002,2001-02-28\n00003,2001-02-29\n", "line 3: Campo19: \"2001-02-29\" is no date"},
      {"Campo0,Campo19\n00002,\"\"\n", "line 2: Campo19: \"\" is no date"},
      {"Campo0,Campo1\n00002,\xFF\n", "line 2: field 2 is not UTF-8"},
      {"Campo0,Campo1\n00002,x\n00003,\"y\n", "line 3: a quoted field is not closed"},
  };
  for (const auto& c : cases) {
    const Outcome load = Load("TrabajadoresFijo", c.csv);
    EXPECT_EQ(load.status, 1);
    EXPECT_EQ(load.out, "");
    EXPECT_THAT(load.err, HasSubstr("in.csv: " + c.cause));
    EXPECT_THAT(load.err, testing::EndsWith("; no row was loaded\n"));
    EXPECT_EQ(Dump("TrabajadoresFijo"), before) << c.cause;
  }
  EXPECT_THAT(Load("IRPF", "Campo0\n\"1,5\"\n").err, HasSubstr("line 2: Campo0: \"1,5\" is no number"));
}

TEST_F(DataTest, NamesThatAreNotThere) {
  EXPECT_THAT(RunHere({"data", "dump"}, {"Nada"}).err, HasSubstr("no database file holds a table Nada"));
  EXPECT_THAT(RunHere({"data", "dump"}, {"IRPF", "--file", "x.mdb"}).err, HasSubstr("x.mdb is no database file"));
  EXPECT_THAT(RunHere({"data", "dump"}, {"IRPF", "--file", "Empresas.mdb"}).err, HasSubstr("3011  "));
  const Outcome load = RunHere({"data", "load"}, {"IRPF", (dir_ / "none.csv").string()});
  EXPECT_EQ(load.status, 1);
  EXPECT_THAT(load.err, HasSubstr("none.csv: No such file"));
}

}  // namespace
}  // namespace zendara

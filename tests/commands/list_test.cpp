// Listings from the command line: what the screens make of the options, and where it goes.
#include <gmock/gmock.h>

#include "support/pdf.hpp"
#include "tests/commands/command_folder.hpp"

namespace zendara {
namespace {

using testing::HasSubstr;

class ListTest : public CommandFolder {
 protected:
  ListTest() {
    Create();
    Put("Centros", "Campo0,Campo1\n001,Norte\n002,Sur\n");
    Put("TrabajadoresFijo",
        "Campo0,Campo1,Campo2,Campo3\n00001,Gil,Sanz,Eva\n00002,Díaz,Rey,Ana\n00003,Abad,Paz,Luis\n");
    Put("TrabajadoresVar",
        "Campo0,Campo1,Campo3,Campo5,Campo6,Campo49,Campo51\n"
        "00001,001,2000-01-01,2000-01-01,2000-06-30,001,001\n00001,002,2001-01-01,2001-01-01,,001,001\n"
        "00002,001,2001-02-01,2001-02-01,,001,001\n00003,001,2001-03-01,2001-03-01,,002,001\n");
    Put("TincidenciasIT",
        "Campo0,Campo1,Campo2,Campo3,Campo4\n00001,Gil,1,2001-02-01,2001-02-10\n00001,Gil,3,2001-05-01,\n"
        "00003,Abad,2,2001-03-01,2001-06-30\n");
    Put("TIncidenciasVar",
        "Campo0,Campo1,Campo2,Campo3,Campo4,Campo5,Campo6,Campo7\n03,00002,Díaz,001,004,Dietas,2500,6\n"
        "12,00001,Gil,001,004,Dietas,580,29\n");
  }
  void Put(const std::string& table, const std::string& csv) const {
    const Outcome load = Load(table, csv);
    EXPECT_EQ(load.status, 0) << load.err;
  }
};

TEST_F(ListTest, TheScreensGetWhatTheOptionsSay) {
  const std::string it =
      "Relación Numerica de Incidencias\n\n"
      "Nº Empleado  Nombre  Incidencia    Fecha Inicio  Fecha Fin\n"
      "-----------  ------  ------------  ------------  ---------\n"
      "      00001  Gil     1 Enfermedad  01/02/01      10/02/01\n"
      "                     3 Accidente   01/05/01\n";
  const std::string last = "      00003  Abad    2 Maternidad  01/03/01      30/06/01\n";
  EXPECT_EQ(RunHere({"list", "it"}).out, it + last + "\n3 líneas\n");
  EXPECT_EQ(RunHere({"list", "it"}, {"--to", "1"}).out, it + "\n2 líneas\n");

  const struct {
    std::vector<std::string> words;
    const char* rows;  // as CSV; without line ends
  } cases[] = {
      {{"var"}, "12,00001,Gil,001,004,Dietas,580,29"},
      {{"var", "--month", "3", "--from", "2"}, "03,00002,Díaz,001,004,Dietas,2500,6"},
      {{"workers", "--data", "variable", "--centre-to", "1"},
       "00002,Díaz Rey Ana,01/02/01,,,,,,|00001,Gil Sanz Eva,01/01/00,30/06/00,,,,,|,,01/01/01,,,,,,"},
      {{"workers", "--data", "variable", "--centre-to", "1", "--by", "number"},
       "00001,Gil Sanz Eva,01/01/00,30/06/00,,,,,|,,01/01/01,,,,,,|00002,Díaz Rey Ana,01/02/01,,,,,,"},
      {{"workers", "--group", "section", "--centre-from", "2"}, "00003,Abad Paz Luis,  ,,     \u0020\u0020,,,"},
  };
  for (const auto& [words, rows] : cases) {
    std::vector<std::string> command = {"list"};
    command.insert(command.end(), words.begin(), words.end());
    const std::filesystem::path path = dir_ / "a.csv";
    std::filesystem::remove(path);
    const Outcome run = RunHere(command, {"--csv", path.string()});
    EXPECT_EQ(run.status, 0) << run.err;
    std::string found = ReadFile(path);
    found = found.substr(found.find("\r\n") + 2);
    for (std::size_t end = 0; (end = found.find("\r\n")) != std::string::npos;) {
      found.replace(end, 2, end + 2 == found.size() ? "" : "|");
    }
    EXPECT_EQ(found, rows);
  }
}

TEST_F(ListTest, FilesAreNewAndNamed) {
  const std::string pdf = dir_ / "a.pdf";
  const std::string xlsx = dir_ / "a.xlsx";
  const std::string csv = dir_ / "a.csv";
  const Outcome run = RunHere({"list", "it"}, {"--pdf", pdf, "--xlsx", xlsx, "--csv", csv, "--bom"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, pdf + ": 3 líneas\n" + xlsx + ": 3 líneas\n" + csv + ": 3 líneas\n");
  EXPECT_THAT(PdfText(pdf), HasSubstr("2 Maternidad"));
  EXPECT_THAT(ReadFile(csv), testing::StartsWith("\xEF\xBB\xBFNº Empleado;Nombre;"));
  EXPECT_THAT(ReadFile(xlsx), testing::StartsWith("PK"));
}

TEST_F(ListTest, WhatGoesWrongIsOneLine) {
  WriteFile(dir_ / "there.csv", "mine");
  const std::string there = dir_ / "there.csv";
  const struct {
    std::vector<std::string> words;
    std::vector<std::string> more;
    int status;
    const char* said;
  } cases[] = {
      {{"list", "it"}, {"--from", "2"}, 1, "No existe ese trabajador o no tiene incidencias registradas"},
      {{"list", "var"}, {"--month", "5"}, 1, "No hay Incidencias en ese mes"},
      {{"list", "esp"}, {}, 1, "Es preciso especificar De Trabajador"},
      {{"list", "workers"}, {"--centre-from", "2", "--centre-to", "1"}, 1, "El código de Centro inicial"},
      {{"list", "workers"}, {"--centre-from", "7", "--centre-to", "7"}, 1, "No se ha encontrado ningún registro"},
      {{"list", "it"}, {"--csv", there}, 1, "3012"},
      {{"list", "it"}, {"--xlsx", (dir_ / "none" / "a.xlsx").string()}, 1, "none/a.xlsx"},
      {{"list", "it"}, {"--read-only"}, 2, "written to a table of the company"},
      {{"list", "it"}, {"--month", "3"}, 2, "--month"},
      {{"list", "workers"}, {"--section-to", "1234"}, 2, "1234"},
      {{"list"}, {}, 2, "list --help"},
  };
  for (const auto& [words, more, status, said] : cases) {
    const Outcome run = RunHere(words, more);
    EXPECT_EQ(run.status, status) << said;
    EXPECT_THAT(run.err, testing::AllOf(testing::MatchesRegex("zendara: [^\n]*\n"), HasSubstr(said)));
    EXPECT_EQ(run.out, "");
  }
  EXPECT_EQ(ReadFile(there), "mine");
}

}  // namespace
}  // namespace zendara

// The demonstration company, as the commands show it.
#include "apps/demo/demo_company.hpp"

#include <gmock/gmock.h>

#include "tests/commands/command_folder.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

class DemoTest : public CommandFolder {
 protected:
  Outcome Write(const std::string& folder, const std::string& workers, const std::string& seed = "1") const {
    return RunWords({"demo", (dir_ / folder).string(), "--workers", workers, "--seed", seed});
  }
  // A command on the company in that folder.
  std::string Out(const std::string& folder, std::vector<std::string> words, const std::string& year = "01") const {
    words.insert(words.end(), {"--dir", (dir_ / folder).string(), "--company", "1", "--year", year});
    return RunWords(words).out;
  }
};

TEST_F(DemoTest, KnownCasesEarnTheSameWhateverTheSeed) {
  for (const char* seed : {"1", "2"}) {
    EXPECT_EQ(Write(seed, std::to_string(kDemoCases), seed).err, "");
    EXPECT_EQ(Out(seed, {"rate", "--format", "csv"}),
              "worker,rate\r\n00001,\"12,70\"\r\n00002,\"7,29\"\r\n00003,0\r\n00004,\"1,34\"\r\n00005,2\r\n00006,18\r\n"
              "00007,\"9,69\"\r\n00008,5\r\n00009,\"32,90\"\r\n00010,\"1,75\"\r\n00011,\"2,01\"\r\n00012,\"3,30\"\r\n"
              "00013,\"7,29\"\r\n00014,\"7,29\"\r\n00015,\"13,85\"\r\n00016,0\r\n00017,\"7,29\"\r\n00018,\"7,29\"\r\n"
              "00019,\"7,29\"\r\n00020,\"15,65\"\r\n00021,0\r\n00022,\"1,14\"\r\n00023,\"2,26\"\r\n");
    // Entered in euros, which only 02 reads rightly.
    EXPECT_THAT(Out(seed, {"rate", "--format", "csv", "--currency", "E", "--worker", "16"}, "02"),
                HasSubstr("00016,\"16,73\"\r\n"));
    for (const char* year : {"00", "01", "02"}) EXPECT_EQ(Out(seed, {"data", "check"}, year), "");
  }
}

TEST_F(DemoTest, DependsOnTheSeedAloneAndALargerOneBeginsWithTheSameWorkers) {
  Write("one", "30");
  Write("again", "30");
  for (const char* table :
       {"TrabajadoresVar", "TincidenciasIT", "TIncidenciasVar", "ConTrabajadorPagas", "Historico"}) {
    EXPECT_EQ(Out("one", {"data", "dump", table}), Out("again", {"data", "dump", table})) << table;
  }
  const std::vector<std::string> workers = {"data", "dump", "TrabajadoresFijo"};
  Write("smaller", "9");
  EXPECT_THAT(Out("one", workers), StartsWith(Out("smaller", workers)));
  Write("other", "9", "2");
  EXPECT_NE(Out("smaller", workers), Out("other", workers));
}

TEST_F(DemoTest, LeavesWhatIsThere) {
  fs::create_directory(dir_ / "Datos");
  WriteFile(dir_ / "Datos/readme.txt", "mine");
  for (const std::string name : {"nom00001.mdb", "HACIEN02.MDB", "IMPM0999.DAT"}) {
    WriteFile(dir_ / "Datos" / name, "mine");
    EXPECT_THAT(Write("", "2").err, HasSubstr("there is a company already: " + (dir_ / "Datos" / name).string()));
    EXPECT_EQ(std::distance(fs::recursive_directory_iterator(dir_), {}), 3);
    EXPECT_EQ(ReadFile(dir_ / "Datos" / name), "mine");
    fs::remove(dir_ / "Datos" / name);
  }
  EXPECT_THAT(Write("Datos/readme.txt", "2").err, HasSubstr("cannot write in"));
  EXPECT_EQ(Write("", "2").status, 0);
  EXPECT_TRUE(fs::exists(dir_ / "Datos/Nom00001.MDB"));
  EXPECT_EQ(std::distance(fs::directory_iterator(dir_), {}), 1) << "nothing stays beside it";
}

}  // namespace
}  // namespace zendara

// The demonstration company, as the commands show it.
#include "apps/demo/demo_company.hpp"

#include <gmock/gmock.h>

#include "tests/commands/command_folder.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class DemoTest : public CommandFolder {
 protected:
  Outcome Write(const std::string& folder = "") const {
    return RunWords({"demo", (dir_ / folder).string(), "--workers", std::to_string(kDemoCases), "--seed", "2"});
  }
};

TEST_F(DemoTest, KnownCasesEarnTheSameWhateverTheSeed) {
  EXPECT_EQ(Write().err, "");
  EXPECT_EQ(RunHere({"rate", "--format", "csv"}).out,
            "worker,rate\r\n00001,\"12,70\"\r\n00002,\"7,29\"\r\n00003,0\r\n00004,\"1,34\"\r\n00005,2\r\n00006,18\r\n"
            "00007,\"9,69\"\r\n00008,5\r\n00009,\"32,90\"\r\n00010,\"1,75\"\r\n00011,\"2,01\"\r\n00012,\"3,30\"\r\n"
            "00013,\"7,29\"\r\n00014,\"7,29\"\r\n00015,\"13,85\"\r\n00016,0\r\n00017,\"7,29\"\r\n00018,\"7,29\"\r\n"
            "00019,\"7,29\"\r\n00020,\"15,65\"\r\n00021,0\r\n00022,\"1,14\"\r\n00023,\"2,26\"\r\n");
  for (const char* year : {"00", "01", "02"}) {
    EXPECT_EQ(RunWords({"data", "check", "--dir", dir_.string(), "--company", "1", "--year", year}).out, "");
  }
}

TEST_F(DemoTest, LeavesWhatIsThere) {
  fs::create_directory(dir_ / "Datos");
  for (const std::string name : {"nom00001.mdb", "HACIEN02.MDB", "IMPM0999.DAT"}) {
    WriteFile(dir_ / "Datos" / name, "mine");
    EXPECT_THAT(Write().err, HasSubstr("there is a company already: " + (dir_ / "Datos" / name).string()));
    EXPECT_EQ(std::distance(fs::recursive_directory_iterator(dir_), {}), 2);
    EXPECT_EQ(ReadFile(dir_ / "Datos" / name), "mine");
    fs::remove(dir_ / "Datos" / name);
  }
  WriteFile(dir_ / "readme.txt", "mine");
  EXPECT_THAT(Write("readme.txt").err, HasSubstr("cannot write in"));
}

}  // namespace
}  // namespace zendara

// Two programs that save workers of one company at once.
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/commands/command_folder.hpp"

namespace zendara {
namespace {

class TwoClerksTest : public CommandFolder {
 protected:
  std::string Play(const std::string& script) const {
    const std::filesystem::path file = dir_ / (std::to_string(getpid()) + ".zs");
    WriteFile(file, "session company=00001 year=01\n" + script);
    const Outcome run = RunWords({"run", file.string(), "--dir", dir_.string()});
    return run.out + run.err;
  }
};

TEST_F(TwoClerksTest, LoseNoRowAndSeeNoError) {
  EXPECT_EQ(RunWords({"demo", dir_.string(), "--workers", "1"}).status, 0);
  std::string numbers = "00001\n";
  std::vector<pid_t> clerks;
  for (const int first : {20000, 70000}) {
    std::string entry = "open Trabajadores\n";
    for (int worker = first; worker < first + 60; ++worker) {
      numbers += std::to_string(worker) + "\n";
      entry += "type \"" + std::to_string(worker) + "\\n\"\n";
      for (const char* field : {"6)\ntype \"1A", "94)\ntype \"010101", "106)\ntype \"113", "110)\ntype \"1",
                                "111)\ntype \"1", "140)\ntype \"1"}) {
        entry += "focus Text1(" + std::string(field) + "\\n\"\n";
      }
      entry += "click Grabar\n";
    }
    clerks.push_back(fork());
    if (clerks.back() == 0) _exit(Play(entry).find("box") == std::string::npos ? 0 : 1);
  }
  for (const pid_t clerk : clerks) {
    int status = 0;
    waitpid(clerk, &status, 0);
    EXPECT_EQ(status, 0);
  }
  for (const char* table : {"TrabajadoresFijo", "TrabajadoresVar"}) {
    EXPECT_EQ(Play("sql Nom00001.MDB \"SELECT Campo0 FROM " + std::string(table) + "\""), numbers);
  }
  EXPECT_EQ(RunHere({"data", "check"}).status, 0);
}

}  // namespace
}  // namespace zendara

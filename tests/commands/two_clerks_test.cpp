// Two programs that save workers of one company at once.
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <utility>

#include "tests/commands/command_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

constexpr int kWorkers = 60;  // of each clerk

class TwoClerksTest : public CommandFolder {
 protected:
  TwoClerksTest() { EXPECT_EQ(RunWords({"demo", dir_.string(), "--workers", "1"}).status, 0); }

  std::filesystem::path Script(int first) const { return dir_ / (std::to_string(first) + ".zs"); }

  // Enters workers from `first` on, in a process of its own.
  pid_t Enter(int first) const {
    const std::filesystem::path script = Script(first);
    std::string text = "session company=00001 year=01\nopen Trabajadores\n";
    for (int i = 0; i < kWorkers; ++i) {
      text += "type \"" + std::to_string(first + i) + "\\n\"\n";
      for (const auto& [field, typed] :
           {std::pair(6, "1A"), {94, "010101"}, {106, "113"}, {110, "1"}, {111, "1"}, {140, "1"}}) {
        text += "focus Text1(" + std::to_string(field) + ")\ntype \"" + typed + "\\n\"\n";
      }
      text += "click Grabar\n";
    }
    WriteFile(script, text);
    const pid_t child = fork();
    if (child != 0) return child;
    const Outcome run = RunWords({"run", script.string(), "--dir", dir_.string()});
    WriteFile(script.string() + ".out", run.out + run.err);
    _exit(run.status);
  }

  // Numbers of all workers in a table of the company.
  std::vector<std::string> Numbers(const std::string& table) const {
    const std::unique_ptr<Engine> engine = MakeEngine();
    const auto rows = engine->Workspaces(0)
                          ->OpenDatabase(DataFile("Nom00001.MDB").string())
                          ->OpenRecordset("select campo0 from " + table + " order by campo0");
    std::vector<std::string> numbers;
    for (; !rows->Eof(); rows->MoveNext()) numbers.push_back(rows->Fields(0).Get().Text());
    return numbers;
  }
};

TEST_F(TwoClerksTest, LoseNoRowAndSeeNoError) {
  std::vector<std::string> numbers = {"00001"};
  std::map<int, pid_t> clerks;
  for (const int first : {20000, 70000}) {
    clerks[first] = Enter(first);
    for (int i = 0; i < kWorkers; ++i) numbers.push_back(std::to_string(first + i));
  }
  for (const auto& [first, clerk] : clerks) {
    int status = 0;
    waitpid(clerk, &status, 0);
    const std::string out = ReadFile(Script(first).string() + ".out");
    EXPECT_EQ(status, 0) << out;
    EXPECT_THAT(out, testing::Not(testing::HasSubstr("box"))) << out;
  }
  EXPECT_EQ(Numbers("TrabajadoresFijo"), numbers);
  EXPECT_EQ(Numbers("TrabajadoresVar"), numbers);
  const Outcome check = RunHere({"data", "check"});
  EXPECT_EQ(check.status, 0) << check.out << check.err;
}

}  // namespace
}  // namespace zendara

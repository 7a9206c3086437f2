// Two programs that save workers of one company at once, in a folder and on a server.
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include "apps/demo/demo_company.hpp"
#include "support/site.hpp"
#include "tests/commands/command_folder.hpp"

namespace zendara {
namespace {

class TwoClerksTest : public CommandFolder, public testing::WithParamInterface<bool> {
 protected:
  void SetUp() override {
    if (!GetParam()) return;
    if (!TestServer()) GTEST_SKIP() << "ZENDARA_TEST_SERVER says of no server";
    server_ = std::make_unique<ServerSite>();
    option_ = "--store";
    place_ = server_->Place();
  }

  void MakeCompany() const {
    const Store store = OpenStore(place_);
    WriteDemoCompany(*store.engine, {.folder = store.folder, .workers = 1});
  }
  Outcome RunOn(std::vector<std::string> words, const std::vector<std::string>& more = {}) const {
    words.insert(words.end(), {option_, place_});
    words.insert(words.end(), more.begin(), more.end());
    return RunWords(words);
  }
  std::string Play(const std::string& script) const {
    const std::filesystem::path file = dir_ / (std::to_string(getpid()) + ".zs");
    WriteFile(file, "session company=00001 year=01\n" + script);
    const Outcome run = RunOn({"run", file.string()});
    return run.out + run.err;
  }

 private:
  std::unique_ptr<ServerSite> server_;
  std::string option_ = "--dir";
  std::string place_ = dir_.string();
};
INSTANTIATE_TEST_SUITE_P(Places, TwoClerksTest, testing::Bool(),
                         [](const auto& on_server) { return on_server.param ? "Server" : "Folder"; });

TEST_P(TwoClerksTest, LoseNoRowAndSeeNoError) {
  MakeCompany();
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
  EXPECT_EQ(RunOn({"data", "check"}, {"--company", "1", "--year", "01"}).status, 0);
}

}  // namespace
}  // namespace zendara

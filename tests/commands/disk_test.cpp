// A disk that fills up or fails, programs that are killed while they write, and several at once: what has its name is
// whole, and the next program finds nothing in its way.
#include <gmock/gmock.h>

#include <set>

#include "support/disk_faults.hpp"
#include "tests/commands/command_folder.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

class DiskTest : public CommandFolder {
 protected:
  std::set<fs::path> Entries() const {
    std::error_code none;
    const fs::directory_iterator entries(dir_ / "DATOS", none);
    return {begin(entries), end(entries)};
  }
  const std::vector<std::string> demo_ = {"demo", dir_.string(), "--workers", "1"};
};

TEST_F(DiskTest, WhatIsCutShortIsNotInTheWayOfTheNext) {
  const auto one_line = [this](const std::vector<std::string>& words) {
    const Outcome run = RunWords(words);
    disk.writes_left = disk.fault_in = -1;
    return run.status == std::count(run.err.begin(), run.err.end(), '\n') ? run.status : 9;
  };
  for (const auto& words : {Here({"data", "create"}), demo_}) {
    RunWords(words);
    const auto whole = Entries();
    for (const Fault fault : {Fault::kFails, Fault::kFullDisk, Fault::kKilled}) {
      for (DiskFault at{fault, 1};; at.at = words == demo_ ? at.at * 3 : at.at + 1) {
        SCOPED_TRACE(testing::PrintToString(at));
        for (const fs::path& file : whole) {
          if (words == demo_ || file.filename() == "HACIEN01.MDB" || file.filename() == "IMPM0999.DAT")
            fs::remove(file);
        }
        const Ending ending = RunWithFault(at, [&] { return one_line(words); });
        EXPECT_TRUE(ending.Killed() || ending.ExitStatus() <= 1);
        // A file may be missing; what is there is whole.
        const Outcome check = RunHere({"data", "check"});
        EXPECT_THAT(check.out + check.err, testing::MatchesRegex("([^\n]*: missing file\n)*"));
        if (words == demo_ && ending.status == 1 << 8) {
          EXPECT_THAT(Entries(), testing::IsEmpty());
        }
        RunWords(words);
        EXPECT_EQ(Entries(), whole);
        if (!ending.reached) break;
      }
    }
    fs::remove_all(dir_ / "DATOS");
  }
}

TEST_F(DiskTest, SeveralAtOnceShareTheWorkOrSayWhoDidIt) {
  for (const auto& [words, winners, files] : {std::tuple(Here({"data", "create"}), 3, 10U), {demo_, 1, 16U}}) {
    std::vector<pid_t> programs(3);
    for (pid_t& program : programs) {
      program = fork();
      if (program != 0) continue;
      const Outcome run = RunWords(words);
      _exit(run.status == 1 && run.err.find("there is a company already") == std::string::npos ? 9 : run.status);
    }
    int done = 0;
    for (const pid_t program : programs) {
      int status = 0;
      waitpid(program, &status, 0);
      EXPECT_LE(WEXITSTATUS(status), 1);
      if (status == 0) ++done;
    }
    EXPECT_EQ(done, winners);
    EXPECT_EQ(RunHere({"data", "check"}).out, "");
    EXPECT_EQ(Entries().size(), files);
    fs::remove_all(dir_ / "DATOS");
  }
}

}  // namespace
}  // namespace zendara

// A disk that fills up or fails, programs that are killed while they write, and several at once: what has its name is
// whole, what was said to be written is there, and the next program finds nothing in its way.
#include <gmock/gmock.h>

#include <set>

#include "support/disk_faults.hpp"
#include "tests/commands/command_folder.hpp"
#include "zendara/engines.hpp"

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
  // A program of its own; what it prints as an error is in the file "err".
  disk_faults::Ending RunWithFault(const DiskFault& fault, const std::vector<std::string>& words) const {
    return zendara::RunWithFault(fault, [&] {
      const Outcome run = RunWords(words);
      disk_faults::armed = false;
      WriteFile(dir_ / "err", run.err);
      return run.status;
    });
  }
  // Done, or one line that says why not.
  void ExpectAClearEnd(const disk_faults::Ending& ending) const {
    if (ending.Killed()) return;
    const std::string err = ReadFile(dir_ / "err");
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), ending.ExitStatus()) << err;
    EXPECT_LE(ending.ExitStatus(), 1) << err;
  }
  // A file may be missing; what is there is whole.
  void ExpectNothingDamaged(const std::string& year) const {
    const Outcome check = RunWords({"data", "check", "--dir", dir_.string(), "--company", "1", "--year", year});
    EXPECT_THAT(check.out, testing::MatchesRegex("([^\n]*: missing file\n)*"));
    EXPECT_EQ(check.err, "");
  }
};

constexpr Fault kFaults[] = {Fault::kFails, Fault::kFullDisk, Fault::kKilled};

TEST_F(DiskTest, AFileOfDataCreateHasItsNameOnlyWhenItIsWhole) {
  Create();
  const auto whole = Entries();
  for (const Fault fault : kFaults) {
    for (DiskFault at{fault, 1};; ++at.at) {
      SCOPED_TRACE(testing::PrintToString(at));
      for (const char* name : {"HACIEN01.MDB", "IMPM0999.DAT"}) fs::remove(DataFile(name));
      const auto ending = RunWithFault(at, Here({"data", "create"}));
      ExpectAClearEnd(ending);
      ExpectNothingDamaged("01");
      Create();
      EXPECT_EQ(Entries(), whole);
      if (!ending.reached) break;
    }
  }
  ExpectNothingDamaged("01");
}

TEST_F(DiskTest, ADemoThatDoesNotComeToItsEndIsNotInTheWayOfTheNext) {
  const std::vector<std::string> demo = {"demo", dir_.string(), "--workers", "1"};
  RunWords(demo);
  const auto whole = Entries();
  for (const Fault fault : kFaults) {
    for (DiskFault at{fault, 1};; at.at *= 3) {
      SCOPED_TRACE(testing::PrintToString(at));
      fs::remove_all(dir_ / "DATOS");
      const auto ending = RunWithFault(at, demo);
      if (!ending.reached) break;
      ExpectAClearEnd(ending);
      EXPECT_TRUE(ending.Killed() || ending.ExitStatus() == 0 || Entries().empty());
      EXPECT_EQ(RunWords(demo).status, ending.status == 0 ? 1 : 0);
      EXPECT_EQ(Entries(), whole);
    }
  }
  for (const char* year : {"00", "01", "02"}) ExpectNothingDamaged(year);
}

TEST_F(DiskTest, SeveralAtOnceShareTheWorkOrSayWhoDidIt) {
  for (const auto& [words, winners, files] :
       {std::tuple(Here({"data", "create"}), 3, 10U), {{"demo", dir_.string(), "--workers", "1"}, 1, 16U}}) {
    fs::remove_all(dir_ / "DATOS");
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
  }
}

class KillTest : public DiskTest {
 protected:
  KillTest() { Create(); }

  // Rows of Secciones, after a check of the whole file.
  std::int64_t Rows() const {
    const std::unique_ptr<Engine> engine = MakeEngine();
    const auto database = engine->Workspaces(0)->OpenDatabase(DataFile("Nom00001.MDB").string());
    EXPECT_THAT(database->CheckIntegrity(), testing::IsEmpty());
    return database->OpenRecordset("Secciones", RecordsetType::kTable)->RecordCount();
  }
};

std::string Code(int number) { return std::to_string(1000 + number).substr(1); }

TEST_F(KillTest, ALoadIsThereWholeOrNotAtAll) {
  constexpr int kRowsOfALoad = 900;
  std::string csv = "Campo0,Campo1\n";
  for (int i = 0; i < kRowsOfALoad; ++i) csv += Code(i) + "," + std::string(30, 'x') + "\n";
  for (DiskFault at{Fault::kKilled, 1};; at.at += 2) {
    fs::copy(dir_ / "DATOS", dir_ / "before", fs::copy_options::recursive);
    const auto ending = zendara::RunWithFault(at, [&] { return Load("Secciones", csv).status; });
    const std::int64_t rows = Rows();
    EXPECT_TRUE(rows == kRowsOfALoad || (rows == 0 && ending.Killed())) << rows << " rows, killed at " << at.at;
    if (!ending.reached) break;
    fs::remove_all(dir_ / "DATOS");
    fs::rename(dir_ / "before", dir_ / "DATOS");
  }
}

TEST_F(KillTest, EveryFinishedUpdateIsThere) {
  int next = 0;
  for (DiskFault at{Fault::kKilled, 1}; at.at < 200; at.at += 13) {
    int marks[2];
    ASSERT_EQ(pipe(marks), 0);
    const auto ending = zendara::RunWithFault(at, [&] {
      const std::unique_ptr<Engine> engine = MakeEngine();
      const auto database = engine->Workspaces(0)->OpenDatabase(DataFile("Nom00001.MDB").string());
      const auto rows = database->OpenRecordset("Secciones", RecordsetType::kTable);
      for (int i = next;; ++i) {
        rows->AddNew();
        rows->Fields(0).Set(Code(i));
        rows->Update();
        if (syscall(SYS_write, marks[1], "+", 1) != 1) return 1;
      }
    });
    EXPECT_TRUE(ending.Killed());
    close(marks[1]);
    int finished = next;
    for (char mark = 0; read(marks[0], &mark, 1) == 1;) ++finished;
    close(marks[0]);
    // The row that was being written may be there too; nobody was told of it.
    const std::int64_t rows = Rows();
    EXPECT_TRUE(rows == finished || rows == finished + 1) << rows << " of " << finished << " rows, killed at " << at.at;
    next = static_cast<int>(rows);
  }
  EXPECT_GT(next, 0) << "no round wrote anything";
}

}  // namespace
}  // namespace zendara

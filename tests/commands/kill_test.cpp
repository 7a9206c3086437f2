// Programs that are killed while they write: the file opens, and what was said to be written is there.
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <random>
#include <thread>

#include "tests/commands/command_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

constexpr int kRounds = 12;

class KillTest : public CommandFolder {
 protected:
  KillTest() { Create(); }

  // Runs `work` in a process of its own that is killed after at most `longest`; true if it came to its end before.
  bool RunAndKill(const std::function<void()>& work, std::chrono::microseconds longest) {
    const pid_t child = fork();
    if (child == 0) {
      work();
      _exit(0);
    }
    std::uniform_int_distribution<std::int64_t> wait(0, longest.count());
    std::this_thread::sleep_for(std::chrono::microseconds(wait(random_)));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status);
  }

  // Rows of Secciones, after a check of the whole file.
  std::int64_t Rows() const {
    const std::unique_ptr<Engine> engine = MakeEngine();
    const auto database = engine->Workspaces(0)->OpenDatabase(DataFile("Nom00001.MDB").string());
    EXPECT_THAT(database->CheckIntegrity(), testing::IsEmpty());
    return database->OpenRecordset("Secciones", RecordsetType::kTable)->RecordCount();
  }

  // Different moments in every run; a failure tells the seed.
  const unsigned seed_ = std::random_device{}();
  std::mt19937 random_{seed_};
};

std::string Code(int number) { return std::to_string(1000 + number).substr(1); }

TEST_F(KillTest, ALoadIsThereWholeOrNotAtAll) {
  constexpr int kRowsOfALoad = 900;
  std::string csv = "Campo0,Campo1\n";
  for (int i = 0; i < kRowsOfALoad; ++i) csv += Code(i) + "," + std::string(40, 'x') + "\n";
  const auto start = std::chrono::steady_clock::now();
  ASSERT_EQ(Load("Secciones", csv).status, 0);
  const auto whole = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
  for (int round = 0; round < kRounds; ++round) {
    std::filesystem::remove_all(dir_ / "DATOS");
    Create();
    const bool finished = RunAndKill([&] { Load("Secciones", csv); }, whole + whole / 2);
    const std::int64_t rows = Rows();
    EXPECT_TRUE(rows == kRowsOfALoad || (rows == 0 && !finished)) << rows << " rows, seed " << seed_;
  }
}

TEST_F(KillTest, EveryFinishedUpdateIsThere) {
  int next = 0;
  for (int round = 0; round < kRounds; ++round) {
    int told[2];
    ASSERT_EQ(pipe(told), 0);
    const auto write_rows = [&] {
      const std::unique_ptr<Engine> engine = MakeEngine();
      const auto database = engine->Workspaces(0)->OpenDatabase(DataFile("Nom00001.MDB").string());
      const auto rows = database->OpenRecordset("Secciones", RecordsetType::kTable);
      for (int i = next; i < 1000; ++i) {
        rows->AddNew();
        rows->Fields(0).Set(Code(i));
        rows->Update();
        if (write(told[1], "+", 1) != 1) return;
      }
    };
    RunAndKill(write_rows, std::chrono::milliseconds(15));
    close(told[1]);
    int finished = next;
    for (char mark = 0; read(told[0], &mark, 1) == 1;) ++finished;
    close(told[0]);
    // The row that was being written may be there too; nobody was told of it.
    const std::int64_t rows = Rows();
    EXPECT_TRUE(rows == finished || rows == finished + 1) << rows << " of " << finished << " rows, seed " << seed_;
    next = static_cast<int>(rows);
  }
  EXPECT_GT(next, 0) << "no round wrote anything";
}

}  // namespace
}  // namespace zendara

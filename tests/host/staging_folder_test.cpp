#include "adapters/host/staging_folder.hpp"

#include <gmock/gmock.h>

#include <fstream>
#include <set>

#include "support/disk_faults.hpp"
#include "support/temp_folder.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class StagingFolderTest : public testing::Test {
 protected:
  // What a program does with a folder: 0 all have their names, 1 it failed, 2 a name is taken.
  int Publish() const {
    try {
      const StagingFolder staging(folder.path());
      for (const std::string& name : names) std::ofstream(staging.path() / name) << "new";
      return staging.Publish(names) ? 2 : 0;
    } catch (const std::system_error&) {
      return 1;
    }
  }
  std::set<std::string> Entries() const {
    std::set<std::string> entries;
    for (const auto& entry : fs::directory_iterator(folder.path())) entries.insert(entry.path().filename());
    return entries;
  }

  const std::vector<std::string> names = {"a", "b", "c"};
  TempFolder folder;
};

TEST_F(StagingFolderTest, AllOrNoneWhateverFails) {
  for (const Fault fault : {Fault::kFails, Fault::kFullDisk, Fault::kKilled}) {
    for (DiskFault at{fault, 1};; ++at.at) {
      SCOPED_TRACE(testing::PrintToString(at));
      const auto ending = RunWithFault(at, [&] { return Publish(); });
      const bool whole = Entries().contains("c");
      EXPECT_TRUE(ending.Killed() || (ending.ExitStatus() == 0) == whole);
      // The next one clears up, and is refused only where all was done.
      const int next = Publish();
      EXPECT_TRUE(next == 0 || (next == 2 && whole)) << next;
      EXPECT_THAT(Entries(), ElementsAre("a", "b", "c"));
      for (const std::string& name : names) fs::remove(folder / name);
      if (!ending.reached) break;
    }
  }
}

TEST_F(StagingFolderTest, ATakenNameOrALogOfTheStoreKeepsAllBack) {
  std::ofstream(folder / "b") << "mine";
  EXPECT_EQ(Publish(), 2);
  EXPECT_THAT(Entries(), ElementsAre("b"));
  fs::remove(folder / "b");
  const StagingFolder staging(folder.path());
  EXPECT_EQ(Publish(), 0) << "the folder of a living program is left alone";
  for (const std::string& name : names) fs::remove(folder / name);
  for (const char* name : {"a", "b", "c", "c-wal"}) std::ofstream(staging.path() / name) << "new";
  EXPECT_THROW(staging.Publish(names), std::system_error);
  EXPECT_FALSE(fs::exists(folder / "a"));
}

TEST_F(StagingFolderTest, WhatSomebodyWroteToSinceIsNotUndone) {
  for (DiskFault at{Fault::kKilled, 1}; !fs::exists(folder / "c"); ++at.at) {
    RunWithFault(at, [&] { return Publish(); });
  }
  const auto now = fs::file_time_type::clock::now();
  fs::last_write_time(folder / "a", now + std::chrono::hours(1));
  std::ofstream(folder / "b-wal") << "rows";
  fs::remove(folder / "c");
  std::ofstream(folder / "c") << "mine";
  fs::last_write_time(folder / "c", now - std::chrono::hours(1));
  const StagingFolder next(folder.path());
  EXPECT_THAT(Entries(), testing::IsSupersetOf({"a", "b", "c"}));
}

}  // namespace
}  // namespace zendara

// Usage, and what becomes of output that cannot be written.
#include <gmock/gmock.h>

#include <cerrno>
#include <streambuf>

#include "tests/commands/command_folder.hpp"

namespace zendara {
namespace {

using testing::HasSubstr;

class RunTest : public CommandFolder {};

TEST_F(RunTest, WrongUsageIsStatusTwoAndOneLine) {
  const std::vector<std::string> company = {"--dir", "x", "--company", "1"};
  const struct {
    std::vector<std::string> words;
    std::string cause;
  } cases[] = {
      {{}, "required"},
      {{"pay"}, "there is no command pay (see zendara --help)"},
      {{"data"}, "required"},
      {{"data", "drop"}, "there is no command drop (see zendara data --help)"},
      {{"rate"}, "--dir is required (see zendara rate --help)"},
      {{"rate", "--dir", "x", "--company", "1"}, "--year is required"},
      {{"rate", "--dir", "x", "--company", "123456", "--year", "01"}, "--company"},
      {{"rate", "--dir", "x", "--company", "../a", "--year", "01"}, "--company"},
      {{"rate", "--dir", "x", "--company", "1", "--year", "1"}, "--year"},
      {{"rate", "--dir", "x", "--company", "1", "--year", "1901"}, "--year"},
      {{"rate", "--dir", "x", "--company", "1", "--year", "01", "--worker", "x"}, "--worker"},
      {{"rate", "--dir", "x", "--company", "1", "--year", "01", "--format", "xml"}, "--format"},
      {{"data", "load", "--dir", "x", "--company", "1", "--year", "01", "IRPF"}, "CSV is required"},
      {{"demo", "x", "--workers", "0"}, "--workers"},
      {{"demo", "x", "--seed", "-1"}, "--seed"},
      {{"run", "--dir", "x"}, "SCRIPT is required"},
      {{"run", "x.zs"}, "--dir is required (see zendara run --help)"},
  };
  for (const auto& c : cases) {
    const Outcome run = RunWords(c.words);
    EXPECT_EQ(run.status, 2) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, testing::StartsWith("zendara: "));
    EXPECT_THAT(run.err, HasSubstr(c.cause));
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
  }
}

TEST_F(RunTest, HelpOfEveryCommand) {
  const std::vector<std::vector<std::string>> commands = {
      {},     {"demo"}, {"rate"}, {"data"}, {"data", "create"}, {"data", "check"}, {"data", "load"}, {"data", "dump"},
      {"run"}};
  for (std::vector<std::string> words : commands) {
    words.push_back("--help");
    const Outcome run = RunWords(words);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out, HasSubstr("Usage: zendara"));
  }
}

TEST_F(RunTest, AnErrorOfTheStoreIsOneLineWithItsNumber) {
  const Outcome run = RunHere({"rate"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, testing::MatchesRegex("zendara: opening .*Nom00a01.MDB: 3044  .*\n"));
}

TEST_F(RunTest, AScriptEndsWithItsStatusAndOneLine) {
  const std::string path = (dir_ / "a.zs").string();
  const struct {
    std::string script;
    int status;
    std::string reason;
  } cases[] = {{"# nothing\n", 0, ""},
               {"\njump", 2, ":2: unknown command \"jump\"\n"},
               {"\nshow all", 2, ":2: no screen is open\n"},
               {"sql a.mdb \"SELECT * FROM a\"", 1, ":1: 3044  "}};
  for (const auto& c : cases) {
    WriteFile(path, c.script);
    const Outcome run = RunWords({"run", path, "--dir", dir_.string()});
    EXPECT_EQ(run.status, c.status) << c.script;
    EXPECT_THAT(run.err, testing::StartsWith(c.status == 0 ? "" : "zendara: " + path + c.reason)) << c.script;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), c.status == 0 ? 0 : 1) << run.err;
  }
  for (const std::string& unreadable : {dir_.string(), (dir_ / "none.zs").string()}) {
    const Outcome run = RunWords({"run", unreadable, "--dir", dir_.string()});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, testing::MatchesRegex("zendara: " + unreadable + ": [A-Z].*\n"));
  }
}

class FailingBuffer : public std::streambuf {
 public:
  explicit FailingBuffer(int error) : error_(error) {}

 private:
  std::streamsize xsputn(const char*, std::streamsize) override {
    errno = error_;
    return 0;
  }

  int error_;
};

TEST_F(RunTest, OutputThatCannotBeWritten) {
  for (const auto& [error, line] : {std::pair(EPIPE, ""), std::pair(ENOSPC, "zendara: standard output: ")}) {
    FailingBuffer buffer(error);
    std::ostream out(&buffer);
    std::ostringstream err;
    EXPECT_EQ(zendara::Run({"--help"}, out, err), 1);
    EXPECT_THAT(err.str(), *line ? testing::Matcher<std::string>(testing::StartsWith(line)) : testing::IsEmpty());
  }
}

}  // namespace
}  // namespace zendara

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
  const struct {
    std::vector<std::string> words;
    std::string cause;
  } cases[] = {
      {{}, "required"},
      {{"pay"}, "there is no command pay (see zendara --help)"},
      {{"data", "drop"}, "there is no command drop (see zendara data --help)"},
      {{"rate"}, "--dir is required (see zendara rate --help)"},
      {{"rate", "--dir", "x", "--company", "1"}, "--year is required"},
      {{"rate", "--dir", "x", "--company", "123456", "--year", "01"}, "--company"},
      {{"rate", "--dir", "x", "--company", "1", "--year", "1"}, "--year"},
      {{"rate", "--dir", "x", "--company", "1", "--year", "01", "--worker", "x"}, "--worker"},
      {{"rate", "--dir", "x", "--company", "1", "--year", "01", "--format", "xml"}, "--format"},
      {{"data", "load", "--dir", "x", "--company", "1", "--year", "01", "IRPF"}, "CSV is required"},
      {{"demo", "x", "--workers", "0"}, "--workers"},
      {{"demo", "x", "--seed", "-1"}, "--seed"},
      {{"demo", "x", "--seed", "18446744073709551616"}, "--seed"},
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

TEST_F(RunTest, AScriptEndsWithItsStatusAndOneLine) {
  WriteFile(dir_ / "jump.zs", "\njump");
  WriteFile(dir_ / "sql.zs", "sql a.mdb \"SELECT * FROM a\"");
  const struct {
    std::string script;
    int status;
    std::string reason;
  } cases[] = {{"jump.zs", 2, ":2: unknown command \"jump\""},
               {"sql.zs", 1, ":1: 3044  [^\n]*"},
               {"", 1, ": [^\n]*"},
               {"none", 1, ": [^\n]*"}};
  for (const auto& c : cases) {
    const std::string path = (dir_ / c.script).string();
    const Outcome run = RunWords({"run", path, "--dir", dir_.string()});
    EXPECT_EQ(run.status, c.status) << c.script;
    EXPECT_THAT(run.err, testing::MatchesRegex("zendara: " + path + c.reason + "\n"));
  }
}

// Notes what arrives between two flushes.
class Pieces : public std::stringbuf {
 public:
  std::vector<std::string> pieces;

 private:
  int sync() override {
    pieces.push_back(str());
    str({});
    return 0;
  }
};

TEST_F(RunTest, ARunThatIsKilledHasPrintedAllThatItDid) {
  Create();
  EXPECT_EQ(Load("CALLES", "Campo0,Campo1\nAV,Avenida\nCL,Calle\n").status, 0);
  WriteFile(dir_ / "a.zs", "sql Empresa.MDB \"SELECT Campo0 FROM CALLES\"");
  Pieces printed;
  std::ostream out(&printed);
  std::ostringstream err;
  zendara::Run({"run", (dir_ / "a.zs").string(), "--dir", dir_.string()}, out, err);
  EXPECT_THAT(printed.pieces, testing::ElementsAre("AV\n", "CL\n", "")) << err.str();
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

// Usage, and what becomes of output that cannot be written.
#include <gmock/gmock.h>

#include <cerrno>
#include <streambuf>

#include "tests/commands/command_folder.hpp"

namespace zendara {
namespace {

class RunTest : public CommandFolder {};

TEST_F(RunTest, AFaultIsAStatusAndOneLine) {
  WriteFile(dir_ / "jump.zs", "\njump");
  const struct {
    std::vector<std::string> words;
    std::string cause;
    int status = 2;
  } cases[] = {
      {{}, "required"},
      {{"pay"}, "there is no command pay (see zendara --help)"},
      {{"data", "drop"}, "there is no command drop (see zendara data --help)"},
      {{"rate", "--dir", "x", "--company", "1"}, "--year is required (see zendara rate --help)"},
      {{"rate", "--dir", "x", "--company", "123456", "--year", "01"}, "--company"},
      {{"rate", "--dir", "x", "--company", "1", "--year", "1"}, "--year"},
      {Here({"rate", "--worker", "x"}), "--worker"},
      {Here({"rate", "--format", "xml"}), "--format"},
      {Here({"data", "load", "IRPF"}), "CSV is required"},
      {{"demo", "x", "--workers", "0"}, "--workers"},
      {{"demo", "x", "--seed", "18446744073709551616"}, "--seed"},
      {{"run", (dir_ / "jump.zs").string(), "--dir", "x"}, "jump.zs:2: unknown command \"jump\""},
      {{"run", "none.zs", "--dir", "x"}, "none.zs: ", 1},
      {{"run", "/", "--dir", "x"}, "/: ", 1},
  };
  for (const auto& c : cases) {
    const Outcome run = RunWords(c.words);
    EXPECT_EQ(run.status, c.status) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, testing::AllOf(testing::StartsWith("zendara: "), testing::HasSubstr(c.cause)));
    EXPECT_EQ(run.err.find('\n'), run.err.size() - 1) << run.err;
  }
}

// Notes what arrives between two flushes.
class Pieces : public std::stringbuf {
 public:
  std::vector<std::string> pieces;

 private:
  int sync() override {
    pieces.push_back(std::move(*this).str());
    return 0;
  }
};

TEST_F(RunTest, ARunThatIsKilledHasPrintedAllThatItDid) {
  Create();
  Load("CALLES", "Campo0,Campo1\nAV,Avenida\nCL,Calle\n");
  WriteFile(dir_ / "a.zs", "sql Empresa.MDB \"SELECT Campo0 FROM CALLES\"");
  Pieces printed;
  std::ostream out(&printed);
  zendara::Run({"run", (dir_ / "a.zs").string(), "--dir", dir_.string()}, out, out);
  EXPECT_THAT(printed.pieces, testing::ElementsAre("AV\n", "CL\n", ""));
}

struct FailingBuffer : std::streambuf {
  std::streamsize xsputn(const char*, std::streamsize) override {
    errno = error;
    return 0;
  }
  int error = 0;
};

TEST_F(RunTest, OutputThatCannotBeWritten) {
  for (const auto& [error, line] : {std::pair(EPIPE, "^$"), std::pair(ENOSPC, "^zendara: standard output: ")}) {
    FailingBuffer buffer;
    buffer.error = error;
    std::ostream out(&buffer);
    std::ostringstream err;
    EXPECT_EQ(zendara::Run({"--help"}, out, err), 1);
    EXPECT_THAT(err.str(), testing::ContainsRegex(line));
  }
}

}  // namespace
}  // namespace zendara

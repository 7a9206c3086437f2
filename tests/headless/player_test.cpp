// Scripts played on a sample screen over a demonstration company: the lines that they print, and how they end.
#include <gmock/gmock.h>

#include "adapters/headless/headless.hpp"
#include "apps/demo/demo_company.hpp"
#include "headless/sample_screen.hpp"
#include "support/temp_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

using testing::StartsWith;

const std::string kOpened = "screen Trabajadores open\nfocus Text1(1)\n";
const std::string kClosed = "screen Trabajadores closed\n";

class PlayerTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::make_unique<TempFolder>();
    WriteDemoCompany(*MakeEngine(), {.folder = folder_->path().string(), .workers = 3});
    RegisterSampleScreens();
  }
  static void TearDownTestSuite() { folder_.reset(); }

  ScriptResult PlayAll(const std::string& script) {
    const auto engine = MakeEngine();
    const auto files = MakeHostFiles();
    out_.clear();
    return PlayHeadless(ReadScript(script), *engine, *files, folder_->path().string(),
                        [this](std::string_view line) { out_ += line; });
  }
  // Commands on the open screen; what they print after it is open.
  std::string Play(const std::string& commands) {
    const ScriptResult result = PlayAll("session company=1 year=01\nopen Trabajadores\n" + commands);
    EXPECT_EQ(result.status, 0) << result.message;
    EXPECT_THAT(out_, StartsWith(kOpened));
    return out_.substr(std::min(out_.size(), kOpened.size()));
  }

  static std::unique_ptr<TempFolder> folder_;
  std::string out_;
};

std::unique_ptr<TempFolder> PlayerTest::folder_;

TEST_F(PlayerTest, ValuesOfEveryKindOfControl) {
  EXPECT_EQ(Play("type \"ab\\\"\\\\xyz\"\nchoose Combo1 \"1 - Alguno\"\ncheck Check1 1\ncheck Check1 1\n"
                 "check Option1(1) 1\ncell Grid1(0) 2 1\nshow Informa Check1 Grid1(0)[0,1] Text1(2)\nshow all\n"
                 "expect Text1(1) \"ab\\\"\\\\x\"\nexpect Combo1 \"1 - Alguno\"\nexpect Grid1(0)[0,1] \"Enero\"\n"
                 "check Check1 0\nexpect Check1 \"0\"\nexpect Check2 \"2\"\ncheck Check2 1\nexpect Check2 \"1\""),
            "focus Combo1\nfocus Check1\nfocus Option1(1)\nfocus Grid1(0)\n"
            "value Informa=\"Dice \\\"hola\\\"\"\nvalue Check1=\"1\"\nvalue Grid1(0)[0,1]=\"Enero\"\n"
            "value Text1(2)=\"\"\nvalue Check1=\"1\"\nvalue Check2=\"2\"\nvalue Combo1=\"1 - Alguno\"\nvalue "
            "Option1(1)=\"1\"\n"
            "value Text1(1)=\"ab\\\"\\\\x\"\nfocus Check1\nfocus Check2\n");
}

TEST_F(PlayerTest, BoxesTakeAnswersInOrderThenTheirDefault) {
  const std::string box = "box icon=question buttons=yesno default=no title=\"Duda\" text=\"¿Graba\\ntodo?\" -> ";
  EXPECT_EQ(Play("answer yes no\nclick Grabar\nshow Informa\nclick Grabar\nclick Grabar\nshow Informa"),
            box + "yes\nstatus \"Todo \\\"grabado\\\"\"\nfocus Grabar\nvalue Informa=\"Grabado\"\n" + box + "no\n" +
                box + "no\nvalue Informa=\"No grabado\"\n");
}

TEST_F(PlayerTest, ListsTakePicksInOrderThenNone) {
  const std::string list = "list title=\"Letras\" rows=3 -> ";
  EXPECT_EQ(
      Play("pick 2 \npick \"tres\"\npick none\nclick Image1(1)\nclick Image1(1)\nclick Image1(1)\nclick Image1(1)"),
      list + "\"B dos\"\n" + list + "\"B tres\"\n" + list + "none\n" + list + "none\n");
}

TEST_F(PlayerTest, Listings) {
  EXPECT_EQ(Play("click Imprimir"),
            "print title=\"Relación\" file=\"Nom00001.MDB\" table=\"ListadosNOM\" columns=2 rows=2\n"
            "z,\n\"a, b\",\"\"\nfocus Imprimir\n");
}

TEST_F(PlayerTest, FormsInFormsTakeTheCommandsUntilTheyClose) {
  EXPECT_EQ(Play("click Abrir\nclick Abrir\ntype \"x\"\nclick Salir\nshow Text1(3)\nclick Salir\nshow Text1(1)\n"
                 "click Salir\nsql Nom00001.mdb \"SELECT Campo0 FROM TrabajadoresFijo\"\nopen Trabajadores"),
            "screen Hija open\nfocus Text1(1)\nscreen Nieta open\nfocus Text1(1)\nscreen Nieta closed\n"
            "focus Abrir\nvalue Text1(3)=\"vuelt\"\nscreen Hija closed\nfocus Abrir\nvalue Text1(1)=\"\"\n" +
                kClosed + "00001\n00002\n00003\n" + kOpened);
}

TEST_F(PlayerTest, TheEndClosesWhatIsOpenWithoutAWord) {
  EXPECT_EQ(Play("click Abrir\nfocus Text1(2)\ntype \"1\""), "screen Hija open\nfocus Text1(1)\nfocus Text1(2)\n");
  // The next run finds new screens.
  EXPECT_EQ(Play("show Text1(3)"), "value Text1(3)=\"\"\n");
}

TEST_F(PlayerTest, FaultsOfARunEndItWithTheirLine) {
  const std::string opened = "session company=1 year=01\nopen Trabajadores\n";
  const struct {
    std::string script;
    int status;
    std::string message;
  } cases[] = {
      {"session year=01", 2, "1: company=00001 is missing"},
      {"session company=1 year=01 date=hoy", 2, "1: date=\"hoy\" is no date"},
      {"session company=9 year=01", 1, "1: 3024  "},
      {"open Trabajadores", 2, "1: there is no session yet"},
      {"show all", 2, "1: no screen is open"},
      {"sql nom00001.mdb \"DELETE * FROM TrabajadoresFijo\"", 1, "1: 3075  "},
      {opened + "open Trabajadores", 2, "3: screen Trabajadores is open"},
      {opened + "\nclick Nada", 2, "4: screen Trabajadores has no control Nada"},
      {opened + "expect Text1(1) \"x\"", 1, "3: Text1(1) is \"\", not \"x\""},
      {opened + "choose Combo1 \"7\"", 2, "3: Combo1 has no item \"7\""},
      {opened + "check Option1(0) 0", 2, "3: Option1(0) is an option"},
      {opened + "cell Grid1(0) 0 1", 2, "3: Grid1(0) has no cell 0 1 to click"},
      {opened + "show Grid1(0)[3,0]", 2, "3: Grid1(0) has no cell [3,0]"},
      {opened + "page Tab1 2", 2, "3: Tab1 has no page 2"},
      {opened + "answer ok\nclick Grabar", 2, "4: the box \"¿Graba\\ntodo?\" has no button ok"},
      {opened + "pick 4\nclick Image1(1)", 2, "4: the list \"Letras\" has no row 4"},
      {opened + "pick \"cuatro\"\nclick Image1(1)", 2, "4: the list \"Letras\" has no row that holds \"cuatro\""},
  };
  for (const auto& c : cases) {
    const ScriptResult result = PlayAll(c.script + "\nopen Trabajadores\nshow all");
    EXPECT_EQ(result.status, c.status) << c.script;
    EXPECT_THAT(result.message, StartsWith(c.message)) << c.script;
    EXPECT_EQ(result.message.find('\n'), std::string::npos) << c.script;
  }
}

TEST_F(PlayerTest, AnOutputThatTakesNoMoreStopsTheScript) {
  const auto engine = MakeEngine();
  const auto files = MakeHostFiles();
  int lines = 0;
  const auto full = [&](std::string_view) {
    if (++lines == 2) throw std::runtime_error("full");
  };
  const Script script = ReadScript("session company=1 year=01\nopen Trabajadores\nclick Abrir\nclick Abrir\nkey Tab");
  EXPECT_THROW(PlayHeadless(script, *engine, *files, folder_->path().string(), full), std::runtime_error);
  EXPECT_EQ(lines, 2);
}

}  // namespace
}  // namespace zendara

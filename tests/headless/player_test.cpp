// What no scenario can play: a screen with options and a listing, another one above it, and how faults end a run.
#include <gmock/gmock.h>

#include "adapters/headless/headless.hpp"
#include "apps/demo/demo_company.hpp"
#include "component/componente.hpp"
#include "platform/form/screen_parts.hpp"
#include "support/pdf.hpp"
#include "support/temp_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

const Platform& Surroundings() { return ElComponente().sesion.platform; }

class SampleScreen : public Form, public Pantalla {
 public:
  SampleScreen() : Form(*Surroundings().forms, *Surroundings().dialogs, "MIncidencias") {
    Check1.SetValue(2);
    Option1.Add(0);
    Option1.Add(1);
    Abrir.On().click = [this](int) {
      ElComponente().pantallas.Muestra("Trabajadores");
      SetStatus("De \"vuelta\"");
    };
    Imprimir.On().click = [](int) { Print(); };
    SetLayout(Column({Place(Check1), Place(Option1(0)), Place(Option1(1)), Place(Abrir), Place(Imprimir)}));
  }
  void Mostrar() override { Show(); }

 private:
  static void Print() {
    const std::string path = Surroundings().application_folder + "\\DATOS\\Nom00001.MDB";
    Surroundings().engine->Workspaces(0)->OpenDatabase(path)->Execute("DELETE * FROM ListadosNOM");
    const auto table =
        Surroundings().engine->Workspaces(0)->OpenDatabase(path)->OpenRecordset("ListadosNOM", RecordsetType::kTable);
    for (const char* text : {"z", "a, b"}) {
      table->AddNew();
      table->Fields(0).Set(text);
      if (*text == 'a') table->Fields(1).Set("");
      table->Update();
    }
    ListingDescription listing = {"2", "Uno", std::int16_t{0}, "900", "Dos", std::int16_t{0}, "900", "Relación", false};
    const auto viewer = CreateListingViewer(Surroundings().components);
    viewer->FicheroDatos(path);
    viewer->TablaDatos("ListadosNOM");
    viewer->Visualiza(listing);
  }
  void OnUnload() override { ElComponente().pantallas.Descarga(Name()); }

  CheckBox Check1{*this, "Check1"};
  ControlArray<OptionButton> Option1{*this, "Option1"};
  Button Abrir{*this, "Abrir"}, Imprimir{*this, "Imprimir"};
};

class PlayerTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::make_unique<TempFolder>();
    WriteDemoCompany(*MakeEngine(), {.folder = folder_->path().string(), .workers = 3});
    ElComponente().pantallas.Registra("MIncidencias", [] { return std::make_shared<SampleScreen>(); });
  }
  static void TearDownTestSuite() { folder_.reset(); }

  // The lines printed are in `out_`; the third of them does not fit if `full`.
  ScriptResult Play(const std::string& script, bool full = false) {
    int lines = 0;
    const auto print = [&](std::string_view line) {
      if (++lines == 3 && full) throw std::runtime_error("full");
      out_ += line;
    };
    return PlayHeadless(ReadScript(script), *MakeEngine(), *MakeHostFiles(), folder_->path().string(), print);
  }

  static inline std::unique_ptr<TempFolder> folder_;
  std::string out_;
};

constexpr const char* kOpened = "screen MIncidencias open\nfocus Check1\n";
constexpr const char* kAbove = "screen Trabajadores open\nfocus Text1(1)\n";

TEST_F(PlayerTest, ScreensOptionsAndListings) {
  const std::string open = "session company=1 year=01\nopen MIncidencias\n";
  const std::pair<std::string, std::string> cases[] = {
      {"check Option1(1) 1\ncheck Check1 1\nshow all",
       "focus Option1(1)\nfocus Check1\nvalue Check1=\"1\"\nvalue Option1(1)=\"1\"\n"},
      {"click Imprimir",
       "print title=\"Relación\" file=\"Nom00001.MDB\" table=\"ListadosNOM\" columns=2 rows=2\n"
       "z,\n\"a, b\",\"\"\nfocus Imprimir\n"},
      {"click Imprimir\nlisting pages\nlisting save \"" + (*folder_ / "a.PDF") + "\"\nlisting save \"" +
           (*folder_ / "a.csv") + "\"",
       "print title=\"Relación\" file=\"Nom00001.MDB\" table=\"ListadosNOM\" columns=2 rows=2\n"
       "z,\n\"a, b\",\"\"\nfocus Imprimir\npages 1\ndocument title=\"Relación\" file=\"a.PDF\" rows=2\n"
       "document title=\"Relación\" file=\"a.csv\" rows=2\n"},
      {"click Abrir\nclick Salir\nshow Check1",
       kAbove +
           std::string("screen Trabajadores closed\nstatus \"De \\\"vuelta\\\"\"\nfocus Abrir\nvalue Check1=\"2\"\n")},
      // The end closes what is open without a word, and the next run finds new screens.
      {"click Abrir\ntype \"3\\n\"", kAbove + std::string("focus Text1(2)\n")},
      {"show Check1", "value Check1=\"2\"\n"},
      {"print \"" + (*folder_ / "ficha.pdf") + "\"", "document title=\"MIncidencias\" file=\"ficha.pdf\" pages=1\n"},
  };
  for (const auto& [commands, printed] : cases) {
    out_.clear();
    const ScriptResult result = Play(open + commands);
    EXPECT_EQ(result.status, 0) << result.message;
    EXPECT_EQ(out_, kOpened + printed);
  }
  EXPECT_THAT(PdfText(*folder_ / "a.PDF"), testing::HasSubstr("a, b"));
  EXPECT_EQ(Read("cat '" + (*folder_ / "a.csv") + "'"), "Uno,Dos\r\nz,\r\n\"a, b\",\r\n");
  EXPECT_EQ(Play(open + "click Imprimir\nlisting save \"" + (*folder_ / "a.csv") + "\"").status, 1) << "it is there";
  EXPECT_EQ(Play(open + "listing pages").message, "3: there is no listing yet");

  out_.clear();
  EXPECT_THROW(Play(open + "click Abrir\nkey Tab", true), std::runtime_error);
  EXPECT_EQ(out_, kOpened) << "an output that takes no more stops the script";
}

TEST_F(PlayerTest, ScriptsThatAreRefused) {
  const std::pair<std::string, std::string> cases[] = {
      {"jump", "unknown command \"jump\""},
      {"open", "wrong number of words, not open NAME"},
      {"type abc", "not type \"text\""},
      {"type \"abc", "a quote is not closed"},
      {"type \"a\\tb\"", "a backslash stands before none"},
      {"type a\"b\"", "a quote stands inside a word"},
      {"key Enterr", "unknown key \"Enterr\""},
      {"check Check1 x", "not check CONTROL 0"},
      {"page Tab1 99999999999", "not page"},
      {"answer yes maybe", "unknown answer \"maybe\""},
      {"pick 0", "not pick"},
      {"listing save a.doc", "not listing pages or listing save FILE"},
      {"session company=1 size=2", "unknown value of a session \"size\""},
      {"session =1", "\"=\" stands behind no name"},
      {"type \"Mu\xF1oz\"", "not UTF-8"},
      {std::string("o\0p\0", 4), "not UTF-8"},
  };
  for (const auto& [line, reason] : cases) {
    try {
      ReadScript("\xEF\xBB\xBF# one\r\nopen A\r\n" + line + "\nopen A");
      ADD_FAILURE() << line;
    } catch (const ScriptError& error) {
      EXPECT_EQ(error.status(), 2);
      EXPECT_THAT(error.what(), testing::StartsWith("3: " + reason));
    }
  }
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
      {opened + "open Trabajadores", 2, "3: screen Trabajadores is open"},
      {opened + "\nclick Nada", 2, "4: screen Trabajadores has no control Nada"},
      {opened + "choose Combo1(5) \"7\"", 2, "3: Combo1(5) has no item \"7\""},
      {opened + "cell Grid1(0) 0 1", 2, "3: Grid1(0) has no cell 0 1 to click"},
      {opened + "show Grid1(0)[99,0]", 2, "3: Grid1(0) has no cell [99,0]"},
      {opened + "print /nada/ficha.pdf", 1, "3: 76  "},
      {opened + "page Tab1 9", 2, "3: Tab1 has no page 9"},
      {opened + "type \"3\\n\"\nanswer ok\nclick CmdNuevo", 2, "5: the box \"¿"},
      {opened + "pick 4\nclick Image1(1)", 2, "4: the list \"TrabajadoresFijo\" has no row 4"},
      {opened + "pick \"cuatro\"\nclick Image1(1)", 2,
       "4: the list \"TrabajadoresFijo\" has no row that holds \"cuatro\""},
  };
  for (const auto& c : cases) {
    const ScriptResult result = Play(c.script + "\nopen Trabajadores\nshow all");
    EXPECT_EQ(result.status, c.status) << c.script;
    EXPECT_THAT(result.message, testing::StartsWith(c.message)) << c.script;
    EXPECT_EQ(result.message.find('\n'), std::string::npos) << c.script;
  }
}

}  // namespace
}  // namespace zendara

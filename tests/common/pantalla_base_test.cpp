// The frame of a screen on a small screen of its own.
#include "common/pantalla_base.hpp"

#include <gmock/gmock.h>

#include "support/fake_form_host.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;

struct FakeBanner : Banner {
  explicit FakeBanner(std::vector<std::string>& calls) : log(calls) {}
  void PosicionBanner(std::int32_t handle, BannerPlace& place) override {
    log.push_back("banner " + std::to_string(handle) + " " + std::to_string(place.width));
  }
  void AvisoCierre(std::int32_t handle) override { log.push_back("closed " + std::to_string(handle)); }
  std::vector<std::string>& log;
};

struct FakeShell : Shell {
  int FindWindow(std::string_view class_name, std::string_view title) override {
    calls.push_back("find " + std::string(class_name) + " " + std::string(title));
    return window;
  }
  int Start(std::string_view program) override {
    calls.push_back("start " + std::string(program));
    return 5;
  }
  void Activate(int task) override { calls.push_back("activate " + std::to_string(task)); }
  void Activate(std::string_view title) override { calls.push_back("activate " + std::string(title)); }
  int window = 0;
  std::vector<std::string> calls;
};

// A code, an amount on the right and a look-up; a record cycle and a button that saves.
struct Screen7 : PantallaBase {
  Screen7(Sesion& sesion, RegistroPantallas& pantallas)
      : PantallaBase(sesion, pantallas, {"Prueba", "De prueba", 30001, {{"Grabar", " Graba Incidencia "}}}) {
    for (int i = 1; i <= 3; ++i) Text1.Add(i);
    Text1(2).SetAlignment(Alignment::kRight);
    Image1.Add(3);
    grabar_ = &Grabar;
    fin_ = &Fin;
    Grabar.On().click = [this](int) { log.push_back("grabar"); };
    Fin.On().click = [this](int) { log.push_back("fin"); };
    SetLayout(Column({Place(Text1(1)), Place(Text1(2)), Place(Text1(3)), Place(Grabar), Place(Fin), Place(Salir),
                      Place(Calculadora)}));
    ConectaMarco();
  }
  void OnLoad() override {
    Guarda([this] {
      CreaAnuncio();
      PonAyuda();
      PonTitulos();
    });
  }
  bool EscSale() const override { return Text1(1).Text().empty(); }
  void SalidaCampo(int indice) override { log.push_back("sale" + std::to_string(indice)); }
  void AbreLista(int indice) override { log.push_back("lista" + std::to_string(indice)); }

  TextBox& Field(int i) { return Text1(i); }
  TextBox& Title(int i) { return Titulo(i); }
  Button& Calculator() { return Calculadora; }
  void Type(const std::string& text) {
    for (const char c : text) Press({0, 0, std::string(1, c)});
  }

  Button Grabar{*this, "Grabar"};
  Button Fin{*this, "Fin"};
  std::vector<std::string> log;
};

class PantallaBaseTest : public testing::Test {
 protected:
  PantallaBaseTest() {
    components.Register(kBannerClass, [this] { return std::unique_ptr<Banner>(new FakeBanner(banner)); });
    sesion.platform.forms = &host;
    sesion.platform.dialogs = &host;
    sesion.platform.shell = &shell;
    sesion.platform.components = &components;
    sesion.platform.application_folder = "/nominas";
    sesion.CodEmpresa = "7";
    sesion.NomEmpresa = "Peña e hijos";
    sesion.AnoTrabajo = "01";
  }

  void Show() {
    screen = std::make_unique<Screen7>(sesion, pantallas);
    screen->Show();
    screen->log.clear();
  }
  void Press(int code, int shift = 0) { screen->Press({code, shift, {}}); }

  FakeFormHost host;
  FakeShell shell;
  Components components;
  std::vector<std::string> banner;
  Sesion sesion{Platform{}};
  RegistroPantallas pantallas;
  std::unique_ptr<Screen7> screen;
};

TEST_F(PantallaBaseTest, LoadsTitlesHelpAndBanner) {
  Show();
  EXPECT_EQ(screen->Title(1).Text(), "7    ");
  EXPECT_EQ(screen->Title(2).Text(), "Peña e hijos");
  EXPECT_EQ(screen->Title(3).Text(), "01");
  EXPECT_EQ(screen->HelpFile, "/nominas\\Quelvat.hlp");
  Press(key::kF1);
  EXPECT_THAT(host.help, ElementsAre(30001));
  screen->Close();
  EXPECT_THAT(banner, ElementsAre("banner 7 9300", "closed 7"));
  EXPECT_FALSE(screen->Loaded());
}

TEST_F(PantallaBaseTest, WithoutABannerTheLoadEndsThereAndTheScreenStands) {
  components.Register(kBannerClass, Components::Factory<Banner>());
  Show();
  EXPECT_THAT(host.boxes, ElementsAre("429  El componente no puede crear el objeto"));
  EXPECT_EQ(screen->HelpContext, 0);
  EXPECT_EQ(screen->Title(3).Text(), "");
  EXPECT_THAT(host.shown, ElementsAre("Prueba"));
}

TEST_F(PantallaBaseTest, KeysWalkTheFieldsAndTheRecords) {
  Show();
  EXPECT_EQ(screen->Field(1).BackColor(), kWhite);
  Press(key::kEnter);
  EXPECT_TRUE(screen->Field(2).HasFocus());
  EXPECT_EQ(screen->Field(1).BackColor(), kGrey);
  Press(key::kDown);
  EXPECT_TRUE(screen->Field(3).HasFocus());
  Press(key::kF2);
  Press(key::kUp);
  EXPECT_TRUE(screen->Field(2).HasFocus());
  Press(key::kF2);
  Press(key::kEnd, key::kAlt);
  Press(key::kHome, key::kAlt);
  EXPECT_THAT(screen->log, ElementsAre("sale1", "sale2", "lista3", "sale3", "fin"));
}

TEST_F(PantallaBaseTest, EscSavesWhatIsCompleteAndOtherwiseLeaves) {
  Show();
  screen->Type("7");
  Press(key::kEsc);
  EXPECT_THAT(screen->log, ElementsAre("sale1", "grabar")) << "the field is left before it is saved";
  screen->Field(1).SetText("");
  Press(key::kEsc);
  EXPECT_FALSE(screen->Loaded());
  EXPECT_EQ(host.do_events, 1);
}

TEST_F(PantallaBaseTest, TypingReplacesUntilInsertIsPressed) {
  Show();
  screen->Field(1).SetText("abcd");
  Press(key::kHome);
  screen->Type("xy");
  EXPECT_EQ(screen->Field(1).Text(), "xycd");
  Press(key::kInsert);
  screen->Type("z");
  EXPECT_EQ(screen->Field(1).Text(), "xyzcd");
  Press(key::kInsert);
  screen->Field(1).Select(0, 3);
  screen->Type("1");
  EXPECT_EQ(screen->Field(1).Text(), "1cd");
}

TEST_F(PantallaBaseTest, AmountsTakeDigitsAndOneComma) {
  Show();
  screen->Field(2).SetFocus();
  screen->Type("-1a.5,5-");
  EXPECT_EQ(screen->Field(2).Text(), "-1,55");
}

TEST_F(PantallaBaseTest, HintsComeFromTheScreenOrFromTheName) {
  Show();
  screen->MouseOver(screen->Grabar);
  screen->MouseOver(screen->Calculator());
  screen->MouseOver(screen->Fin);
  EXPECT_EQ(screen->Grabar.ToolTipText(), " Graba Incidencia ");
  EXPECT_EQ(screen->Calculator().ToolTipText(), " Muestra la calculadora ");
  EXPECT_EQ(screen->Fin.ToolTipText(), "");
  EXPECT_EQ(PistaPorDefecto("Borrar", "MConGeneral"), " Borra la Categoría Activa ");
  EXPECT_EQ(PistaPorDefecto("Borrar", "Trabajadores"), " Borra el periodo seleccionado ");
}

TEST_F(PantallaBaseTest, TheCalculatorIsStartedOrBroughtForward) {
  Show();
  screen->Field(3).SetFocus();
  screen->Click(screen->Calculator());
  EXPECT_TRUE(screen->Field(3).HasFocus());
  shell.window = 9;
  screen->Click(screen->Calculator());
  EXPECT_THAT(shell.calls, ElementsAre("find 0 Calculadora", "start Calc.exe", "activate 5", "find 0 Calculadora",
                                       "activate calculadora"));
  EXPECT_EQ(screen->Pointer(), MousePointer::kDefault);
}

}  // namespace
}  // namespace zendara

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
    EXPECT_EQ(std::string(class_name) + " " + std::string(title), "0 Calculadora");
    return window;
  }
  int Start(std::string_view) override { return 5; }
  void Activate(int task) override { activated.push_back(std::to_string(task)); }
  void Activate(std::string_view title) override { activated.emplace_back(title); }
  int window = 0;
  std::vector<std::string> activated;
};

// A few fields, one with a look-up, and a button that saves.
struct Screen7 : PantallaBase {
  Screen7(Sesion& sesion, RegistroPantallas& pantallas)
      : PantallaBase(sesion, pantallas, {"Prueba", "De prueba", 30001, {{"Grabar", " Graba Incidencia "}}}) {
    for (int i = 1; i <= 3; ++i) Text1.Add(i);
    Image1.Add(3);
    SetLayout(Column({Place(Text1(1)), Place(Text1(2)), Place(Text1(3)), Place(Grabar), Place(Calculadora)}));
    ConectaMarco();
  }
  void OnLoad() override { CreaAnuncio(); }
  bool EscSale() const override { return true; }
  void SalidaCampo(int indice) override { log.push_back("sale" + std::to_string(indice)); }
  void AbreLista(int indice) override { log.push_back("lista" + std::to_string(indice)); }

  TextBox& Field(int i) { return Text1(i); }
  Button& Calculator() { return Calculadora; }

  Button Grabar{*this, "Grabar"};
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
    screen = std::make_unique<Screen7>(sesion, pantallas);
    screen->Show();
  }

  void Press(int code) { screen->Press({code, 0, {}}); }

  FakeFormHost host;
  FakeShell shell;
  Components components;
  std::vector<std::string> banner;
  Sesion sesion{Platform{}};
  RegistroPantallas pantallas;
  std::unique_ptr<Screen7> screen;
};

TEST_F(PantallaBaseTest, TheBannerIsToldItsPlaceAndTheClosing) {
  screen->Close();
  EXPECT_THAT(banner, ElementsAre("banner 7 9300", "closed 7"));
  EXPECT_FALSE(screen->Loaded());
}

TEST_F(PantallaBaseTest, TheFieldWithTheFocusIsWhiteAndTheOthersAreGrey) {
  EXPECT_EQ(screen->Field(1).BackColor(), kWhite);
  Press(key::kEnter);
  EXPECT_EQ(screen->Field(1).BackColor(), kGrey);
  Press(key::kDown);
  Press(key::kF2);
  Press(key::kUp);
  Press(key::kF2);
  EXPECT_TRUE(screen->Field(2).HasFocus());
  EXPECT_THAT(screen->log, ElementsAre("sale1", "sale2", "lista3", "sale3"));
}

TEST_F(PantallaBaseTest, TypingReplacesWhatIsSelected) {
  screen->Field(1).SetText("abcd");
  screen->Field(1).Select(0, 3);
  screen->Press({0, 0, "1"});
  EXPECT_EQ(screen->Field(1).Text(), "1d");
}

TEST_F(PantallaBaseTest, HintsComeFromTheScreenOrFromTheName) {
  screen->MouseOver(screen->Grabar);
  screen->MouseOver(screen->Calculator());
  EXPECT_EQ(screen->Grabar.ToolTipText(), " Graba Incidencia ");
  EXPECT_EQ(screen->Calculator().ToolTipText(), " Muestra la calculadora ");
  EXPECT_EQ(PistaPorDefecto("Fin", "Prueba"), "");
  EXPECT_EQ(PistaPorDefecto("Borrar", "MConGeneral"), " Borra la Categoría Activa ");
  EXPECT_EQ(PistaPorDefecto("Borrar", "Trabajadores"), " Borra el periodo seleccionado ");
}

TEST_F(PantallaBaseTest, TheCalculatorIsStartedOrBroughtForward) {
  screen->Field(3).SetFocus();
  for (const int window : {0, 9}) {
    shell.window = window;
    screen->Click(screen->Calculator());
    EXPECT_TRUE(screen->Field(3).HasFocus());
  }
  EXPECT_THAT(shell.activated, ElementsAre("5", "calculadora"));
  EXPECT_EQ(screen->Pointer(), MousePointer::kDefault);
}

}  // namespace
}  // namespace zendara

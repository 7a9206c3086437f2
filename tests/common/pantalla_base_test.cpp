// The frame of a screen on a small screen of its own.
#include "common/pantalla_base.hpp"

#include <gmock/gmock.h>

#include <stdexcept>

#include "support/fake_form_host.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;

struct FakeBanner : Banner {
  explicit FakeBanner(std::vector<std::string>& calls) : log(calls) {}
  void PosicionBanner(std::int32_t handle, BannerPlace& place) override {
    log.push_back("banner " + std::to_string(handle) + " " + std::to_string(place.width));
  }
  void AvisoCierre(std::int32_t handle) override {
    log.push_back("closed " + std::to_string(handle));
    throw std::runtime_error("of the host");
  }
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

// Two fields, a button that saves, and a routine of its own behind it.
struct Screen7 : PantallaBase {
  Screen7(Sesion& sesion, RegistroPantallas& pantallas)
      : PantallaBase(sesion, pantallas, {"Prueba", "De prueba", 30001, {{"Grabar", " Graba Incidencia "}}}) {
    for (int i = 1; i <= 2; ++i) Text1.Add(i);
    Grabar.On().click = [this](int) { Guarda(routine); };
    SetLayout(Column({Place(Text1(1)), Place(Text1(2)), Place(Grabar), Place(Calculadora)}));
    ConectaMarco();
  }
  void OnLoad() override { CreaAnuncio(); }

  TextBox& Field(int i) { return Text1(i); }
  Button& Calculator() { return Calculadora; }

  Button Grabar{*this, "Grabar"};
  std::function<void()> routine;
};

class PantallaBaseTest : public testing::Test {
 protected:
  PantallaBaseTest() {
    components.Register(kBannerClass, [this] { return std::unique_ptr<Banner>(new FakeBanner(banner)); });
    sesion.platform.forms = &host;
    sesion.platform.dialogs = &host;
    sesion.platform.shell = &shell;
    sesion.platform.components = &components;
    pantallas.Registra("Prueba", [this] { return screen = std::make_shared<Screen7>(sesion, pantallas); });
    pantallas.Muestra("Prueba");
  }

  FakeFormHost host;
  FakeShell shell;
  Components components;
  std::vector<std::string> banner;
  Sesion sesion{Platform{}};
  RegistroPantallas pantallas;
  std::shared_ptr<Screen7> screen;
};

TEST_F(PantallaBaseTest, HoweverItClosesNobodyReachesItAnyMore) {
  EXPECT_EQ(pantallas.Objeto("Prueba"), screen);
  sesion.FormActivo = screen.get();
  const std::shared_ptr<Screen7> before = screen;
  screen->Unload();  // not by its button, and the banner fails
  EXPECT_THAT(banner, ElementsAre("banner 7 9300", "closed 7"));
  EXPECT_THAT(host.boxes, ElementsAre("Error en tiempo de ejecución '51':\nError interno"));
  EXPECT_EQ(sesion.FormActivo, nullptr);
  EXPECT_NE(pantallas.Objeto("Prueba"), before);
}

TEST_F(PantallaBaseTest, AGuardedRoutineEndsWithABoxWhateverItThrows) {
  screen->routine = [] { throw std::runtime_error("of the host"); };
  testing::internal::CaptureStderr();
  screen->Click(screen->Grabar);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "zendara: error 51: of the host\n");
  EXPECT_THAT(host.boxes, ElementsAre("51  Error interno"));
  EXPECT_TRUE(screen->Loaded());
}

TEST_F(PantallaBaseTest, TheFieldWithTheFocusIsWhiteAndTheOthersAreGrey) {
  EXPECT_EQ(screen->Field(1).BackColor(), kWhite);
  EXPECT_EQ(screen->Field(2).BackColor(), kGrey);
  screen->Press({key::kDown, 0, {}});
  EXPECT_EQ(screen->Field(1).BackColor(), kGrey);
  EXPECT_EQ(screen->Field(2).BackColor(), kWhite);
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

TEST_F(PantallaBaseTest, ACalculatorThatIsOpenIsBroughtForward) {
  shell.window = 9;
  screen->Field(2).SetFocus();
  screen->Click(screen->Calculator());
  EXPECT_TRUE(screen->Field(2).HasFocus());
  EXPECT_THAT(shell.activated, ElementsAre("calculadora"));
}

}  // namespace
}  // namespace zendara

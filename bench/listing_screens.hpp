// The screens of listings without windows, each listing timed from its button until it is staged.
#pragma once

#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>

#include "adapters/hosting/silent_banner.hpp"
#include "frame/sesion_anfitrion.hpp"
#include "incidents/incidencias_fechas.hpp"
#include "listings/imprgast.hpp"
#include "listings/listado_trabajador.hpp"
#include "zendara/engines.hpp"

namespace zendara {

// Nobody sees the screens, and the listing is over when it is staged.
struct Nowhere : FormHost, Dialogs {
  void ShowModal(Form&) override {}
  void DoEvents() override {}
  void ShowHelp(const std::string&, int, const HelpPlace&) override {}
  BoxAnswer Show(const Box& box) override { throw std::runtime_error(box.text); }
  void Beep() override {}
};
struct Staged : ListingViewer {
  void Visualiza(ListingDescription&) override {}
  void FicheroDatos(const std::string&) override {}
  void TablaDatos(const std::string&) override {}
  void FormularioPadre(Form*) override {}
};

class Screens {
 public:
  // REQUIRES: the store outlives it.
  explicit Screens(const Store& store) {
    session_.platform.components.Register(kBannerClass, [] { return std::make_unique<SilentBanner>(); });
    session_.platform.components.Register(kListingViewerClass, [] { return std::make_unique<Staged>(); });
    session_.platform.engine = store.engine.get();
    session_.platform.dialogs = &nowhere_;
    session_.platform.forms = &nowhere_;
    session_.platform.files = store.files.get();
    session_.platform.application_folder = store.folder;
    AbreEmpresa(session_, "00001", "01");
  }

  void Workers(bool fixed) {
    auto screen = std::make_shared<ListadoTrabajador>(session_, screens_);
    screen->Mostrar();
    Control(*screen, "Option1(1)", !fixed);
    Text(*screen, "Text1(0)", "000");
    Text(*screen, "Text1(2)", "999");
    Text(*screen, "Text1(4)", "001");
    Text(*screen, "Text1(6)", "999");
    Time(*screen);
  }
  void Absences() {
    auto caller = std::make_shared<MIncidencias>(session_, screens_);
    session_.FormActivo = caller.get();
    auto screen = std::make_shared<Imprgast>(session_, screens_);
    screen->Mostrar();
    Text(*screen, "Text1(1)", "00000");
    Text(*screen, "Text1(3)", "99999");
    Time(*screen);
    session_.FormActivo = nullptr;
  }
  double Seconds() const { return seconds_; }
  std::int64_t Lines() const { return session_.TablaListados->RecordCount(); }

 private:
  static void Control(Form& form, const char* id, bool chosen) {
    if (chosen) dynamic_cast<OptionButton&>(*form.Find(id)).SetValue(true);
  }
  static void Text(Form& form, const char* id, const char* text) {
    dynamic_cast<TextBox&>(*form.Find(id)).SetText(text);
  }
  void Time(Form& form) {
    auto& button = dynamic_cast<Button&>(*form.Find("Impresora"));
    const auto begin = std::chrono::steady_clock::now();
    button.On().click(button.Index());
    seconds_ = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  }

  Nowhere nowhere_;
  RegistroPantallas screens_;
  Sesion session_{Platform{}};
  double seconds_ = 0;
};

}  // namespace zendara

// The sample form as a screen under the name of a public one, and others that open from it.
#pragma once

#include <memory>
#include <string>

#include "component/componente.hpp"
#include "support/sample_form.hpp"

namespace zendara {

class SampleScreen : public SampleForm, public Pantalla {
 public:
  SampleScreen(const std::string& name, std::string opens)
      : SampleForm(*Surroundings().forms, *Surroundings().dialogs, name), opens_(std::move(opens)) {
    Connect();
  }

  void Mostrar() override { Show(); }
  bool EnPantalla() const override { return Shown(); }

 private:
  static const Platform& Surroundings() { return ElComponente().sesion.platform; }

  void Connect() {
    Image1.On().click = [this](int) {
      std::string chosen;
      CreatePickList(Surroundings().components)->ConsultaFija({"A uno", "B dos", "B tres"}, "Letras", 0, chosen);
    };
    Grabar.On().click = [this](int) {
      const Box question{"¿Graba\ntodo?", BoxButtons::kYesNo, BoxIcon::kQuestion, "Duda", 2};
      const bool yes = Boxes().Show(question) == BoxAnswer::kYes;
      Informa.SetCaption(yes ? "Grabado" : "No grabado");
      SetStatus(yes ? "Todo \"grabado\"" : "");
    };
    Abrir.On().click = [this](int) {
      ElComponente().pantallas.Muestra(opens_);
      Text1(3).SetText("vuelto");
    };
    Imprimir.On().click = [this](int) { Print(); };
  }

  void Print() {
    const std::string path = Surroundings().application_folder + "\\DATOS\\Nom00001.MDB";
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

  std::string opens_;
};

inline void RegisterSampleScreens() {
  RegistroPantallas& screens = ElComponente().pantallas;
  screens.Registra("Trabajadores", [] { return std::make_shared<SampleScreen>("Trabajadores", "Hija"); });
  screens.Registra("Hija", [] { return std::make_shared<SampleScreen>("Hija", "Nieta"); });
  screens.Registra("Nieta", [] { return std::make_shared<SampleScreen>("Nieta", ""); });
}

}  // namespace zendara

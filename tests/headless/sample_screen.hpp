// A small screen with a control of every kind, under the name of a public one, and another that opens from it.
#pragma once

#include <memory>
#include <string>

#include "component/componente.hpp"
#include "platform/form/form.hpp"

namespace zendara {

class SampleScreen : public Form, public Pantalla {
 public:
  SampleScreen(const std::string& name, std::string opens)
      : Form(*ElComponente().sesion.platform.forms, name), opens_(std::move(opens)) {
    for (int i = 1; i <= 3; ++i) Text1.Add(i).SetMaxLength(5);
    Combo1.SetItems({"0 - Ninguno ", "1 - Alguno"});
    Combo1.SetListIndex(0);
    Grid1.Resize(3, 3, 1, 1);
    Grid1.SetCell(0, 1, "Enero");
    Tab1.SetTitles({"Uno", "Dos"});
    Informa.SetCaption("Dice \"hola\"");
    Grabar.SetCaption("&Grabar");
    SetLayout(Column(
        {Pages(Tab1, {Column({Place(Text1(1), {&Image1}), Place(Text1(2))}), Column({Place(Text1(3)), Place(Grid1)})}),
         Place(Combo1), Place(Check1), Place(Option1), Place(Option2), Place(Informa), Place(Grabar), Place(Abrir),
         Place(Imprimir), Place(Salir)}));
    Connect();
  }

  void Mostrar() override { Show(); }
  bool EnPantalla() const override { return Shown(); }

  Tabs Tab1{*this, "Tab1"};
  ControlArray<TextBox> Text1{*this, "Text1"};
  Image Image1{*this, "Image1", 1};
  ComboBox Combo1{*this, "Combo1"};
  CheckBox Check1{*this, "Check1"};
  OptionButton Option1{*this, "Option1", 0}, Option2{*this, "Option1", 1};
  Grid Grid1{*this, "Grid1", 0};
  Label Informa{*this, "Informa"};
  Button Grabar{*this, "Grabar"}, Abrir{*this, "Abrir"}, Imprimir{*this, "Imprimir"}, Salir{*this, "Salir"};

 private:
  const Platform& Surroundings() const { return ElComponente().sesion.platform; }

  void Connect() {
    Image1.On().click = [this](int) {
      std::string chosen;
      CreatePickList(Surroundings().components)->ConsultaFija({"A uno", "B dos", "B tres"}, "Letras", 0, chosen);
    };
    Grabar.On().click = [this](int) {
      const Box question{"¿Graba\ntodo?", BoxButtons::kYesNo, BoxIcon::kQuestion, "Duda", 2};
      const bool yes = Surroundings().dialogs->Show(question) == BoxAnswer::kYes;
      Informa.SetCaption(yes ? "Grabado" : "No grabado");
      SetStatus(yes ? "Todo \"grabado\"" : "");
    };
    Abrir.On().click = [this](int) {
      ElComponente().pantallas.Muestra(opens_);
      Text1(3).SetText("vuelto");
    };
    Imprimir.On().click = [this](int) { Print(); };
    Salir.On().click = [this](int) { Unload(); };
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

// A form with a control of every kind: header fields, pages in pages, a frame, a grid, a look-up image, a picture.
#pragma once

#include <string>
#include <string_view>

#include "platform/form/screen_parts.hpp"

namespace zendara {

struct SampleForm : Form {
  SampleForm(FormHost& host, Dialogs& dialogs, std::string_view name) : Form(host, dialogs, name) {
    for (int i = 1; i <= 5; ++i) {
      TextBox& box = Text1.Add(i);
      box.SetCaption("Campo " + std::to_string(i) + ":");
      box.SetMaxLength(i == 2 ? 20 : 5);
      box.SetBackColor(kGrey);
    }
    Text1.On().got_focus = [this](int i) { Text1(i).SetBackColor(kWhite); };
    Text1.On().lost_focus = [this](int i) { Text1(i).SetBackColor(kGrey); };
    Image1.Add(1);
    Combo1.SetCaption("Lista:");
    Combo1.SetItems({"0 - Ninguno ", "1 - Alguno"});
    Combo1.SetListIndex(0);
    Check2.SetValue(2);
    Option1.Add(0).SetCaption("Sueltas");
    Option1.Add(1).SetCaption("Continuo");
    Marco.SetCaption("Datos");
    Tab1.SetTitles({"Uno", "Dos"});
    Tab2.SetTitles({"Dentro", "Más"});
    Grid1.Resize(3, 3, 1, 1);
    Grid1.SetCell(0, 1, "Enero");
    Informa.SetCaption("Dice \"hola\"");
    Grabar.SetCaption("&Grabar");
    Grabar.SetToolTipText(" Graba los datos ");
    Salir.On().click = [this](int) { Unload(); };
    SetLayout(Column({Row({Place(Text1(1), {&Image1(1)}), Place(Text1(2))}),
                      Pages(Tab1, {Column({Framed(Marco, {Place(Text1(3)), Place(Combo1), Place(Check1)}),
                                           Place(Check2), Row({Place(Option1(0)), Place(Option1(1))})}),
                                   Pages(Tab2, {Column({Place(Text1(4)), Place(Grid1)}), Column({Place(Text1(5))})})}),
                      Row({Place(Picture25), Place(Informa), Space(), Place(Grabar), Place(Abrir), Place(Imprimir),
                           Place(Salir)})}));
  }

  ControlArray<TextBox> Text1{*this, "Text1"};
  ControlArray<Image> Image1{*this, "Image1"};
  ComboBox Combo1{*this, "Combo1"};
  CheckBox Check1{*this, "Check1"}, Check2{*this, "Check2"};
  ControlArray<OptionButton> Option1{*this, "Option1"};
  Frame Marco{*this, "Marco"};
  Tabs Tab1{*this, "Tab1"}, Tab2{*this, "Tab2"};
  Grid Grid1{*this, "Grid1", 0};
  Picture Picture25{*this, "Picture25"};
  Label Informa{*this, "Informa"};
  Button Grabar{*this, "Grabar"}, Abrir{*this, "Abrir"}, Imprimir{*this, "Imprimir"}, Salir{*this, "Salir"};
};

}  // namespace zendara

// A form with every kind of control, and a host that answers for tests.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <functional>
#include <string>
#include <vector>

#include "adapters/qt/form_window.hpp"
#include "adapters/qt/input_events.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/qt_host.hpp"
#include "adapters/qt_script/script_hands.hpp"
#include "platform/form/form.hpp"

namespace zendara {

// Before there is a window.
inline bool StartApplication() {
  if (qApp) return true;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static int argc = 1;
  static char name[] = "qt_tests";
  static char* argv[] = {name, nullptr};
  new QApplication(argc, argv);  // never deleted: the toolkit's own statics may go before it would
  InstallLook();
  return true;
}

// A header field, pages in pages, a frame, a grid, a look-up image, a picture.
struct DemoForm : Form {
  explicit DemoForm(QtHost& host) : Form(host, host, "Demo") {
    for (int i = 1; i <= 5; ++i) {
      TextBox& box = Text1.Add(i);
      box.SetCaption("Campo " + std::to_string(i) + ":");
      box.SetMaxLength(i == 1 ? 5 : 20);
      box.SetBackColor(kGrey);
    }
    Text1.On().got_focus = [this](int i) { Text1(i).SetBackColor(kWhite); };
    Text1.On().lost_focus = [this](int i) { Text1(i).SetBackColor(kGrey); };
    Image1.Add(1);
    Image1.On().click = [this](int) { log.push_back("image " + std::to_string(ImageButtonMark())); };
    Combo1.SetCaption("Lista:");
    Combo1.SetItems({"A", "B", "10"});
    Option1.Add(0).SetCaption("Sueltas");
    Option1.Add(1).SetCaption("Continuo");
    Tab1.SetTitles({"Uno", "Dos"});
    Tab2.SetTitles({"Dentro", "Más"});
    Grid1.Resize(3, 3, 1, 1);
    Grabar.SetCaption("&Grabar");
    Grabar.SetToolTipText(" Graba los datos ");
    Grabar.On().click = [this](int) {
      if (on_click) on_click();
    };
    SetLayout(Column({Row({Place(Text1(1), {&Image1(1)}), Place(Text1(2))}),
                      Pages(Tab1, {Column({Framed(Marco, {Place(Text1(3)), Place(Combo1), Place(Check1)}),
                                           Row({Place(Option1(0)), Place(Option1(1))})}),
                                   Pages(Tab2, {Column({Place(Text1(4)), Place(Grid1)}), Column({Place(Text1(5))})})}),
                      Row({Place(Picture25), Space(), Place(Grabar)})}));
  }

  void OnClose() override { log.emplace_back("close"); }

  ControlArray<TextBox> Text1{*this, "Text1"};
  ControlArray<Image> Image1{*this, "Image1"};
  ComboBox Combo1{*this, "Combo1"};
  CheckBox Check1{*this, "Check1"};
  ControlArray<OptionButton> Option1{*this, "Option1"};
  Frame Marco{*this, "Marco"};
  Tabs Tab1{*this, "Tab1"}, Tab2{*this, "Tab2"};
  Grid Grid1{*this, "Grid1", 0};
  Picture Picture25{*this, "Picture25"};
  Button Grabar{*this, "Grabar"};
  std::vector<std::string> log;
  std::function<void()> on_click;
};

// Runs in the event loop of the window that is shown next, after it is there.
inline void Soon(std::function<void()> action) {
  QMetaObject::invokeMethod(qApp, std::move(action), Qt::QueuedConnection);
}

class QtTest : public testing::Test {
 protected:
  ~QtTest() override { zoom::Set(100); }

  // Shows the form, plays on it, and unloads it.
  void Play(const std::function<void(FormWindow& window)>& play) {
    Soon([this, &play] {
      QApplication::processEvents();  // until it is active
      play(*host.WindowOf(form));
      form.Unload();
    });
    form.Show();
  }

  static QWidget& WidgetOf(FormWindow& window, const Control& control) { return *window.ViewOf(control)->Widget(); }

  const bool started = StartApplication();
  QtHost host;
  DemoForm form{host};
  ScriptHands hands{host, {}};
};

}  // namespace zendara

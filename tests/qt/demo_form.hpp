// The sample form in a window of the real host.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryFile>
#include <functional>
#include <string>
#include <vector>

#include "adapters/cairo/cairo_writer.hpp"
#include "adapters/drafts/memory_drafts.hpp"
#include "adapters/qt/form_window.hpp"
#include "adapters/qt/input_events.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/qt_host.hpp"
#include "adapters/qt_script/script_hands.hpp"
#include "support/sample_form.hpp"

namespace zendara {

// Before there is a window.
inline bool StartApplication() {
  if (qApp) return true;
  // A screen of the size that the windows are made for.
  static QTemporaryFile screen;
  screen.open();
  screen.write(R"({"screens": [{"name": "offscreen", "x": 0, "y": 0, "width": 1366, "height": 768,
                                "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
  screen.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toUtf8());
  static int argc = 1;
  static char name[] = "qt_tests";
  static char* argv[] = {name, nullptr};
  new QApplication(argc, argv);  // never deleted: the toolkit's own statics may go before it would
  InstallLook(Colours::kLight);
  return true;
}

struct DemoForm : SampleForm {
  explicit DemoForm(QtHost& host) : SampleForm(host, host, "Demo") {
    AddToRecord(Text1(1), true);
    for (int i = 2; i <= 5; ++i) AddToRecord(Text1(i));
    Image1.On().click = [this](int) { log.push_back("image " + std::to_string(ImageButtonMark())); };
    Grabar.On().click = [this](int) {
      if (on_click) on_click();
    };
  }

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
  CairoWriter documents;
  MemoryDrafts drafts;
  QtHost host{documents, &drafts};
  DemoForm form{host};
  ScriptHands hands{host, {}};
};

}  // namespace zendara

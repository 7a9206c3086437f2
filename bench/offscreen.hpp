// What the benchmarks of screens share: a large company, its screens in windows drawn offscreen, and time to the paint.
#pragma once

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTimer>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <string>

#include "adapters/cairo/cairo_writer.hpp"
#include "adapters/qt/form_window.hpp"
#include "adapters/qt/input_events.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/pick_window.hpp"
#include "adapters/qt/qt_host.hpp"
#include "common/campos.hpp"
#include "frame/parametros.hpp"
#include "frame/registro_pantallas.hpp"
#include "frame/sesion_anfitrion.hpp"
#include "zendara/engines.hpp"

namespace zendara {

using Stopwatch = std::chrono::steady_clock;

inline std::string company_folder;

// Workers are called up far apart, so that their rows are not on the same pages of the file.
inline constexpr std::int64_t kWorkersApart = 997;
inline constexpr std::int64_t kWorkersLeft = 100;

// Shows a form, lets the body work on its window, and closes it.
class BenchHost : public QtHost {
 public:
  using QtHost::QtHost;

  std::function<void(Form&, FormWindow&)> body;
  DraftKeeper* drafts = nullptr;

  DraftKeeper* Drafts() override { return drafts; }
  void ShowModal(Form& form) override {
    QTimer::singleShot(0, [&] {
      FormWindow& window = *Top();
      Paint(window);
      body(form, window);
      form.Unload();
    });
    QtHost::ShowModal(form);
  }

  // Nothing that is measured asks or complains.
  BoxAnswer Show(const Box& box) override {
    std::cerr << "a box: " << box.text << '\n';
    std::exit(1);
  }

  static void Paint(FormWindow& window) {
    window.Flush();
    QApplication::processEvents();
    window.repaint();
  }
};

struct Company {
  Company() {
    sesion.platform.forms = &host;
    host.OfferNeighbours(sesion.platform.components);
    AbreEmpresa(sesion, "00001", "01");
  }

  std::unique_ptr<Engine> engine = MakeEngine();
  std::unique_ptr<Files> files = MakeHostFiles();
  CairoWriter documents;
  BenchHost host{documents};
  Sesion sesion{Platform{.engine = engine.get(),
                         .dialogs = &host,
                         .files = files.get(),
                         .application_folder = company_folder,
                         .forms = nullptr,
                         .shell = &host}};
  RegistroPantallas pantallas;
};

inline Company& Open() {
  static Company company;
  return company;
}

template <typename Screen>
void OnScreen(const std::function<void(Form&, FormWindow&)>& body) {
  Company& company = Open();
  company.host.body = body;
  Screen screen(company.sesion, company.pantallas);
  screen.Show();
}

inline TextBox& Enter(Form& form, IndiceCampo field) {
  auto& box = static_cast<TextBox&>(*form.Find("Text1(" + std::to_string(field) + ")"));
  form.Run([&] { form.SetFocus(box); });
  return box;
}

inline double SecondsOf(FormWindow& window, const std::function<void()>& action) {
  const auto begin = Stopwatch::now();
  action();
  BenchHost::Paint(window);
  return std::chrono::duration<double>(Stopwatch::now() - begin).count();
}

// From the call of a list to its rows on the screen; none: it did not open, or has no rows. The list is closed again.
inline double SecondsToRows(const std::function<void()>& open) {
  const auto begin = Stopwatch::now();
  Stopwatch::time_point painted = begin;
  QTimer::singleShot(0, [&] {
    auto* list = dynamic_cast<PickWindow*>(QApplication::activeModalWidget());
    if (!list) return;
    list->repaint();
    if (list->Rows().Shown() > 0) painted = Stopwatch::now();
    PressKey(*list, {key::kEsc, 0, {}});
  });
  open();
  return std::chrono::duration<double>(painted - begin).count();
}

// The program of a benchmark: FOLDER holds a company "00001" with the year 01.
inline int RunOffscreen(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "usage: " << argv[0] << " FOLDER [benchmark options]\n";
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LOGGING_RULES", "default.warning=false");
  company_folder = argv[1];
  argv[1] = argv[0];
  ++argv;
  --argc;
  QApplication application(argc, argv);
  InstallLook();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

}  // namespace zendara

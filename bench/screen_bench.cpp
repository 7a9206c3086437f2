// What a clerk waits for on the worker screen of a large company: windows drawn offscreen, each to its paint.
//
// Usage: screen_bench FOLDER [benchmark options]; FOLDER holds a company "00001" with the year 01, which incident_rows
// has filled with incidents.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QApplication>
#include <QLineEdit>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <optional>
#include <vector>

#include "adapters/cairo/cairo_writer.hpp"
#include "adapters/drafts/file_drafts.hpp"
#include "adapters/qt/form_window.hpp"
#include "adapters/qt/input_events.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/pick_window.hpp"
#include "adapters/qt/qt_host.hpp"
#include "bench/offscreen.hpp"
#include "common/buscador.hpp"
#include "common/consulta.hpp"
#include "frame/parametros.hpp"
#include "frame/sesion_anfitrion.hpp"
#include "workers/trabajadores.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

// A worker of the demonstration who has several situaciones and contracts.
constexpr std::int64_t kFullWorker = 13;
constexpr std::int64_t kSituations = 4;

void OnWorkerScreen(const std::function<void(Form&, FormWindow&)>& body) { OnScreen<Trabajadores>(body); }

void FirstPaint(benchmark::State& state) {
  Open();
  for (auto _ : state) OnWorkerScreen([](Form&, FormWindow&) {});
}
BENCHMARK(FirstPaint)->Unit(benchmark::kMillisecond);

void NextWorker(benchmark::State& state) {
  OnWorkerScreen([&](Form& form, FormWindow& window) {
    form.Click(*form.Find("Inicio"));
    for (auto _ : state) {
      form.Click(*form.Find("Siguiente"));
      BenchHost::Paint(window);
    }
  });
}
BENCHMARK(NextWorker)->Unit(benchmark::kMillisecond);

// A letter into the surname and the backspace that takes it out again: two keys to their paint.
void TwoKeys(benchmark::State& state) {
  OnWorkerScreen([&](Form& form, FormWindow& window) {
    Control& surname = *form.Find("Text1(2)");
    form.Click(surname);
    QWidget& widget = *window.ViewOf(surname)->FocusTarget();
    for (auto _ : state) {
      for (const Key& key : {Key{0, 0, "ñ"}, Key{key::kBack, 0, {}}}) {
        PressKey(widget, key);
        BenchHost::Paint(window);
      }
    }
  });
}
BENCHMARK(TwoKeys)->Unit(benchmark::kMillisecond);

void ShowWorker(Form& form, std::int64_t number) {
  Enter(form, CampoTrabajador::kNumero).SetText(std::to_string(number));
  form.Press({key::kEnter, 0, {}});
}

// The next worker where that many drafts of other workers were left; the first worker shown finds them unread.
void NextWorkerBesideDrafts(benchmark::State& state) {
  const fs::path folder = fs::temp_directory_path() / "zendara-screen-bench";
  fs::remove_all(folder);
  std::optional<FileDrafts> drafts(folder);
  Open().host.drafts = &*drafts;
  double first = 0;
  OnWorkerScreen([&](Form& form, FormWindow& window) {
    const std::string scope = form.DraftScope();
    for (std::int64_t i = 0; i < state.range(0); ++i) {
      const std::string number = std::to_string(90000 + i);
      drafts->Leave(drafts->Keep({}, {.scope = scope,
                                      .place = form.DraftPlace(),
                                      .screen = form.Name(),
                                      .screen_title = form.Title(),
                                      .key = {{"Text1(1)", number}, {"Text1(92)", "001"}},
                                      .title = number + " Peña Güell, Begoña (alta nueva)",
                                      .focus = "Text1(4)",
                                      .values = {{"Text1(2)", "Peña"}, {"Text1(3)", "Güell"}, {"Text1(4)", "Begoña"}},
                                      .note = {}}));
    }
    drafts.emplace(folder);
    Open().host.drafts = &*drafts;
    first = SecondsOf(window, [&] { form.Click(*form.Find("Inicio")); });
    for (auto _ : state) {
      form.Click(*form.Find("Siguiente"));
      BenchHost::Paint(window);
    }
  });
  Open().host.drafts = nullptr;
  drafts.reset();
  fs::remove_all(folder);
  state.counters["first_ms"] = 1000 * first;
}
BENCHMARK(NextWorkerBesideDrafts)->ArgName("drafts")->Arg(0)->Arg(500)->Unit(benchmark::kMillisecond);

// Keys one by one into a worker's fields, each to its paint, with the journal of drafts (1) and without (0). The
// slowest of a hundred is what a clerk may notice.
void OneKey(benchmark::State& state) {
  const fs::path folder = fs::temp_directory_path() / "zendara-screen-bench";
  fs::remove_all(folder);
  std::optional<FileDrafts> drafts;
  if (state.range(0)) Open().host.drafts = &drafts.emplace(folder);
  std::vector<double> seconds;
  OnWorkerScreen([&](Form& form, FormWindow& window) {
    ShowWorker(form, kFullWorker);
    TextBox& box = Enter(form, CampoTrabajador::kDomicilio);
    QWidget& widget = *window.ViewOf(box)->FocusTarget();
    for (auto _ : state) {
      const bool full = static_cast<int>(box.Text().size()) >= box.MaxLength();
      if (full) PressKey(widget, {key::kHome, 0, {}});
      seconds.push_back(SecondsOf(window, [&] { PressKey(widget, {0, 0, "x"}); }));
      state.SetIterationTime(seconds.back());
    }
  });
  Open().host.drafts = nullptr;
  drafts.reset();
  fs::remove_all(folder);
  std::ranges::sort(seconds);
  state.counters["p99_ms"] = 1000 * seconds[seconds.size() * 99 / 100];
  state.counters["max_ms"] = 1000 * seconds.back();
}
BENCHMARK(OneKey)->ArgName("journal")->Arg(0)->Arg(1)->Iterations(5000)->UseManualTime()->Unit(benchmark::kMillisecond);

// From the key that leaves a field to the paint of what it did: the fields whose leaving does most.
void LeaveField(benchmark::State& state) {
  const int field = static_cast<int>(state.range(0));
  OnWorkerScreen([&](Form& form, FormWindow& window) {
    ShowWorker(form, kFullWorker);
    std::int64_t number = 0;
    for (auto _ : state) {
      number = number % kWorkersLeft + 1;
      TextBox& box = Enter(form, field);
      if (field == IndiceCampo(CampoTrabajador::kNumero)) box.SetText(std::to_string(number * kWorkersApart));
      if (field == IndiceCampo(CampoTrabajador::kSituacion)) box.SetText(std::to_string(number % kSituations + 1));
      state.SetIterationTime(SecondsOf(window, [&] { form.Press({key::kEnter, 0, {}}); }));
    }
  });
}
BENCHMARK(LeaveField)
    ->ArgName("Text1")
    ->Arg(IndiceCampo(CampoTrabajador::kNumero))
    ->Arg(IndiceCampo(CampoTrabajador::kSituacion))
    ->Arg(IndiceCampo(CampoTrabajador::kFechaAlta))
    ->Arg(IndiceCampo(CampoTrabajador::kCategoria))
    ->Arg(IndiceCampo(CampoTrabajador::kTipo1))
    ->Arg(IndiceCampo(CampoTrabajador::kCentro))
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// From the key that saves a worker to the paint of the emptied screen; both rows are durable then.
void SaveWorker(benchmark::State& state) {
  OnWorkerScreen([&](Form& form, FormWindow& window) {
    std::int64_t number = 0;
    for (auto _ : state) {
      number = number % kWorkersLeft + 1;
      ShowWorker(form, number * kWorkersApart);
      TextBox& box = Enter(form, CampoTrabajador::kApellido1);
      box.SetText(box.Text() == "Cambiado" ? "Otro" : "Cambiado");
      state.SetIterationTime(SecondsOf(window, [&] { form.Press({'G', key::kAlt, "g"}); }));
      if (!box.Text().empty()) state.SkipWithError("it was not saved");
    }
  });
}
BENCHMARK(SaveWorker)->UseManualTime()->Unit(benchmark::kMillisecond);

// From the call of the worker list to its rows on the screen.
void OpenList(benchmark::State& state) {
  for (auto _ : state) {
    const double seconds = SecondsToRows([] { Consulta(Open().sesion, kListaFichaTrabajadores); });
    if (seconds <= 0) state.SkipWithError("the list did not open");
    state.SetIterationTime(seconds);
  }
}
BENCHMARK(OpenList)->UseManualTime()->Unit(benchmark::kMillisecond);

// Megabytes of the program's memory that are in use now.
double Megabytes() {
  std::ifstream statm("/proc/self/statm");
  double all = 0;
  double resident = 0;
  statm >> all >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

// A word typed into a list of all workers as soon as it is there: from its last letter to the first hits on the screen,
// and to all of them. Then, with all rows read, the time of another letter and of one that is taken out again.
template <typename OpenList>
void Search(benchmark::State& state, OpenList open) {
  double first = 0;
  double whole = 0;
  double letter = 0;
  double memory = 0;
  for (auto _ : state) {
    const double before = Megabytes();
    Stopwatch::time_point opened = Stopwatch::now();
    double opening = 0;
    QTimer::singleShot(0, [&] {
      auto* list = dynamic_cast<PickWindow*>(QApplication::activeModalWidget());
      if (!list) return state.SkipWithError("the list did not open");
      list->repaint();
      opening = std::chrono::duration<double>(Stopwatch::now() - opened).count();
      const auto since = [](Stopwatch::time_point begin) {
        return std::chrono::duration<double, std::milli>(Stopwatch::now() - begin).count();
      };
      for (const char* sign : {"l", "a", "s", "a", " ", "g"}) PressKey(list->Line(), {0, 0, sign});
      const auto typed = Stopwatch::now();
      PressKey(list->Line(), {0, 0, "a"});
      while (list->Rows().Shown() == 0 && !list->Rows().Complete()) QApplication::processEvents();
      list->repaint();
      first = std::max(first, since(typed));
      while (!list->Rows().Complete()) QApplication::processEvents();
      list->repaint();
      whole = std::max(whole, since(typed));
      for (const Key& key : {Key{0, 0, "r"}, Key{key::kBack, 0, {}}}) {
        const auto pressed = Stopwatch::now();
        PressKey(list->Line(), key);
        list->repaint();
        letter = std::max(letter, since(pressed));
      }
      memory = std::max(memory, Megabytes() - before);
      PressKey(*list, {key::kEsc, 0, {}});
    });
    open();
    state.SetIterationTime(opening);
  }
  state.counters["first_ms"] = first;
  state.counters["whole_ms"] = whole;
  state.counters["letter_ms"] = letter;
  state.counters["MB"] = memory;
}

void SearchList(benchmark::State& state) {
  Search(state, [] { Consulta(Open().sesion, kListaFichaTrabajadores); });
}
BENCHMARK(SearchList)->Iterations(9)->UseManualTime()->Unit(benchmark::kMillisecond);

void SearchWorkers(benchmark::State& state) {
  Search(state, [] { EligeTrabajador(Open().sesion, {}); });
}
BENCHMARK(SearchWorkers)->Iterations(9)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) { return zendara::RunOffscreen(argc, argv); }

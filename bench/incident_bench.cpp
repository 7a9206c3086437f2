// What a clerk waits for on the screens of incidents of a large company: windows drawn offscreen, each to its paint.
//
// Usage: incident_bench FOLDER [benchmark options]; FOLDER holds a company "00001" with the year 01, which
// incident_rows has filled.
#include <algorithm>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include "bench/offscreen.hpp"
#include "frame/bases_datos.hpp"
#include "incidents/incidencias_fechas.hpp"
#include "incidents/incidencias_variables.hpp"
#include "incidents/solape.hpp"
#include "runtime/format.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

constexpr int kRoomForCalendar = 1600;  // pixels of width

std::string Code(std::int64_t worker) { return FormatText(static_cast<double>(worker), "00000"); }

void Put(Form& form, CampoFechas field, const std::string& text) { Enter(form, IndiceCampo(field)).SetText(text); }
void Put(Form& form, CampoVariable field, const std::string& text) { Enter(form, IndiceCampo(field)).SetText(text); }
void PressEnter(Form& form) { form.Press({key::kEnter, 0, {}}); }

void Save(Form& form) { form.Press({'G', key::kAlt, "g"}); }

// The next of the workers that are called up.
class Workers {
 public:
  std::int64_t Next() { return (number_ = number_ % kWorkersLeft + 1) * kWorkersApart; }

 private:
  std::int64_t number_ = 0;
};

template <typename Screen>
void FirstPaint(benchmark::State& state) {
  Open();
  for (auto _ : state) OnScreen<Screen>([](Form&, FormWindow&) {});
}
BENCHMARK(FirstPaint<MIncidencias>)->Unit(benchmark::kMillisecond);
BENCHMARK(FirstPaint<MIncidenciasESP>)->Unit(benchmark::kMillisecond);
BENCHMARK(FirstPaint<MIncidenciasVAR>)->Unit(benchmark::kMillisecond);

// From the key that leaves the worker's number to the paint of what that calls up, the calendar with it.
template <typename Screen, auto field>
void LeaveWorker(benchmark::State& state) {
  OnScreen<Screen>([&](Form& form, FormWindow& window) {
    window.resize(kRoomForCalendar, window.height());
    Workers workers;
    for (auto _ : state) {
      Put(form, field, Code(workers.Next()));
      state.SetIterationTime(SecondsOf(window, [&] { PressEnter(form); }));
    }
  });
}
BENCHMARK(LeaveWorker<MIncidencias, CampoFechas::kTrabajador>)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LeaveWorker<MIncidenciasESP, CampoFechas::kTrabajador>)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LeaveWorker<MIncidenciasVAR, CampoVariable::kTrabajador>)->UseManualTime()->Unit(benchmark::kMillisecond);

// From the key that saves a new incident to the paint of the emptied screen: its worker has rows in both tables, so all
// of the rule is asked, and the row is durable. It is removed again.
template <typename Screen>
void SaveDated(benchmark::State& state) {
  OnScreen<Screen>([&](Form& form, FormWindow& window) {
    Workers workers;
    for (auto _ : state) {
      const std::string worker = Code(workers.Next());
      const auto enter = [&] {
        Put(form, CampoFechas::kTrabajador, worker);
        PressEnter(form);
        Put(form, CampoFechas::kInicio, "010209");
        Put(form, CampoFechas::kFin, "030209");
      };
      enter();
      state.SetIterationTime(SecondsOf(window, [&] { Save(form); }));
      if (!form.Status().starts_with("Grabado: " + worker)) return state.SkipWithError("it was not saved");
      enter();
      form.Click(*form.Find("Borrar"));
    }
  });
}
BENCHMARK(SaveDated<MIncidencias>)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(SaveDated<MIncidenciasESP>)->UseManualTime()->Unit(benchmark::kMillisecond);

// Types the key of a row of concepts, which calls it up.
void CallUp(Form& form, Recordset& row) {
  constexpr std::pair<CampoVariable, int> kKey[] = {{CampoVariable::kMes, 0},
                                                    {CampoVariable::kTrabajador, 1},
                                                    {CampoVariable::kSituacion, 3},
                                                    {CampoVariable::kConcepto, 4}};
  for (const auto& [field, column] : kKey) {
    Put(form, field, row.Fields(column).Get().Text());
    PressEnter(form);
  }
}

std::shared_ptr<Recordset> VariableRows() {
  return AbreAparte(Open().sesion, FileKind::kYear)->OpenRecordset("TIncidenciasVar", RecordsetType::kTable);
}

// A row that is there, with other units.
void SaveVariable(benchmark::State& state) {
  OnScreen<MIncidenciasVAR>([&](Form& form, FormWindow& window) {
    const std::shared_ptr<Recordset> rows = VariableRows();
    for (auto _ : state) {
      CallUp(form, *rows);
      Put(form, CampoVariable::kUnidades, std::to_string(state.iterations() % 7));
      state.SetIterationTime(SecondsOf(window, [&] { Save(form); }));
      if (!form.Status().starts_with("Grabado: ")) return state.SkipWithError("it was not saved");
      rows->MoveNext();
    }
  });
}
BENCHMARK(SaveVariable)->UseManualTime()->Unit(benchmark::kMillisecond);

template <typename Screen>
void Step(benchmark::State& state) {
  OnScreen<Screen>([&](Form& form, FormWindow& window) {
    window.resize(kRoomForCalendar, window.height());
    form.Click(*form.Find("Inicio"));
    for (auto _ : state) state.SetIterationTime(SecondsOf(window, [&] { form.Click(*form.Find("Siguiente")); }));
  });
}
BENCHMARK(Step<MIncidencias>)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Step<MIncidenciasESP>)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Step<MIncidenciasVAR>)->UseManualTime()->Unit(benchmark::kMillisecond);

// From F2 to the rows of the list, that of the look-up image of that index.
template <typename Screen>
void OpenList(benchmark::State& state) {
  OnScreen<Screen>([&](Form& form, FormWindow& window) {
    if constexpr (std::is_same_v<Screen, MIncidenciasVAR>) {
      CallUp(form, *VariableRows());
    } else {
      Put(form, CampoFechas::kTrabajador, Code(kWorkersApart));
      PressEnter(form);
    }
    BenchHost::Paint(window);
    Control& image = *form.Find("Image1(" + std::to_string(state.range(0)) + ")");
    for (auto _ : state) {
      const double seconds = SecondsToRows([&] { form.Click(image); });
      if (seconds <= 0) return state.SkipWithError("the list did not open");
      state.SetIterationTime(seconds);
    }
  });
}
BENCHMARK(OpenList<MIncidencias>)
    ->ArgName("Image1")
    ->Arg(0)
    ->Arg(1)
    ->Arg(4)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(OpenList<MIncidenciasESP>)
    ->ArgName("Image1")
    ->Arg(0)
    ->Arg(1)
    ->Arg(4)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(OpenList<MIncidenciasVAR>)
    ->ArgName("Image1")
    ->Arg(2)
    ->Arg(4)
    ->Arg(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// The last digit of a start and the backspace that takes it out again, one by one to their paint: the calendar beside
// shows the interval and hides it. The slowest of a hundred is what a clerk may notice.
void OneKey(benchmark::State& state) {
  std::vector<double> seconds;
  OnScreen<MIncidencias>([&](Form& form, FormWindow& window) {
    window.resize(kRoomForCalendar, window.height());
    Put(form, CampoFechas::kTrabajador, Code(kWorkersApart));
    PressEnter(form);
    Put(form, CampoFechas::kInicio, "01020");
    BenchHost::Paint(window);
    const ControlView* calendar = window.ViewOf(*form.Find("Calendario"));
    if (!calendar || !calendar->Widget()->isVisible()) return state.SkipWithError("there is no calendar");
    auto& box = Enter(form, IndiceCampo(CampoFechas::kInicio));
    QWidget& widget = *window.ViewOf(box)->FocusTarget();
    box.Select(static_cast<int>(box.Text().size()), 0);
    bool whole = false;
    for (auto _ : state) {
      const Key pressed = whole ? Key{key::kBack, 0, {}} : Key{0, 0, "1"};
      seconds.push_back(SecondsOf(window, [&] { PressKey(widget, pressed); }));
      state.SetIterationTime(seconds.back());
      whole = !whole;
      if ((Len(box.Text()) == 6) != whole) return state.SkipWithError("the key did not come");
    }
  });
  if (seconds.empty()) return;
  std::ranges::sort(seconds);
  state.counters["p99_ms"] = 1000 * seconds[seconds.size() * 99 / 100];
  state.counters["max_ms"] = 1000 * seconds.back();
}
BENCHMARK(OneKey)->Iterations(2000)->UseManualTime()->Unit(benchmark::kMillisecond);

// The four questions of the rule, on workers with rows in both tables.
void Rule(benchmark::State& state) {
  Sesion& sesion = Open().sesion;
  const std::shared_ptr<Database> company = AbreAparte(sesion, FileKind::kCompany);
  Workers workers;
  std::int64_t rows = 0;
  for (auto _ : state) {
    const auto [open, start, end, within] =
        ConsultasDeSolape(TablaIncidencias::kIT, Code(workers.Next()), "02/01/01", "02/03/01");
    for (const std::string* query : {&open, &start, &end, &within}) {
      rows += company->OpenRecordset(*query)->RecordCount();
    }
  }
  benchmark::DoNotOptimize(rows);
}
BENCHMARK(Rule)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) { return zendara::RunOffscreen(argc, argv); }

// Desks at work on one server, each a program of its own with a clerk's script, who never pauses: he shows a worker,
// changes a field and saves, goes on to the next one; now and then he adds a worker, and an absence of his. Prints how
// long saves took and what was refused. Afterwards each save that was acknowledged is looked for in the tables.
//
// Usage: desks_bench CONNECTION DESKS SECONDS [COMPANIES]; the database holds a demonstration company 00001, and others
// are made as the desks need them.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "adapters/hosting/company_host.hpp"
#include "bench/company_copies.hpp"
#include "runtime/failure.hpp"
#include "runtime/number.hpp"
#include "tests/support/temp_folder.hpp"
#include "zendara/automation.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kWorkers = 100;                       // of the demonstration
constexpr int kFirstAdded = 1000;                   // numbers of workers that desks add
constexpr int kAddedByDesk = 900;                   // at most
constexpr int kAddEvery = 10;                       // rounds
constexpr int kAbsentEvery = 20;                    // rounds
constexpr int kColumns[] = {1, 3, 10, 15, 16, 18};  // texts of a worker that are changed, one by each desk
constexpr auto kOpening = std::chrono::seconds(8);  // all desks begin together

std::string Digits(int number, std::size_t width) {
  const std::string digits = std::to_string(number);
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

std::int64_t Now() {
  return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now().time_since_epoch()).count();
}

// What a desk did, a line each: kind, worker, column or 0, begin, end, whether it was acknowledged, text.
//   show    a worker was shown
//   save    a changed field, `text` is what was put into it
//   add     a new worker
//   absent  a new absence, `text` its start
//   box     what stopped the clerk
struct Deed {
  std::string kind;
  std::string worker = "-";
  int column = 0;
  std::int64_t begin = 0;
  std::int64_t end = 0;
  bool done = false;
  std::string text{};
};

class Clerk : public ScreenUser {
 public:
  Clerk(int desk, Clock::time_point begin, Clock::time_point end, std::ostream& ledger)
      : desk_(desk), begin_(begin), end_(end), ledger_(ledger), random_(static_cast<unsigned>(desk)) {}

  void OnScreen(ShownScreen& screen) override { screen.Name() == "Trabajadores" ? Work(screen) : EnterAbsence(screen); }
  BoxAnswer OnBox(const Box& box) override {
    const std::int64_t now = Now();
    Write({.kind = "box", .begin = now, .end = now, .text = box.text.substr(0, box.text.find('\n'))});
    ++boxes_;
    return ScreenUser::OnBox(box);
  }

 private:
  void Work(ShownScreen& screen) {
    std::this_thread::sleep_until(begin_);
    for (int round = 1; Clock::now() < end_; ++round) {
      ChangeField(screen, round);
      if (round % 2 == 0) Show(screen, [&] { screen.Click("Siguiente"); });
      if (round % kAddEvery == 0 && added_ < kAddedByDesk) AddWorker(screen);
      if (round % kAbsentEvery == 0) screen.Click("CmdIncidenciasIT");
      if (screen.Unsaved()) screen.Click("Cancela");
    }
    screen.Close();
  }

  void Show(ShownScreen& screen, const std::function<void()>& act) {
    Deed deed = {.kind = "show", .begin = Now()};
    act();
    deed.end = Now();
    deed.worker = screen.Read("Text1(1)");
    Write(deed);
  }

  void CallUp(ShownScreen& screen, const std::string& worker) {
    Show(screen, [&] {
      screen.Focus("Text1(1)");
      screen.Press({.code = key::kHome});
      screen.Type(worker + "\n");
    });
  }

  void ChangeField(ShownScreen& screen, int round) {
    const std::string worker = Digits(std::uniform_int_distribution(1, kWorkers)(random_), 5);
    CallUp(screen, worker);
    const int column = kColumns[static_cast<std::size_t>(desk_) % std::size(kColumns)];
    const std::string text = "D" + Digits(desk_, 2) + "-" + Digits(round, 5);
    Fill(screen, "Text1(" + std::to_string(column + 1) + ")", text);
    Save(screen, {.kind = "save", .worker = worker, .column = column, .text = text});
  }

  void AddWorker(ShownScreen& screen) {
    const std::string worker = Digits(kFirstAdded + desk_ * kAddedByDesk + added_, 5);
    CallUp(screen, worker);
    Fill(screen, "Text1(2)", "Alta de puesto");
    Choose(screen, "Combo1(5)", "1");
    Fill(screen, "Text1(6)", "12345678Z");
    Fill(screen, "Text1(94)", "010101");
    Fill(screen, "Text1(106)", "113");
    Fill(screen, "Text1(110)", "2");
    Fill(screen, "Text1(111)", "8");
    Fill(screen, "Text1(115)", "010101");
    Fill(screen, "Text1(140)", "3");
    if (!Save(screen, {.kind = "add", .worker = worker})) return;
    ++added_;
    last_added_ = worker;
    absences_ = 0;
    CallUp(screen, worker);
  }

  // On the screen of absences; the worker is the last one that was added, who is shown.
  void EnterAbsence(ShownScreen& screen) {
    if (last_added_.empty()) return;
    const std::string start = Digits(1 + 2 * (absences_ % 14), 2) + Digits(1 + absences_ / 14 % 12, 2) + "01";
    screen.Focus("Text1(1)");
    screen.Press({.code = key::kHome});
    screen.Type(last_added_ + "\n1\n" + start + "\n" + start + "\n");
    if (Save(screen, {.kind = "absent", .worker = last_added_, .text = start})) ++absences_;
  }

  static void Fill(ShownScreen& screen, const std::string& field, const std::string& text) {
    screen.Focus(field);
    screen.Press({.code = key::kHome});
    screen.Press({.code = key::kEnd, .shift = key::kShift});
    screen.Type(text + "\n");
  }
  static void Choose(ShownScreen& screen, const std::string& list, const std::string& text) {
    screen.Focus(list);
    screen.Type(text);
  }

  bool Save(ShownScreen& screen, Deed deed) {
    const int boxes = boxes_;
    deed.begin = Now();
    screen.Click("Grabar");
    deed.end = Now();
    deed.done = boxes_ == boxes && screen.Status().starts_with("Grabado: " + deed.worker);
    Write(deed);
    if (!deed.done) screen.Click("Cancela");
    return deed.done;
  }

  void Write(const Deed& deed) {
    ledger_ << deed.kind << ' ' << deed.worker << ' ' << deed.column << ' ' << deed.begin << ' ' << deed.end << ' '
            << deed.done << ' ' << deed.text << '\n';
  }

  int desk_;
  Clock::time_point begin_, end_;
  std::ostream& ledger_;
  std::mt19937 random_;
  int boxes_ = 0;
  int added_ = 0;
  int absences_ = 0;
  std::string last_added_;
};

void SitDown(const std::string& place, int desk, const std::string& company, Clock::time_point begin,
             Clock::time_point end, const std::string& ledger_file) {
  std::ofstream ledger(ledger_file);
  Clerk clerk(desk, begin, end, ledger);
  const auto automation = MakeAutomation(clerk);
  const Store store = OpenStore(place);
  Platform platform{.engine = store.engine.get(), .files = store.files.get(), .application_folder = store.folder};
  automation->Install(platform);
  CompanyHost host(platform);
  host.Open({.company = company, .year = "01", .name = {}, .date = {}});
  host.Show("Trabajadores");
  automation->Rethrow();
}

std::vector<Deed> ReadLedger(const std::string& file) {
  std::vector<Deed> deeds;
  std::ifstream ledger(file);
  for (std::string line; std::getline(ledger, line);) {
    std::istringstream words(line);
    Deed deed;
    words >> deed.kind >> deed.worker >> deed.column >> deed.begin >> deed.end >> deed.done;
    words.ignore();
    std::getline(words, deed.text);
    deeds.push_back(std::move(deed));
  }
  return deeds;
}

// A stored field must be what a save put there that no other, acknowledged one began after; a worker or an absence that
// was acknowledged must be there. How many are not.
int CountLost(const std::string& place, const std::string& company, const std::vector<Deed>& deeds) {
  const Store store = OpenStore(place);
  const auto database = store.engine->Workspaces(0)->OpenDatabase("Nom" + company + ".MDB");
  const auto workers = database->OpenRecordset("TrabajadoresFijo", RecordsetType::kTable);
  workers->SetIndex("Icampo0");
  const auto situations = database->OpenRecordset("TrabajadoresVar", RecordsetType::kTable);
  situations->SetIndex("ICampo0");
  std::map<std::pair<std::string, int>, std::vector<const Deed*>> saves;
  std::map<std::string, int> absences;
  int lost = 0;
  for (const Deed& deed : deeds) {
    if (deed.kind == "save") saves[{deed.worker, deed.column}].push_back(&deed);
    if (!deed.done) continue;
    if (deed.kind == "absent") ++absences[deed.worker];
    if (deed.kind != "add") continue;
    workers->Seek({deed.worker});
    situations->Seek({deed.worker});
    lost += workers->NoMatch() || situations->NoMatch();
  }
  for (const auto& [field, put] : saves) {
    workers->Seek({field.first});
    const std::string stored = workers->NoMatch() ? "" : CStr(workers->Fields(field.second).Get());
    const auto last = std::ranges::find(put, stored, &Deed::text);
    const auto follows = [&](const Deed* other) { return other->done && other->begin > (*last)->end; };
    const bool any_done = std::ranges::any_of(put, &Deed::done);
    lost += last == put.end() ? any_done : std::ranges::any_of(put, follows);
  }
  for (const auto& [worker, count] : absences) {
    const auto rows = database->OpenRecordset("SELECT Campo3 FROM TincidenciasIT WHERE Campo0 = '" + worker + "'");
    if (!rows->Eof()) rows->MoveLast();
    lost += std::max(0, count - static_cast<int>(rows->RecordCount()));
  }
  return lost;
}

double Part(const std::vector<double>& sorted, double part) {
  return sorted.empty()
             ? 0
             : sorted[std::min(sorted.size() - 1, static_cast<std::size_t>(part * static_cast<double>(sorted.size())))];
}

std::string Milliseconds(double value) {
  const int tenths = static_cast<int>(value * 10 + 0.5);
  return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " ms";
}

void Report(const std::vector<Deed>& deeds, int seconds) {
  const auto print = [&](const char* what, const auto& counts) {
    std::vector<double> times;
    for (const Deed& deed : deeds) {
      if (counts(deed)) times.push_back(static_cast<double>(deed.end - deed.begin) / 1000);
    }
    std::ranges::sort(times);
    std::cout << "  " << what << ": " << times.size() << ", " << times.size() / static_cast<std::size_t>(seconds)
              << " a second, half within " << Milliseconds(Part(times, 0.5)) << ", 99 of 100 within "
              << Milliseconds(Part(times, 0.99)) << ", longest " << Milliseconds(times.empty() ? 0 : times.back())
              << '\n';
  };
  print("saves", [](const Deed& deed) { return deed.kind != "show" && deed.kind != "box" && deed.done; });
  print("workers added, of these", [](const Deed& deed) { return deed.kind == "add" && deed.done; });
  print("absences, of these", [](const Deed& deed) { return deed.kind == "absent" && deed.done; });
  print("workers shown", [](const Deed& deed) { return deed.kind == "show"; });
  std::map<std::string, int> boxes;
  for (const Deed& deed : deeds) {
    if (deed.kind == "box") ++boxes[deed.text];
  }
  for (const auto& [text, count] : boxes) std::cout << "  " << count << " times: " << text << '\n';
}

// The companies are there, and nobody in them whom desks have added.
void Prepare(const std::string& place, int companies) {
  int made = 1;
  {
    const auto engine = MakeEngine(place);
    while (engine->Workspaces(0)->Exists("Nom" + CompanyCode(made + 1) + ".MDB")) ++made;
  }
  if (made < companies) CompanyCopies(place).Make(made + 1, companies, Years::kWhole);
  PlainServer server(place);
  for (const char* table : {"trabajadoresfijo", "trabajadoresvar", "tincidenciasit"}) {
    server.Run("DELETE FROM " + std::string(table) + " WHERE campo0 >= '" + Digits(kFirstAdded, 5) + "'");
    server.Run("VACUUM ANALYZE " + std::string(table));
  }
}

// Whether nothing failed but for rows that another desk had changed.
bool Run(const std::string& place, int desks, int seconds, int companies) {
  const TempFolder folder;
  const auto ledger = [&](int desk) { return folder / std::to_string(desk); };
  const Clock::time_point begin = Clock::now() + kOpening;
  const Clock::time_point end = begin + std::chrono::seconds(seconds);
  int failed = 0;
  for (int desk = 0; desk < desks; ++desk) {
    if (fork() != 0) continue;
    try {
      SitDown(place, desk, CompanyCode(1 + desk % companies), begin, end, ledger(desk));
      _exit(0);
    } catch (...) {
      std::cerr << "desk " << desk << ": " << OneLine(CurrentError()) << '\n';
      _exit(1);
    }
  }
  std::this_thread::sleep_until(begin + (end - begin) * 3 / 4);
  const double memory = PlainServer(place).PrivateMegabytes();
  for (int status = 0; wait(&status) > 0;) failed += status != 0;
  std::vector<Deed> all;
  int lost = 0;
  for (int company = 0; company < companies; ++company) {
    std::vector<Deed> deeds;
    for (int desk = company; desk < desks; desk += companies)
      std::ranges::copy(ReadLedger(ledger(desk)), std::back_inserter(deeds));
    lost += CountLost(place, CompanyCode(1 + company), deeds);
    std::ranges::copy(deeds, std::back_inserter(all));
  }
  std::cout << desks << " desks on " << companies << (companies == 1 ? " company" : " companies") << ", " << seconds
            << " s: " << failed << " failed, " << lost << " acknowledged saves lost; " << memory
            << " MB of a desk's server process alone\n";
  Report(all, seconds);
  std::cout.flush();
  const std::string changed = RuntimeError(kRowChanged).what();
  const bool refused =
      std::ranges::any_of(all, [&](const Deed& deed) { return deed.kind == "box" && !changed.starts_with(deed.text); });
  return failed == 0 && lost == 0 && !refused;
}

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) {
  using namespace zendara;
  if (argc != 4 && argc != 5) return std::cerr << "usage: desks_bench CONNECTION DESKS SECONDS [COMPANIES]\n", 2;
  try {
    const int companies = argc == 5 ? std::atoi(argv[4]) : 1;
    Prepare(argv[1], companies);
    return Run(argv[1], std::atoi(argv[2]), std::atoi(argv[3]), companies) ? 0 : 1;
  } catch (...) {
    std::cerr << "desks_bench: " << OneLine(CurrentError()) << '\n';
    return 1;
  }
}

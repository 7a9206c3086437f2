// Fills a demonstration company with incidents, for the benchmarks: of each table three rows a worker, in the place of
// those that are there, so another run leaves the same rows. Those with dates lie one behind the other over both tables
// and begin in the time of the worker's situaciones; of every ten workers one has an open row in TincidenciasIT and
// another one in TincidenciasESP. Those of concepts are spread evenly over ConTrabajadorConceptos. Worker 00000 has
// none: the incident screens take no such number.
//
// Usage: incident_rows FOLDER; FOLDER holds a company "00001" with the year 01.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <iostream>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "apps/demo/random.hpp"
#include "frame/stored_tables.hpp"
#include "runtime/date.hpp"
#include "runtime/failure.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "values/nombres.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

constexpr int kRowsOfWorker = 3;
constexpr int kOpenOneIn = 10;
constexpr int kLongest = 30;          // days
constexpr double kShortestSpan = 60;  // days that the rows of a worker are spread over

struct Worker {
  std::string code;
  std::string name;
  Date first, last;  // days of his situaciones; an open one counts to the last day of the demonstration
};

std::shared_ptr<Database> OpenFile(Engine& engine, const std::string& folder, FileKind kind) {
  return engine.Workspaces(0)->OpenDatabase(folder + "/DATOS/" + FileName(kind, "00001", "01"));
}

std::string TextOf(Recordset& row, int column) { return CStr(row.Fields(column).Get()); }

std::vector<Worker> ReadWorkers(Database& company) {
  std::vector<Worker> workers;
  const auto fixed = company.OpenRecordset("TrabajadoresFijo", RecordsetType::kForward);
  for (; !fixed->Eof(); fixed->MoveNext()) {
    std::string names[] = {TextOf(*fixed, 1), TextOf(*fixed, 2), TextOf(*fixed, 3)};
    workers.push_back({TextOf(*fixed, 0), Left(NombreCompleto(names[0], names[1], names[2]), 25), {}, {}});
  }
  const Date today = MakeDate(2002, 12, 31).value();
  const auto situations = company.OpenRecordset("TrabajadoresVar", RecordsetType::kForward);
  for (auto worker = workers.begin(); !situations->Eof(); situations->MoveNext()) {
    worker = std::ranges::find(worker, workers.end(), TextOf(*situations, 0), &Worker::code);
    if (worker == workers.end()) break;
    const Value end = situations->Fields(4).Get();
    if (worker->first == Date()) worker->first = situations->Fields(3).Get().AsDate();
    worker->last = end.IsDate() ? end.AsDate() : today;
  }
  std::erase_if(workers, [](const Worker& one) { return one.code == "00000"; });
  return workers;
}

// A table without rows, to which some are added.
class Refilled {
 public:
  Refilled(Database& database, const std::string& table) {
    database.Execute("DELETE * FROM " + table);
    rows_ = database.OpenRecordset(table, RecordsetType::kTable);
  }

  void Add(std::initializer_list<Value> values) {
    rows_->AddNew();
    int column = 0;
    for (const Value& value : values) rows_->Fields(column++).Set(value);
    rows_->Update();
  }

 private:
  std::shared_ptr<Recordset> rows_;
};

// The worker's days are cut into as many stretches as he has rows, which the two tables take in turn.
void FillDated(Database& company, const std::vector<Worker>& workers) {
  Transaction transaction(company);
  {
    Refilled it(company, "TincidenciasIT");
    Refilled esp(company, "TincidenciasESP");
    for (std::size_t number = 0; number < workers.size(); ++number) {
      const Worker& worker = workers[number];
      Random random(number);
      const bool it_open = number % kOpenOneIn == 0;
      const bool esp_open = number % kOpenOneIn == kOpenOneIn / 2;
      const int stretch =
          static_cast<int>(std::max(worker.last.serial - worker.first.serial, kShortestSpan)) / (2 * kRowsOfWorker);
      for (int i = 0; i < 2 * kRowsOfWorker; ++i) {
        const bool is_it = (i % 2 == 0) != it_open;  // an open row is the last one
        const bool open = (it_open || esp_open) && i == 2 * kRowsOfWorker - 1;
        const int days = random.Between(1, std::min(stretch, kLongest));
        const Date start = {worker.first.serial + i * stretch + random.Between(0, stretch - days)};
        const std::string type = std::to_string(random.Between(1, is_it ? 5 : 2));
        (is_it ? it : esp).Add({worker.code, worker.name, type, start, open ? Value() : Date{start.serial + days - 1}});
      }
    }
  }
  transaction.Commit();
}

void FillVariable(Database& year, const std::vector<Worker>& workers) {
  std::unordered_map<std::string, std::string> names;
  for (const Worker& worker : workers) names[worker.code] = worker.name;
  const std::int64_t wanted = kRowsOfWorker * std::ssize(workers);
  const std::int64_t all = year.OpenRecordset("ConTrabajadorConceptos", RecordsetType::kTable)->RecordCount();
  Transaction transaction(year);
  {
    Refilled variable(year, "TIncidenciasVar");
    Random random(0);
    const auto concepts = year.OpenRecordset("ConTrabajadorConceptos", RecordsetType::kForward);
    for (std::int64_t i = 0; !concepts->Eof(); concepts->MoveNext(), ++i) {
      if (wanted < all && i * wanted / all == (i + 1) * wanted / all) continue;
      const auto worker = names.find(TextOf(*concepts, 1));
      if (worker == names.end()) continue;
      const Value proposed = concepts->Fields(19).Get();
      variable.Add({TextOf(*concepts, 0), worker->first, worker->second, TextOf(*concepts, 2), TextOf(*concepts, 3),
                    Left(TextOf(*concepts, 4), 8), proposed.IsNull() ? "1000" : CStr(proposed),
                    std::to_string(random.Between(1, 40))});
    }
  }
  transaction.Commit();
}

void Fill(const std::string& folder) {
  const auto begin = std::chrono::steady_clock::now();
  const auto engine = MakeEngine();
  const auto company = OpenFile(*engine, folder, FileKind::kCompany);
  const auto year = OpenFile(*engine, folder, FileKind::kYear);
  const std::vector<Worker> workers = ReadWorkers(*company);
  FillDated(*company, workers);
  FillVariable(*year, workers);
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
  const auto count = [](Database& database, std::string_view table) {
    return std::to_string(database.OpenRecordset(table, RecordsetType::kTable)->RecordCount());
  };
  std::cout << "incidents: " << count(*company, "TincidenciasIT") << " and " << count(*company, "TincidenciasESP")
            << " with dates, " << count(*year, "TIncidenciasVar") << " of concepts, "
            << static_cast<int>(took.count() * 1000) << " ms\n";
}

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) {
  if (argc != 2) return std::cerr << "usage: incident_rows FOLDER\n", 2;
  try {
    zendara::Fill(argv[1]);
  } catch (...) {
    std::cerr << "incident_rows: " << zendara::OneLine(zendara::CurrentError()) << '\n';
    return 1;
  }
}

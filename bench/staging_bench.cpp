// Staging a listing against the same rows read and inserted directly on SQLite's C interface, with the same collation
// and in transactions of the same size. Medians of three repetitions in turn.
//
// Usage: staging_bench FOLDER; FOLDER is a company with rows in the tables of incidents, and is written.
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "adapters/icu/spanish_order.hpp"
#include "bench/listing_screens.hpp"
#include "runtime/failure.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

using Stopwatch = std::chrono::steady_clock;

constexpr int kRepetitions = 3;
constexpr int kRowsOfATransaction = 1000;

// The rows as SQL gives them, and the same columns as the screens stage them.
constexpr const char* kFixed =
    "SELECT f.Campo0, f.Campo1 || ' ' || f.Campo2 || ' ' || f.Campo3, f.Campo6 || ' ' || f.Campo7 || ' ' || f.Campo8, "
    "f.Campo5, f.Campo9 || ' ' || f.Campo10 || ' ' || f.Campo11 || '  ' || f.Campo12 || '  ' || f.Campo13 || ' ' || "
    "f.Campo14, f.Campo15, f.Campo18, f.Campo89 FROM TrabajadoresVar v, TrabajadoresFijo f WHERE v.Campo0 = f.Campo0 "
    "AND v.Campo49 BETWEEN '000' AND '999' AND v.Campo3 = (SELECT max(Campo3) FROM TrabajadoresVar w WHERE w.Campo0 = "
    "v.Campo0) ORDER BY v.Campo49, v.Campo51, f.Campo1, f.Campo0, v.Campo1";
constexpr const char* kVariable =
    "SELECT v.Campo0, f.Campo1 || ' ' || f.Campo2 || ' ' || f.Campo3, v.Campo5, v.Campo6, v.Campo9, v.Campo10, "
    "v.Campo12, v.Campo14, v.Campo17 FROM TrabajadoresVar v, TrabajadoresFijo f WHERE v.Campo0 = f.Campo0 AND "
    "v.Campo49 "
    "BETWEEN '000' AND '999' ORDER BY v.Campo49, v.Campo51, f.Campo1, f.Campo0, v.Campo1";
constexpr const char* kAbsences =
    "SELECT Campo0, Campo1, Campo2, Campo3, Campo4 FROM TincidenciasIT ORDER BY Campo0, Campo3";

class Raw {
 public:
  explicit Raw(const std::string& file) {
    Check(sqlite3_open_v2(file.c_str(), &base_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr));
    Check(sqlite3_create_collation_v2(
        base_, "es", SQLITE_UTF8, &order_,
        [](void* order, int length_a, const void* a, int length_b, const void* b) {
          return static_cast<SpanishOrder*>(order)->Compare(
              {static_cast<const char*>(a), static_cast<std::size_t>(length_a)},
              {static_cast<const char*>(b), static_cast<std::size_t>(length_b)});
        },
        nullptr));
    Run("PRAGMA synchronous = FULL");
  }
  ~Raw() { sqlite3_close(base_); }
  Raw(const Raw&) = delete;
  Raw& operator=(const Raw&) = delete;

  void Stage(const char* query, int columns) {
    Run("DELETE FROM ListadosNOM");
    sqlite3_stmt* rows = Prepare(query);
    std::string places = "?1";
    std::string names = "Campo0";
    for (int i = 1; i < columns; ++i) {
      places += ",?" + std::to_string(i + 1);
      names += ",Campo" + std::to_string(i);
    }
    sqlite3_stmt* insert = Prepare(("INSERT INTO ListadosNOM (" + names + ") VALUES (" + places + ")").c_str());
    int count = 0;
    while (sqlite3_step(rows) == SQLITE_ROW) {
      if (count % kRowsOfATransaction == 0) Run(count == 0 ? "BEGIN IMMEDIATE" : "COMMIT; BEGIN IMMEDIATE");
      for (int i = 0; i < columns; ++i) sqlite3_bind_value(insert, i + 1, sqlite3_column_value(rows, i));
      sqlite3_step(insert);
      sqlite3_reset(insert);
      ++count;
    }
    if (count > 0) Run("COMMIT");
    sqlite3_finalize(insert);
    sqlite3_finalize(rows);
  }

 private:
  static void Check(int code) {
    if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(code));
  }
  void Run(const char* sql) { Check(sqlite3_exec(base_, sql, nullptr, nullptr, nullptr)); }
  sqlite3_stmt* Prepare(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(base_, sql, -1, &statement, nullptr));
    return statement;
  }

  SpanishOrder order_;
  sqlite3* base_ = nullptr;
};

double Median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

void Compare(const std::string& folder, const char* name, const std::function<void(Screens&)>& staging,
             const char* query, int columns) {
  std::vector<double> ours;
  std::vector<double> direct;
  std::int64_t lines = 0;
  for (int i = 0; i < kRepetitions; ++i) {
    const Store store = OpenStore(folder);
    Screens screens(store);
    staging(screens);
    ours.push_back(screens.Seconds());
    lines = screens.Lines();
    Raw raw(folder + "/DATOS/Nom00001.MDB");
    const auto begin = Stopwatch::now();
    raw.Stage(query, columns);
    direct.push_back(std::chrono::duration<double>(Stopwatch::now() - begin).count());
  }
  std::cout << name << ": " << lines << " lines, " << static_cast<int>(Median(ours) * 1000) << " ms, directly "
            << static_cast<int>(Median(direct) * 1000) << " ms, "
            << static_cast<int>(Median(ours) / Median(direct) * 100) << " %\n";
}

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) {
  using namespace zendara;
  if (argc != 2) return std::cerr << "usage: staging_bench FOLDER\n", 2;
  try {
    Compare(
        argv[1], "workers, fixed data", [](Screens& screens) { screens.Workers(true); }, kFixed, 8);
    Compare(
        argv[1], "workers, situaciones", [](Screens& screens) { screens.Workers(false); }, kVariable, 9);
    Compare(
        argv[1], "absences", [](Screens& screens) { screens.Absences(); }, kAbsences, 5);
  } catch (...) {
    std::cerr << "staging_bench: " << OneLine(CurrentError()) << '\n';
    return 1;
  }
}

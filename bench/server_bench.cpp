// The engine on a server against the same work done directly with libpq's prepared statements, on the same relation.
//
//   server_bench CONNECTION [options]     a database that may be filled; its tables stay
#include <libpq-fe.h>

#include <array>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "adapters/icu/spanish_order.hpp"
#include "bench/ratio_reporter.hpp"
#include "bench/worker_rows.hpp"
#include "frame/stored_tables.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

constexpr const char* kBatch = "256";  // as the engine reads at most

std::string place;

class Raw {
 public:
  Raw() : connection_(PQconnectdb(place.c_str())) {}
  ~Raw() { PQfinish(connection_); }

  void Prepare(const char* name, const std::string& sql) {
    Done(PQprepare(connection_, name, sql.c_str(), 0, nullptr));
  }

  // Texts and bytes are the same in the server's binary form.
  PGresult* Run(const char* name, const std::vector<std::string_view>& values) {
    std::vector<const char*> texts;
    std::vector<int> lengths;
    const std::vector<int> binary(values.size(), 1);
    for (const std::string_view value : values) {
      texts.push_back(value.data());
      lengths.push_back(static_cast<int>(value.size()));
    }
    PGresult* result = PQexecPrepared(connection_, name, static_cast<int>(values.size()), texts.data(), lengths.data(),
                                      binary.data(), 1);
    const ExecStatusType status = PQresultStatus(result);
    if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK) Fail();
    return result;
  }

  void Done(PGresult* result) {
    if (PQresultStatus(result) != PGRES_COMMAND_OK) Fail();
    PQclear(result);
  }

 private:
  [[noreturn]] void Fail() {
    std::cerr << "server_bench: " << PQerrorMessage(connection_);
    std::exit(1);
  }

  PGconn* connection_;
};

// A company file with a worker table of that many rows.
class Fixture {
 public:
  Fixture(const std::string& name, int rows) : file(name) {
    const auto work = engine_->Workspaces(0);
    const bool made = work->Exists(name);
    base_ = made ? work->OpenDatabase(name)
                 : work->CreateDatabase(name, {*StoredTable(FileKind::kCompany, "TrabajadoresFijo")});
    workers = base_->OpenRecordset("TrabajadoresFijo", RecordsetType::kTable);
    workers->SetIndex("Icampo0");
    if (made && workers->RecordCount() == rows) return;
    base_->Execute("DELETE * FROM TrabajadoresFijo");
    base_->BeginTrans();
    for (int i = 0; i < rows; ++i) {
      Fill(*workers, i);
      workers->Update();
    }
    base_->CommitTrans();
  }

  std::string file;
  Raw raw;
  std::shared_ptr<Recordset> workers;

 private:
  std::unique_ptr<Engine> engine_ = MakeEngine(place);
  std::shared_ptr<Database> base_;
};

Fixture& Large() {
  static Fixture fixture("LARGE.MDB", kRows);
  return fixture;
}

// Sort keys of all workers, so that a direct look-up has them ready.
const std::vector<std::string>& SortKeys() {
  static const std::vector<std::string> keys = [] {
    const SpanishOrder order;
    std::vector<std::string> made(kRows);
    for (int i = 0; i < kRows; ++i) order.AppendKey(Key(i), made[static_cast<std::size_t>(i)]);
    return made;
  }();
  return keys;
}

std::string Columns() {
  std::string columns = "campo0";
  for (int i = 1; i < kWorkerColumns; ++i) columns += ", campo" + std::to_string(i);
  return columns;
}

// Each look-up and each step reads the surname.
void SeekZendara(benchmark::State& state) {
  Recordset& rs = *Large().workers;
  rs.SetIndex("Icampo0");
  std::mt19937 random(1);
  for (auto _ : state) {
    rs.Seek({Key(static_cast<int>(random() % kRows))});
    benchmark::DoNotOptimize(rs.Fields(1).Get());
  }
}
BENCHMARK(SeekZendara)->Name("Seek/zendara");

void SeekRaw(benchmark::State& state) {
  Raw& raw = Large().raw;
  static const bool prepared = (raw.Prepare("seek", "SELECT " + Columns() +
                                                        " FROM trabajadoresfijo WHERE zendara_file = $1 AND "
                                                        "campo0_key = $2"),
                                true);
  benchmark::DoNotOptimize(prepared);
  const auto& keys = SortKeys();
  std::mt19937 random(1);
  for (auto _ : state) {
    PGresult* result = raw.Run("seek", {Large().file, keys[random() % kRows]});
    benchmark::DoNotOptimize(PQgetvalue(result, 0, 1));
    PQclear(result);
  }
}
BENCHMARK(SeekRaw)->Name("Seek/raw");

void WalkZendara(benchmark::State& state) {
  Recordset& rs = *Large().workers;
  rs.SetIndex("Icampo0");
  for (auto _ : state) {
    int rows = 0;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext(), ++rows) benchmark::DoNotOptimize(rs.Fields(1).Get());
    if (rows != kRows) state.SkipWithError("rows are missing");
  }
}
BENCHMARK(WalkZendara)->Name("Walk/zendara")->Unit(benchmark::kMillisecond);

void WalkRaw(benchmark::State& state) {
  Raw& raw = Large().raw;
  // The engine's connection does the same for a walk.
  static const bool prepared =
      (raw.Prepare("plans", "SET enable_bitmapscan = off"), PQclear(raw.Run("plans", {})),
       raw.Prepare("walk",
                   "SELECT campo0_key, campo1 FROM trabajadoresfijo WHERE zendara_file = $1 AND "
                   "(campo0_key) > ($2) ORDER BY campo0_key LIMIT " +
                       std::string(kBatch)),
       true);
  benchmark::DoNotOptimize(prepared);
  for (auto _ : state) {
    int rows = 0;
    std::string last;
    for (bool more = true; more;) {
      PGresult* result = raw.Run("walk", {Large().file, last});
      const int count = PQntuples(result);
      for (int row = 0; row < count; ++row) benchmark::DoNotOptimize(std::string(PQgetvalue(result, row, 1)));
      more = count > 0;
      if (more)
        last.assign(PQgetvalue(result, count - 1, 0), static_cast<std::size_t>(PQgetlength(result, count - 1, 0)));
      PQclear(result);
      rows += count;
    }
    if (rows != kRows) state.SkipWithError("rows are missing");
  }
}
BENCHMARK(WalkRaw)->Name("Walk/raw")->Unit(benchmark::kMillisecond);

// Both write the same rows into an empty file of their own, each row durable.
void AddNewZendara(benchmark::State& state) {
  Fixture fixture("EMPTY.MDB", 0);
  int worker = 0;
  for (auto _ : state) {
    Fill(*fixture.workers, worker++);
    fixture.workers->Update();
  }
}
BENCHMARK(AddNewZendara)->Name("AddNew/zendara")->Iterations(1000);

void AddNewRaw(benchmark::State& state) {
  Fixture fixture("EMPTY.MDB", 0);
  std::string places = "$1";
  for (int i = 0; i <= kWorkerColumns; ++i) places += ", $" + std::to_string(i + 2);
  fixture.raw.Prepare(
      "add", "INSERT INTO trabajadoresfijo (zendara_file, campo0_key, " + Columns() + ") VALUES (" + places + ")");
  const auto& keys = SortKeys();
  const std::string date(8, '\0');
  int worker = 0;
  for (auto _ : state) {
    std::vector<std::string> texts;
    for (int i = 1; i < kWorkerColumns; ++i) texts.push_back(TextOf(i));
    const std::string key = Key(worker);
    std::vector<std::string_view> values = {fixture.file, keys[static_cast<std::size_t>(worker++)], key};
    for (int i = 1; i < kWorkerColumns; ++i)
      values.push_back(i == kBirth ? date : texts[static_cast<std::size_t>(i) - 1]);
    PQclear(fixture.raw.Run("add", values));
  }
}
BENCHMARK(AddNewRaw)->Name("AddNew/raw")->Iterations(1000);

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "server_bench: which server?\n";
    return 2;
  }
  zendara::place = argv[1];
  argv[1] = argv[0];
  return zendara::RunWithRatios(argc - 1, argv + 1);
}

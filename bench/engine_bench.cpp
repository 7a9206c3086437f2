// The record engine against the same work done directly on the store's C interface, on the same files.
#include <sqlite3.h>

#include <array>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

#include "adapters/icu/spanish_order.hpp"
#include "bench/ratio_reporter.hpp"
#include "bench/worker_rows.hpp"
#include "frame/stored_tables.hpp"
#include "tests/support/temp_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

// A company file with a worker table of that many rows, open through the engine and directly.
class Fixture {
 public:
  Fixture(const std::string& name, int rows) : path_(folder_ / name) {
    base_ = engine_->Workspaces(0)->CreateDatabase(path_);
    base_->CreateTable(*StoredTable(FileKind::kCompany, "TrabajadoresFijo"));
    workers = base_->OpenRecordset("TrabajadoresFijo", RecordsetType::kTable);
    workers->SetIndex("Icampo0");
    base_->BeginTrans();
    for (int i = 0; i < rows; ++i) {
      Fill(*workers, i);
      workers->Update();
    }
    base_->CommitTrans();
    Check(sqlite3_open_v2(path_.c_str(), &raw_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr));
    Check(sqlite3_create_collation_v2(
        raw_, "es", SQLITE_UTF8, &order_,
        [](void* order, int a_size, const void* a, int b_size, const void* b) {
          return static_cast<SpanishOrder*>(order)->Compare(
              {static_cast<const char*>(a), static_cast<std::size_t>(a_size)},
              {static_cast<const char*>(b), static_cast<std::size_t>(b_size)});
        },
        nullptr));
    Check(sqlite3_exec(raw_, "PRAGMA synchronous = FULL", nullptr, nullptr, nullptr));
  }
  ~Fixture() { sqlite3_close_v2(raw_); }

  sqlite3_stmt* Prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v3(raw_, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr));
    return statement;
  }

  Database& base() { return *base_; }

  std::shared_ptr<Recordset> workers;

 private:
  void Check(int code) {
    if (code == SQLITE_OK) return;
    std::cerr << "engine_bench: " << sqlite3_errmsg(raw_) << '\n';
    std::exit(1);
  }

  TempFolder folder_;
  std::string path_;
  SpanishOrder order_;
  std::unique_ptr<Engine> engine_ = MakeEngine();
  std::shared_ptr<Database> base_;
  sqlite3* raw_ = nullptr;
};

Fixture& Large() {
  static Fixture fixture("Nom00001.MDB", kRows);
  return fixture;
}

std::string_view Text(sqlite3_stmt* statement, int column) {
  return {reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
          static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

// Each look-up and each step reads the surname, so that both sides have come to the row.
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

void FindRaw(benchmark::State& state, const char* sql) {
  sqlite3_stmt* statement = Large().Prepare(sql);
  std::mt19937 random(1);
  for (auto _ : state) {
    const std::string key = Key(static_cast<int>(random() % kRows));
    sqlite3_bind_text(statement, 1, key.data(), static_cast<int>(key.size()), SQLITE_TRANSIENT);
    sqlite3_step(statement);
    benchmark::DoNotOptimize(Text(statement, 1));
    sqlite3_reset(statement);
  }
  sqlite3_finalize(statement);
}
BENCHMARK_CAPTURE(FindRaw, seek, "SELECT * FROM TrabajadoresFijo WHERE Campo0 = ?")->Name("Seek/raw");

void MoveNextZendara(benchmark::State& state) {
  Recordset& rs = *Large().workers;
  rs.SetIndex("Icampo0");
  for (auto _ : state) {
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) benchmark::DoNotOptimize(rs.Fields(1).Get());
  }
}
BENCHMARK(MoveNextZendara)->Name("MoveNext/zendara")->Unit(benchmark::kMillisecond);

void MoveNextRaw(benchmark::State& state) {
  sqlite3_stmt* statement = Large().Prepare("SELECT * FROM TrabajadoresFijo ORDER BY Campo0");
  for (auto _ : state) {
    while (sqlite3_step(statement) == SQLITE_ROW) benchmark::DoNotOptimize(Text(statement, 1));
    sqlite3_reset(statement);
  }
  sqlite3_finalize(statement);
}
BENCHMARK(MoveNextRaw)->Name("MoveNext/raw")->Unit(benchmark::kMillisecond);

// One row by its key, another one each time, as the screens ask for it; directly: with a statement that is ready.
void QueryZendara(benchmark::State& state) {
  Database& base = Large().base();
  std::mt19937 random(1);
  for (auto _ : state) {
    const std::string key = Key(static_cast<int>(random() % kRows));
    const auto rs = base.OpenRecordset("SELECT * FROM TrabajadoresFijo WHERE Campo0 = '" + key + "'");
    benchmark::DoNotOptimize(rs->Fields(1).Get());
  }
}
BENCHMARK(QueryZendara)->Name("Query/zendara");
BENCHMARK_CAPTURE(FindRaw, query, "SELECT * FROM TrabajadoresFijo WHERE Campo0 = ? ORDER BY Campo0")->Name("Query/raw");

// The same with a text that was not there before: parsed and prepared each time.
void FirstQuery(benchmark::State& state) {
  Database& base = Large().base();
  int text = 0;
  for (auto _ : state) {
    const std::string other = "Campo" + std::to_string(text % 19) + " >= Campo" + std::to_string(text / 19 % 19);
    base.OpenRecordset("SELECT * FROM TrabajadoresFijo WHERE Campo0 = '00007' AND " + other);
    ++text;
  }
}
BENCHMARK(FirstQuery);

// Both write the same rows into an empty table of their own, each row durable.
void AddNewZendara(benchmark::State& state) {
  Fixture fixture("Nom00002.MDB", 0);
  int worker = 0;
  for (auto _ : state) {
    Fill(*fixture.workers, worker++);
    fixture.workers->Update();
  }
}
BENCHMARK(AddNewZendara)->Name("AddNew/zendara")->Iterations(2000);

void AddNewRaw(benchmark::State& state) {
  Fixture fixture("Nom00002.MDB", 0);
  std::string places = "?";
  for (int i = 1; i < 91; ++i) places += ",?";
  sqlite3_stmt* statement = fixture.Prepare("INSERT INTO TrabajadoresFijo VALUES (" + places + ")");
  int worker = 0;
  for (auto _ : state) {
    const std::string key = Key(worker++);
    sqlite3_bind_text(statement, 1, key.data(), static_cast<int>(key.size()), SQLITE_TRANSIENT);
    for (int i = 1; i < 19; ++i) sqlite3_bind_text(statement, i + 1, i < 4 ? "Nombre" : "7", -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(statement, 20, "1960-01-01", 10, SQLITE_TRANSIENT);
    for (int i = 20; i < 91; ++i) sqlite3_bind_text(statement, i + 1, i == 75 ? "2500000" : "0", -1, SQLITE_TRANSIENT);
    sqlite3_step(statement);
    sqlite3_reset(statement);
  }
  sqlite3_finalize(statement);
}
BENCHMARK(AddNewRaw)->Name("AddNew/raw")->Iterations(2000);

// Another row each time and another surname, each change durable.
void UpdateZendara(benchmark::State& state) {
  Recordset& rs = *Large().workers;
  rs.SetIndex("Icampo0");
  std::mt19937 random(1);
  static int save = 0;  // a surname that was not there in an earlier repetition either
  for (auto _ : state) {
    rs.Seek({Key(static_cast<int>(random() % kRows))});
    rs.Edit();
    rs.Fields(1).Set(std::to_string(++save));
    rs.Update();
  }
}
BENCHMARK(UpdateZendara)->Name("Update/zendara")->Iterations(2000);

void UpdateRaw(benchmark::State& state) {
  sqlite3_stmt* read = Large().Prepare("SELECT rowid, * FROM TrabajadoresFijo WHERE Campo0 = ?");
  sqlite3_stmt* write = Large().Prepare("UPDATE TrabajadoresFijo SET Campo1 = ? WHERE rowid = ?");
  std::mt19937 random(1);
  static int save = 0;  // a surname that was not there in an earlier repetition either
  for (auto _ : state) {
    const std::string key = Key(static_cast<int>(random() % kRows));
    sqlite3_bind_text(read, 1, key.data(), static_cast<int>(key.size()), SQLITE_TRANSIENT);
    sqlite3_step(read);
    const std::int64_t row = sqlite3_column_int64(read, 0);
    sqlite3_reset(read);
    const std::string name = std::to_string(++save);
    sqlite3_bind_text(write, 1, name.data(), static_cast<int>(name.size()), SQLITE_TRANSIENT);
    sqlite3_bind_int64(write, 2, row);
    sqlite3_step(write);
    sqlite3_reset(write);
  }
  sqlite3_finalize(write);
  sqlite3_finalize(read);
}
BENCHMARK(UpdateRaw)->Name("Update/raw")->Iterations(2000);

// Nothing changed since the last count: the two tables must cost the same.
void RecordCount(benchmark::State& state) {
  static Fixture small("Nom00003.MDB", 100);
  Recordset& rs = state.range(0) == kRows ? *Large().workers : *small.workers;
  for (auto _ : state) benchmark::DoNotOptimize(rs.RecordCount());
}
BENCHMARK(RecordCount)->Arg(100)->Arg(kRows);

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) { return zendara::RunWithRatios(argc, argv); }

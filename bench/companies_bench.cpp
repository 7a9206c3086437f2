// Many companies on one server: opening one and showing its first worker with 10 companies there and with as many as
// wanted, in turn over companies at random, in programs of their own and in one that goes on; then what each desk takes
// of the server's memory, the sizes on disk, and a VACUUM after each company has filled and emptied its staging table.
//
// Usage: companies_bench FEW MANY COMPANIES; two connections to databases of one server that hold a demonstration
// company of 100 workers each. The companies are made of it: all of their own files but, of the years, the rows of a
// month.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/company_copies.hpp"
#include "frame/catalogo.hpp"
#include "runtime/failure.hpp"
#include "zendara/company.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

using Stopwatch = std::chrono::steady_clock;

constexpr int kFew = 10;
constexpr int kAtOnce = 500;    // companies made in one transaction
constexpr int kPrograms = 100;  // of each kind
constexpr int kInOne = 1000;

double SecondsSince(Stopwatch::time_point begin) {
  return std::chrono::duration<double>(Stopwatch::now() - begin).count();
}

// A company opened and its first worker read.
struct Opened {
  Opened(const Store& store, int company) {
    open = OpenCompany(*store.engine, store.folder, CompanyCode(company), "01");
    Recordset& workers = *open.recordsets.items[kTrabajadoresFijo];
    workers.MoveFirst();
    if (workers.Fields(0).Get() != Value("00001")) throw std::runtime_error("a company without its first worker");
  }
  OpenedCompany open;
};

double TimeInProgram(const std::string& place, int company) {
  int result[2];
  if (pipe(result) != 0) throw std::runtime_error("no pipe");
  if (fork() == 0) {
    try {
      const auto begin = Stopwatch::now();
      const Store store = OpenStore(place);
      const Opened opened(store, company);
      const double seconds = SecondsSince(begin);
      _exit(write(result[1], &seconds, sizeof seconds) == sizeof seconds ? 0 : 1);
    } catch (...) {
      std::cerr << OneLine(CurrentError()) << '\n';
      _exit(1);
    }
  }
  close(result[1]);
  double seconds = 0;
  const bool done = read(result[0], &seconds, sizeof seconds) == sizeof seconds;
  close(result[0]);
  wait(nullptr);
  if (!done) throw std::runtime_error("a company was not opened");
  return seconds;
}

void Report(const char* how, std::vector<double> few, std::vector<double> many, int companies) {
  std::ranges::sort(few);
  std::ranges::sort(many);
  const auto micros = [](double seconds) { return std::to_string(static_cast<int>(seconds * 1e6)) + " µs"; };
  const double ratio = many[many.size() / 2] / few[few.size() / 2];
  std::cout << "opening, " << how << ": " << kFew << " companies " << micros(few[few.size() / 2]) << ", " << companies
            << " companies " << micros(many[many.size() / 2]) << ", " << static_cast<int>(ratio * 100)
            << " %; 99 of 100 within " << micros(few[few.size() * 99 / 100]) << " and "
            << micros(many[many.size() * 99 / 100]) << '\n';
}

void CompareOpening(const std::string& few, const std::string& many, int companies) {
  std::mt19937 random(1);
  const auto any_of = [&](int count) { return std::uniform_int_distribution(1, count)(random); };
  std::vector<double> of_few;
  std::vector<double> of_many;
  for (int i = 0; i < kPrograms; ++i) {
    of_few.push_back(TimeInProgram(few, any_of(kFew)));
    of_many.push_back(TimeInProgram(many, any_of(companies)));
  }
  Report("a program of its own", of_few, of_many, companies);
  of_few.clear();
  of_many.clear();
  const Store with_few = OpenStore(few);
  const Store with_many = OpenStore(many);
  for (int i = -1; i < kInOne; ++i) {
    for (const bool all : {false, true}) {
      const auto begin = Stopwatch::now();
      const Opened opened(all ? with_many : with_few, any_of(all ? companies : kFew));
      if (i >= 0) (all ? of_many : of_few).push_back(SecondsSince(begin));
    }
  }
  Report("one program, one after the other", of_few, of_many, companies);
}

void ReportMemory(const std::string& place) {
  const Store store = OpenStore(place);
  const Opened opened(store, 1);
  std::cout << "a desk that has opened a company: " << PlainServer(place).PrivateMegabytes()
            << " MB of its server process alone\n";
}

void ReportSizes(PlainServer& server) {
  std::cout << "on disk: " << server.Run("SELECT pg_size_pretty(pg_database_size(current_database()))") << ", tables "
            << server.Run("SELECT pg_size_pretty(sum(pg_table_size(oid))) FROM pg_class WHERE relkind = 'r'")
            << ", indexes "
            << server.Run("SELECT pg_size_pretty(sum(pg_indexes_size(oid))) FROM pg_class WHERE relkind = 'r'")
            << "; rows "
            << server.Run(
                   "SELECT sum(reltuples)::bigint FROM pg_class WHERE relkind = 'r' AND relnamespace = "
                   "current_schema()::regnamespace")
            << '\n';
}

void ReportVacuum(PlainServer& server) {
  const std::string size = "SELECT pg_size_pretty(pg_total_relation_size('listadosnom'))";
  auto begin = Stopwatch::now();
  server.Run(
      "INSERT INTO listadosnom (zendara_file, campo0, campo1, campo2, campo3, campo0_key, campo1_key) "
      "SELECT zendara_file, campo0, campo1, campo2, campo3, campo0_key, convert_to(campo1, 'UTF8') "
      "FROM trabajadoresfijo");
  const std::string rows = server.Run("SELECT count(*) FROM listadosnom");
  std::cout << "staging tables filled with " << rows << " rows in " << SecondsSince(begin) << " s: " << server.Run(size)
            << '\n';
  begin = Stopwatch::now();
  server.Run("DELETE FROM listadosnom");
  std::cout << "emptied in " << SecondsSince(begin) << " s: " << server.Run(size) << '\n';
  begin = Stopwatch::now();
  server.Run("VACUUM listadosnom");
  std::cout << "VACUUM in " << SecondsSince(begin) << " s: " << server.Run(size) << "; autovacuum had come "
            << server.Run("SELECT autovacuum_count FROM pg_stat_user_tables WHERE relname = 'listadosnom'")
            << " times\n";
}

void MakeCompanies(const std::string& place, int companies) {
  int made = 1;
  {
    const Store store = OpenStore(place);
    while (store.engine->Workspaces(0)->Exists("Nom" + CompanyCode(made + 1) + ".MDB")) ++made;
  }
  const auto begin = Stopwatch::now();
  CompanyCopies copies(place);
  for (int from = made + 1; from <= companies; from += kAtOnce) {
    copies.Make(from, std::min(from + kAtOnce - 1, companies), Years::kOneMonth);
  }
  if (made >= companies) return;
  PlainServer(place).Run("VACUUM ANALYZE");
  std::cout << companies - made << " companies copied in " << SecondsSince(begin) << " s\n";
}

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) {
  using namespace zendara;
  if (argc != 4) return std::cerr << "usage: companies_bench FEW MANY COMPANIES\n", 2;
  try {
    const int companies = std::atoi(argv[3]);
    MakeCompanies(argv[1], kFew);
    MakeCompanies(argv[2], companies);
    CompareOpening(argv[1], argv[2], companies);
    ReportMemory(argv[2]);
    PlainServer server(argv[2]);
    ReportSizes(server);
    ReportVacuum(server);
  } catch (...) {
    std::cerr << "companies_bench: " << OneLine(CurrentError()) << '\n';
    return 1;
  }
}

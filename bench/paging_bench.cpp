// 100,000 staged rows on pages: when the first page is there, when all of them are settled, what a page and a search
// take, and what memory the program comes to.
//
// Usage: paging_bench FILE; a new database that is removed in the end.
#include <sys/resource.h>

#include <chrono>
#include <filesystem>
#include <iostream>
#include <string>

#include "adapters/cairo/cairo_writer.hpp"
#include "print/paged_listing.hpp"
#include "runtime/failure.hpp"
#include "runtime/text.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

using print::CellSide;

constexpr int kRows = 100'000;
constexpr std::size_t kColumns = 9;
constexpr std::string_view kTable = "ListadosNOM";
constexpr std::string_view kSurnames[] = {"García", "Fernández de Córdoba", "Núñez", "Echevarría", "Puig", "O'Donnell"};
constexpr std::string_view kNames[] = {"María del Pilar", "José Luis", "Ainhoa", "Óscar", "Begoña"};

const print::Listing kListing = {"Listado de Trabajadores (Variables)",
                                 {{"NºTrabajador", CellSide::kText, 1000},
                                  {"Nombre Trabajador", CellSide::kText, 2300},
                                  {"F.Alta", CellSide::kText, 700},
                                  {"F.Baja", CellSide::kText, 700},
                                  {"NºMatr", CellSide::kNumber, 700},
                                  {"C.Colectivo", CellSide::kNumber, 800},
                                  {"Categoria", CellSide::kNumber, 800},
                                  {"P.Trabajo", CellSide::kText, 1500},
                                  {"G.Tarifa", CellSide::kNumber, 1000}}};

// Two rows a worker, the second one blank where it repeats the first.
std::string CellOf(int row, std::size_t column) {
  const auto worker = static_cast<std::size_t>(row) / 2;
  const std::string number = Right("0000" + std::to_string(worker), 5);
  switch (column) {
    case 0:
      return row % 2 == 0 ? number : "";
    case 1:
      if (row % 2 != 0) return "";
      return std::string(kSurnames[worker % 6]) + " " + std::string(kSurnames[worker / 6 % 6]) + " " +
             std::string(kNames[worker % 5]);
    case 2:
      return "02/03/98";
    case 3:
      return row % 3 == 0 ? "30/06/01" : "";
    case 4:
      return number;
    case 5:
      return "0000101";
    case 7:
      return row % 7 == 0 ? "Dirección financiera" : "Administración";
    default:
      return "05";
  }
}

void Stage(Database& base) {
  Transaction run(base);
  const auto rows = base.OpenRecordset(kTable, RecordsetType::kTable);
  for (int row = 0; row < kRows; ++row) {
    rows->AddNew();
    for (std::size_t i = 0; i < kColumns; ++i) rows->Fields(static_cast<int>(i)).Set(CellOf(row, i));
    rows->Update();
  }
  run.Commit();
}

long PeakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}

void Show(const std::string& file) {
  const auto engine = MakeEngine();
  TableDef table = {std::string(kTable), {}, {}};
  for (std::size_t i = 0; i < kColumns; ++i) {
    table.columns.push_back({"Campo" + std::to_string(i), ColumnType::kText, 255});
  }
  Stage(*engine->Workspaces(0)->CreateDatabase(file, {table}));

  const CairoWriter writer;
  writer.Measure().Width("a", {});  // the fonts are loaded
  const long before = PeakMegabytes();
  auto begin = std::chrono::steady_clock::now();
  const auto say = [&](const std::string& what) {
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
    std::cout << "paging, " << what << ": " << static_cast<int>(took.count() * 10) / 10.0 << " ms\n";
    begin = std::chrono::steady_clock::now();
  };
  print::PagedListing listing(kListing, {"00001", "Empresa de prueba", "21/11/2026"},
                              print::StagedRows(*engine, file, std::string(kTable), kColumns, YearWindow()),
                              writer.Measure());
  listing.PageAt(0);
  say("first page");
  while (listing.ReadOn(1000)) {
  }
  say("all other rows read, " + std::to_string(listing.Pages()) + " pages settled");
  listing.PageAt(listing.Pages() / 2);
  say("a page");
  listing.Find("no es de nadie", 0, false);
  say("a text that is nowhere");
  std::cout << "paging, " << listing.Rows() << " rows: " << PeakMegabytes() - before << " MB more at most\n";
}

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) {
  if (argc != 2) return std::cerr << "usage: paging_bench FILE\n", 2;
  if (std::filesystem::exists(argv[1])) return std::cerr << "paging_bench: the file is there already\n", 1;
  int status = 0;
  try {
    zendara::Show(argv[1]);
  } catch (...) {
    std::cerr << "paging_bench: " << zendara::OneLine(zendara::CurrentError()) << '\n';
    status = 1;
  }
  for (const char* beside : {"", "-wal", "-shm"}) std::filesystem::remove(std::string(argv[1]) + beside);
  return status;
}

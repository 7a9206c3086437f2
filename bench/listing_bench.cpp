// A listing of all workers by name that asks a query for each row: how long it takes, and what memory the program comes
// to at its highest.
//
// Usage: listing_bench FILE forward|result; FILE is the database of a company.
#include <sys/resource.h>

#include <chrono>
#include <iostream>
#include <string>
#include <string_view>

#include "runtime/failure.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

constexpr std::string_view kListing =
    "SELECT TrabajadoresVar.Campo0, TrabajadoresVar.Campo3, TrabajadoresFijo.Campo1, TrabajadoresFijo.Campo2 "
    "FROM TrabajadoresVar, TrabajadoresFijo WHERE TrabajadoresVar.Campo0 = TrabajadoresFijo.Campo0 "
    "ORDER BY TrabajadoresFijo.Campo1, TrabajadoresFijo.Campo2";

long PeakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}

void List(const std::string& file, RecordsetType type) {
  const auto base = MakeEngine()->Workspaces(0)->OpenDatabase(file);
  const long before = PeakMegabytes();
  const auto begin = std::chrono::steady_clock::now();
  const auto rows = base->OpenRecordset(kListing, type);
  std::int64_t current = 0;
  for (; !rows->Eof(); rows->MoveNext()) {
    const auto last = base->OpenRecordset("SELECT Max(Campo3) FROM TrabajadoresVar WHERE Campo0 = '" +
                                          rows->Fields(0).Get().Text() + "' ");
    if (last->Fields(0).Get() == rows->Fields(1).Get()) ++current;
  }
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
  std::cout << "listing, " << (type == RecordsetType::kForward ? "forward-only" : "kept") << ": " << rows->RecordCount()
            << " rows, " << current << " of them current, " << static_cast<int>(took.count() * 1000) << " ms, "
            << PeakMegabytes() - before << " MB more at most\n";
}

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) {
  using zendara::RecordsetType;
  if (argc != 3) return std::cerr << "usage: listing_bench FILE forward|result\n", 2;
  try {
    zendara::List(argv[1], argv[2] == std::string_view("forward") ? RecordsetType::kForward : RecordsetType::kQuery);
  } catch (...) {
    std::cerr << "listing_bench: " << zendara::OneLine(zendara::CurrentError()) << '\n';
    return 1;
  }
}

// The larger works on a server against one statement of the server's own over the same rows: rates against a COPY of
// the columns that they need, listings staged against an INSERT ... SELECT. Medians of repetitions in turn.
//
// Usage: server_work_bench CONNECTION ZENDARA; the database holds the company 00001 with the year 01, and is written.
// ZENDARA is the command line program.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "bench/listing_screens.hpp"
#include "bench/plain_server.hpp"
#include "runtime/failure.hpp"

namespace zendara {
namespace {

using Stopwatch = std::chrono::steady_clock;

constexpr int kRatings = 9;
constexpr int kStagings = 3;

// What the calculation reads of a worker, and his number.
constexpr int kSingleColumns[] = {0, 19, 20, 21, 22, 24, 48, 75, 76, 77, 80, 81, 82};
constexpr int kFirstOfFamily = 25;
constexpr int kLastOfFamily = 74;

// The staged columns as the server can put them together. Of a sort key that only the desks can make there is one of
// about the same length.
constexpr std::string_view kName = "f.campo1 || ' ' || f.campo2 || ' ' || f.campo3";
constexpr std::string_view kFixed =
    "f.campo6 || ' ' || f.campo7 || ' ' || f.campo8, f.campo5, f.campo9 || ' ' || f.campo10 || ' ' || f.campo11 || "
    "'  ' || f.campo12 || '  ' || f.campo13 || ' ' || f.campo14, f.campo15, f.campo18, f.campo89";
constexpr std::string_view kVariable = "v.campo5, v.campo6, v.campo9, v.campo10, v.campo12, v.campo14, v.campo17";
constexpr std::string_view kLastSituation =
    " AND v.campo3 = (SELECT max(campo3) FROM trabajadoresvar w WHERE w.zendara_file = v.zendara_file AND "
    "w.campo0_key = v.campo0_key)";

double Median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

template <typename Work>
double Seconds(Work work) {
  const auto begin = Stopwatch::now();
  work();
  return std::chrono::duration<double>(Stopwatch::now() - begin).count();
}

void Report(std::string_view work, int count, const std::vector<double>& ours, const std::vector<double>& direct) {
  std::cout << work << ": " << count << " lines, " << static_cast<int>(Median(ours) * 1000) << " ms, directly "
            << static_cast<int>(Median(direct) * 1000) << " ms, "
            << static_cast<int>(Median(ours) / Median(direct) * 100) << " %\n";
}

void CompareRates(const std::string& place, const std::string& program) {
  std::string columns;
  for (const int column : kSingleColumns) columns += "campo" + std::to_string(column) + ", ";
  for (int column = kFirstOfFamily; column <= kLastOfFamily; ++column) {
    columns += "campo" + std::to_string(column) + (column < kLastOfFamily ? ", " : "");
  }
  const std::string copy =
      "COPY (SELECT " + columns + " FROM trabajadoresfijo WHERE zendara_file = 'NOM00001.MDB') TO STDOUT";
  const std::string command =
      program + " rate --store '" + place + "' --company 00001 --year 01 --format csv >/dev/null";
  std::vector<double> ours;
  std::vector<double> direct;
  int rows = 0;
  for (int i = 0; i < kRatings; ++i) {
    ours.push_back(Seconds([&] {
      if (std::system(command.c_str()) != 0) throw std::runtime_error("zendara rate failed");
    }));
    direct.push_back(Seconds([&] { rows = PlainServer(place).CopyOut(copy); }));
  }
  Report("rate", rows, ours, direct);
}

std::string Staging(bool fixed) {
  std::string columns = "zendara_file";
  for (int i = 0; i < (fixed ? 8 : 9); ++i) columns += ", campo" + std::to_string(i);
  return "DELETE FROM listadosnom WHERE zendara_file = 'NOM00001.MDB'; INSERT INTO listadosnom (" + columns +
         ", campo0_key, campo1_key) SELECT f.zendara_file, f.campo0, " + std::string(kName) + ", " +
         std::string(fixed ? kFixed : kVariable) + ", f.campo0_key, convert_to(lower(" + std::string(kName) +
         "), 'UTF8') FROM trabajadoresvar v JOIN trabajadoresfijo f ON f.zendara_file = v.zendara_file AND "
         "f.campo0_key = v.campo0_key WHERE v.zendara_file = 'NOM00001.MDB' AND v.campo49 BETWEEN '000' AND '999'" +
         std::string(fixed ? kLastSituation : "") + " ORDER BY v.campo49, v.campo51, f.campo1, f.campo0, v.campo1";
}

// Each finds the lines of the one before, which it removes, and no remains of earlier ones.
void CompareStaging(const std::string& place, bool fixed) {
  PlainServer server(place);
  const auto sweep = [&] { server.Run("VACUUM listadosnom"); };
  std::vector<double> ours;
  std::vector<double> direct;
  int lines = 0;
  for (int i = 0; i < kStagings; ++i) {
    const Store store = OpenStore(place);
    Screens screens(store);
    sweep();
    screens.Workers(fixed);
    ours.push_back(screens.Seconds());
    lines = static_cast<int>(screens.Lines());
    sweep();
    direct.push_back(Seconds([&] { server.Run(Staging(fixed)); }));
    if (screens.Lines() != lines) throw std::runtime_error("the lines staged directly are not as many");
  }
  Report(fixed ? "workers staged, fixed data" : "workers staged, situaciones", lines, ours, direct);
}

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) {
  using namespace zendara;
  if (argc != 3) return std::cerr << "usage: server_work_bench CONNECTION ZENDARA\n", 2;
  try {
    CompareRates(argv[1], argv[2]);
    CompareStaging(argv[1], true);
    CompareStaging(argv[1], false);
  } catch (...) {
    std::cerr << "server_work_bench: " << OneLine(CurrentError()) << '\n';
    return 1;
  }
}

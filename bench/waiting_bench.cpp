// How long programs wait for each other: each saves rows of one file, one durable change after the other, beside
// programs that read it: as clerks do, who look a worker up or list them all and pause, and without any pause. Prints
// the longest save and how many were refused.
//
// Usage: waiting_bench [PROGRAMS SAVES READERS]
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "frame/stored_tables.hpp"
#include "runtime/failure.hpp"
#include "tests/support/temp_folder.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr int kRows = 2000;
constexpr auto kPause = std::chrono::milliseconds(100);  // of a clerk in great haste

struct Waits {
  double longest = 0;  // seconds
  double sum = 0;
  int saves = 0;
  int refused = 0;
};

std::string Key(int row) {
  const std::string key = std::to_string(row);
  return std::string(5 - key.size(), '0') + key;
}

// A program of its own with the file open.
template <typename Work>
pid_t Start(const std::string& path, Work work) {
  const pid_t program = fork();
  if (program != 0) return program;
  try {
    const auto engine = MakeEngine();
    const auto workers =
        engine->Workspaces(0)->OpenDatabase(path)->OpenRecordset("TrabajadoresFijo", RecordsetType::kTable);
    workers->SetIndex("Icampo0");
    work(*workers);
    _exit(0);
  } catch (...) {
    std::fprintf(stderr, "%s\n", OneLine(CurrentError()).c_str());
    _exit(1);
  }
}

Waits Save(Recordset& workers, int program, int saves) {
  Waits waits;
  for (; waits.saves < saves; ++waits.saves) {
    workers.Seek({Key((program + waits.saves * 4) % kRows)});
    const auto begin = std::chrono::steady_clock::now();
    try {
      workers.Edit();
      workers.Fields(1).Set(std::to_string(waits.saves));
      workers.Update();
    } catch (const RuntimeError& error) {
      std::fprintf(stderr, "%s: %s (%d)\n", error.what(), error.detail().c_str(), error.native());
      ++waits.refused;
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    waits.longest = std::max(waits.longest, seconds);
    waits.sum += seconds;
  }
  return waits;
}

void List(Recordset& workers) {
  for (workers.MoveFirst(); !workers.Eof(); workers.MoveNext()) workers.Fields(1).Get();
}

// Readers, each the program of that number.
using Reading = void (*)(Recordset& workers, int program);

// Every other one lists, the others look up.
[[noreturn]] void ReadAsClerk(Recordset& workers, int program) {
  for (int look_up = 0;; ++look_up) {
    if (program % 2 == 0) {
      List(workers);
    } else {
      workers.Seek({Key(look_up % kRows)});
      workers.Fields(1).Get();
    }
    std::this_thread::sleep_for(kPause);
  }
}

[[noreturn]] void ReadForever(Recordset& workers, int) {
  for (;;) List(workers);
}

void CreateFile(const std::string& path) {
  const auto database =
      MakeEngine()->Workspaces(0)->CreateDatabase(path, {*StoredTable(FileKind::kCompany, "TrabajadoresFijo")});
  const auto workers = database->OpenRecordset("TrabajadoresFijo", RecordsetType::kTable);
  Transaction transaction(*database);
  for (int row = 0; row < kRows; ++row) {
    workers->AddNew();
    workers->Fields(0).Set(Key(row));
    workers->Update();
  }
  transaction.Commit();
}

bool Run(int programs, int saves, int readers, Reading reading, const char* how) {
  const TempFolder folder;
  const std::string path = folder / "Nom00001.MDB";
  CreateFile(path);
  int results[2];
  if (pipe(results) != 0) return false;
  std::vector<pid_t> started;
  for (int i = 0; i < readers; ++i) {
    started.push_back(Start(path, [&](Recordset& workers) { reading(workers, i); }));
  }
  for (int i = 0; i < programs; ++i) {
    Start(path, [&](Recordset& workers) {
      const Waits waits = Save(workers, i, saves);
      if (write(results[1], &waits, sizeof waits) != sizeof waits) _exit(1);
    });
  }
  close(results[1]);
  Waits all;
  for (Waits waits; read(results[0], &waits, sizeof waits) == sizeof waits;) {
    all.longest = std::max(all.longest, waits.longest);
    all.sum += waits.sum;
    all.saves += waits.saves;
    all.refused += waits.refused;
    if (all.saves == programs * saves) break;
  }
  for (const pid_t reader : started) kill(reader, SIGKILL);
  while (wait(nullptr) > 0) {
  }
  close(results[0]);
  std::printf("%d programs beside %d readers %s: %d saves, mean %.1f ms, longest %.0f ms, refused %d\n", programs,
              readers, how, all.saves, all.sum / all.saves * 1000, all.longest * 1000, all.refused);
  std::fflush(stdout);
  return all.saves == programs * saves && all.refused == 0;
}

bool RunAll(int programs, int saves, int readers) {
  const bool clerks = Run(programs, saves, readers, ReadAsClerk, "as clerks read");
  const bool harsh = Run(programs, saves, readers, ReadForever, "that never pause");
  return clerks && harsh;
}

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) {
  if (argc != 1 && argc != 4) return std::fputs("usage: waiting_bench [PROGRAMS SAVES READERS]\n", stderr), 2;
  try {
    const bool held = argc == 1 ? zendara::RunAll(4, 5000, 2)
                                : zendara::RunAll(std::atoi(argv[1]), std::atoi(argv[2]), std::atoi(argv[3]));
    return held ? 0 : 1;
  } catch (...) {
    std::fprintf(stderr, "waiting_bench: %s\n", zendara::OneLine(zendara::CurrentError()).c_str());
    return 1;
  }
}

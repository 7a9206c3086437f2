// Long random sessions on the worker screen.
//
//   random_sessions                                     the seeds that once failed
//   random_sessions SEED [EVENTS]                       one session, each event printed
//   random_sessions --from A --count N [--events E]     a range
#include <stdlib.h>

#include <charconv>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "apps/demo/demo_company.hpp"
#include "apps/zendara/commands/commands.hpp"
#include "component/componente.hpp"
#include "random/clerk.hpp"
#include "random/player.hpp"
#include "support/temp_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

constexpr int kEvents = 3000;

// A change of the sessions gives these other events; they are played on all the same.
const std::vector<std::uint64_t> kFailedOnce = {11135};

// Long runs that do not reach these would find nothing.
constexpr std::string_view kMustWrite[] = {"click Grabar", "click Borrar", "click CmdBorrar", "click CmdCalcular",
                                           "click CalcularRegula"};
constexpr int kLongRun = 20'000;

struct Options {
  std::vector<std::uint64_t> seeds;
  int events = kEvents;
  bool aloud = false;
};

template <typename Number>
Number ToNumber(const std::string& word) {
  Number number{};
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size()) throw std::runtime_error(word + " is no number");
  return number;
}

Options ReadOptions(const std::vector<std::string>& words) {
  Options options;
  if (words.empty()) {
    options.seeds = kFailedOnce;
  } else if (!words[0].starts_with("--")) {
    options.seeds.push_back(ToNumber<std::uint64_t>(words[0]));
    if (words.size() > 1) options.events = ToNumber<int>(words[1]);
    options.aloud = true;
  } else {
    std::map<std::string, std::uint64_t> named = {{"--from", 1}, {"--count", 1}, {"--events", kEvents}};
    for (std::size_t i = 0; i + 1 < words.size(); i += 2) named.at(words[i]) = ToNumber<std::uint64_t>(words[i + 1]);
    for (std::uint64_t i = 0; i < named["--count"]; ++i) options.seeds.push_back(named["--from"] + i);
    options.events = static_cast<int>(named["--events"]);
  }
  return options;
}

void Print(std::string_view what, const std::map<std::string, int>& counts) {
  for (const auto& [text, times] : counts) std::cout << what << " " << times << "  " << text << "\n";
}

// What `zendara data check` finds, empty if nothing.
std::string FaultsOf(const std::string& folder) {
  std::ostringstream out;
  Console console(out, out, false);
  for (const char* year : {"00", "01", "02"}) DataCheck({.dir = folder, .company = "00001", .year = year}, console);
  console.Flush();
  return out.str();
}

// On a copy of the company in `model`. The same seed and number of events give the same session.
bool PlaySession(const std::filesystem::path& model, std::uint64_t seed, int events, Trail& trail, Findings& findings) {
  const TempFolder folder;
  std::filesystem::copy(model, folder.path(), std::filesystem::copy_options::recursive);
  trail.Begin(seed);
  Hands hands(seed, folder.path(), events, trail, findings);
  PlayOnWorkerScreen(hands, folder.path().string());
  // Nothing of the component's state passes on to the next session, nor keeps files open.
  ElComponente().sesion = Sesion(Platform{});
  if (const std::string faults = FaultsOf(folder.path().string()); !faults.empty()) hands.Fail(faults);
  return !hands.Failed();
}

int Play(const Options& options) {
  const TempFolder model;
  WriteDemoCompany(*MakeEngine(), {.folder = model.path().string(), .workers = kRandomWorkers});
  Trail trail(options.aloud);
  trail.WatchProcess();
  Findings findings;
  std::string failed;
  for (const std::uint64_t seed : options.seeds) {
    if (!PlaySession(model.path(), seed, options.events, trail, findings)) failed += " " + std::to_string(seed);
  }
  Print("box", findings.boxes);
  Print("untrapped error", findings.errors);
  Print("wrote", findings.writes);
  std::cout << options.seeds.size() << " seeds, " << findings.events << " events\n";
  for (const std::string_view command : kMustWrite) {
    if (findings.events < kLongRun || findings.writes.contains(std::string(command))) continue;
    failed += " (nothing written by " + std::string(command) + ")";
  }
  if (!failed.empty()) std::cout << "failed:" << failed << "\n";
  return failed.empty() ? 0 : 1;
}

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) {
  // The sessions need not wait for a disk.
  if (std::filesystem::exists("/dev/shm")) setenv("TMPDIR", "/dev/shm", 0);
  try {
    return zendara::Play(zendara::ReadOptions({argv + 1, argv + argc}));
  } catch (const std::exception& error) {
    std::cerr << "random_sessions: " << error.what() << "\n";
    return 2;
  }
}

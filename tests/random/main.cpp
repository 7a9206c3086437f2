// Long random sessions on the worker screen and those of incidents.
//
//   random_sessions                 the seeds that once failed
//   random_sessions SEED            one session, each event printed
//   random_sessions SEED COUNT      that many, from this one on
//   random_sessions --server ...    the same on the test server: a seed plays the same session, up to the first fault
//   of the store
#include <stdlib.h>

#include <cstdint>
#include <exception>
#include <filesystem>
#include <iostream>
#include <numeric>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "apps/demo/demo_company.hpp"
#include "apps/zendara/commands/commands.hpp"
#include "component/componente.hpp"
#include "random/clerk.hpp"
#include "random/player.hpp"
#include "support/site.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

constexpr int kEvents = 3000;

// A change of the sessions gives these other events; they are played on all the same.
const std::vector<std::uint64_t> kFailedOnce = {11135};

// Long runs that do not reach these would find nothing.
constexpr std::string_view kMustWrite[] = {"click Grabar",
                                           "click Borrar",
                                           "click CmdBorrar",
                                           "click CmdCalcular",
                                           "click CalcularRegula",
                                           "MIncidencias adds",
                                           "MIncidencias replaces",
                                           "MIncidencias refuses",
                                           "MIncidencias closes",
                                           "MIncidencias removes",
                                           "MIncidencias fails",
                                           "MIncidencias keeps",
                                           "MIncidenciasESP adds",
                                           "MIncidenciasESP replaces",
                                           "MIncidenciasESP refuses",
                                           "MIncidenciasESP closes",
                                           "MIncidenciasESP removes",
                                           "MIncidenciasESP fails",
                                           "MIncidenciasESP keeps",
                                           "MIncidenciasVAR adds",
                                           "MIncidenciasVAR replaces",
                                           "MIncidenciasVAR removes",
                                           "MIncidenciasVAR fails",
                                           "MIncidenciasVAR keeps"};
constexpr int kLongRun = 20'000;

// What `zendara data check` finds, empty if nothing.
std::string FaultsOf(const std::string& place) {
  std::ostringstream out;
  Console console(out, out, false);
  bool faults = false;
  for (const char* year : {"00", "01", "02"}) {
    faults |= DataCheck({.company = {.place = place, .company = "00001", .year = year}}, console) != 0;
  }
  console.Flush();
  return faults ? out.str() : "";
}

// On a copy of the company. What failed, empty if nothing; the same seed gives the same session.
std::string PlaySession(const Site& company, std::uint64_t seed, bool aloud, Findings& findings) {
  const std::unique_ptr<Site> site = company.Copy();
  Hands hands(seed, site->Place(), kEvents, aloud, findings);
  PlayOnScreens(hands, site->Place());
  // Nothing of the component's state passes on to the next session, nor keeps files open.
  ElComponente().sesion = Sesion(Platform{});
  if (const std::string faults = FaultsOf(site->Place()); !faults.empty()) hands.Fail(faults);
  return hands.Failure();
}

int Play(const Site& company, const std::vector<std::uint64_t>& seeds, bool aloud) {
  {
    const Store store = OpenStore(company.Place());
    WriteDemoCompany(*store.engine, {.folder = store.folder, .workers = kRandomWorkers});
  }
  Findings findings;
  int failed = 0;
  for (const std::uint64_t seed : seeds) {
    std::cout << "seed " << seed << std::endl;  // the last one that is seen if the process dies
    const std::string failure = PlaySession(company, seed, aloud, findings);
    if (failure.empty()) continue;
    std::cout << "failed, " << failure << "\n";
    ++failed;
  }
  for (const std::string_view command : kMustWrite) {
    if (findings.events < kLongRun || findings.writes.contains(std::string(command))) continue;
    std::cout << "failed: nothing was written by " << command << "\n";
    ++failed;
  }
  std::cout << seeds.size() << " seeds, " << findings.events << " events, " << failed << " failed\n";
  return failed == 0 ? 0 : 1;
}

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) {
  // The sessions need not wait for a disk.
  if (std::filesystem::exists("/dev/shm")) setenv("TMPDIR", "/dev/shm", 0);
  try {
    std::vector<std::string> words(argv + 1, argv + argc);
    std::unique_ptr<zendara::Site> site = std::make_unique<zendara::FolderSite>();
    if (std::erase(words, "--server") > 0) {
      if (!zendara::TestServer()) throw std::runtime_error("ZENDARA_TEST_SERVER says of no server");
      site = std::make_unique<zendara::ServerSite>();
    }
    std::vector<std::uint64_t> seeds = zendara::kFailedOnce;
    if (!words.empty()) {
      seeds.resize(words.size() > 1 ? std::stoul(words[1]) : 1);
      std::iota(seeds.begin(), seeds.end(), std::stoull(words[0]));
    }
    return zendara::Play(*site, seeds, words.size() == 1);
  } catch (const std::exception& error) {
    std::cerr << "random_sessions: " << error.what() << "\n";
    return 2;
  }
}

// Kills a program at random moments while it types on the worker screen in windows, and reads its draft back: it has to
// hold all keys that were acknowledged, but at most the last.
//
// Usage: draft_kills ROUNDS [SEED]
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QTimer>
#include <array>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "adapters/cairo/cairo_writer.hpp"
#include "adapters/drafts/file_drafts.hpp"
#include "adapters/qt/form_window.hpp"
#include "adapters/qt/input_events.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/qt_host.hpp"
#include "apps/demo/demo_company.hpp"
#include "frame/sesion_anfitrion.hpp"
#include "support/temp_folder.hpp"
#include "workers/trabajadores.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

constexpr const char* kCompany = "00001";
constexpr const char* kYear = "01";
constexpr int kKeys = 1000;  // more than any round lasts
constexpr int kSomethingElse = kKeys;
constexpr int kLastKill = 120;       // keys
constexpr int kLongestPause = 8000;  // microseconds between two keys, ten times as fast as hands are
constexpr int kLongestRest = 3000;   // microseconds between an acknowledgment and the kill

struct Step {
  int field = 0;       // the mouse goes there; otherwise a key
  char letter = '\0';  // typed; otherwise Backspace
};
using Texts = std::map<std::string, std::string>;

struct Field {
  CampoTrabajador index;
  std::size_t length;
};
constexpr std::array kFields = {Field{CampoTrabajador::kApellido1, 20}, Field{CampoTrabajador::kNombre, 15},
                                Field{CampoTrabajador::kDomicilio, 30}, Field{CampoTrabajador::kMunicipio, 35}};

std::string IdOf(const Field& field) { return "Text1(" + std::to_string(static_cast<int>(field.index)) + ")"; }

int Below(int limit, std::mt19937& random) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

// What is done in a round, and what stands in the fields after each step; the first is before all.
std::vector<Step> StepsOf(unsigned seed, std::vector<Texts>* states = nullptr) {
  std::mt19937 random(seed);
  std::vector<Step> steps = {{.field = 1}};
  while (steps.size() < kKeys) {
    const int choice = Below(12, random);
    if (choice == 0) {
      steps.push_back({.field = Below(kFields.size(), random) + 1});
    } else {
      steps.push_back({.letter = choice < 3 ? '\0' : static_cast<char>('a' + Below(26, random))});
    }
  }
  if (!states) return steps;
  states->emplace_back();
  const Field* field = nullptr;
  for (const Step& step : steps) {
    Texts texts = states->back();
    if (step.field) {
      field = &kFields[static_cast<std::size_t>(step.field - 1)];
    } else if (std::string& text = texts[IdOf(*field)]; step.letter) {
      if (text.size() < field->length) text += step.letter;
    } else if (!text.empty()) {
      text.pop_back();
    }
    std::erase_if(texts, [](const auto& entry) { return entry.second.empty(); });
    states->push_back(std::move(texts));
  }
  return steps;
}

// The program that types: a byte on `pipe` for each step that is done.
int Type(const std::string& folder, const std::string& drafts_folder, unsigned seed, int pipe) {
  struct Host : QtHost {
    using QtHost::QtHost;
    void ShowModal(Form& form) override {
      QTimer::singleShot(0, [&] { type(form); });
      QtHost::ShowModal(form);
    }
    std::function<void(Form&)> type;
  };
  int argc = 1;
  char name[] = "draft_kills";
  char* argv[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LOGGING_RULES", "default.warning=false");
  QApplication application(argc, argv);
  InstallLook();
  FileDrafts drafts(drafts_folder);
  const CairoWriter documents;
  Host host(documents, &drafts);
  const auto engine = MakeEngine();
  const auto files = MakeHostFiles();
  Sesion session({.engine = engine.get(),
                  .dialogs = &host,
                  .files = files.get(),
                  .application_folder = folder,
                  .forms = &host,
                  .shell = &host});
  host.OfferNeighbours(session.platform.components);
  AbreEmpresa(session, kCompany, kYear);
  session.CodEmpresa = kCompany;
  session.PonEjercicio(kYear);
  RegistroPantallas screens;
  Trabajadores screen(session, screens);
  host.type = [&](Form& form) {
    FormWindow& window = *host.Top();
    const auto press = [&](const Key& key) { PressKey(*window.focusWidget(), key); };
    for (const char* digit : {"9", "0", "0"}) press({.code = 0, .shift = 0, .text = digit});
    press({.code = key::kEnter, .shift = 0, .text = {}});
    std::mt19937 random(seed);
    for (const Step& step : StepsOf(seed)) {
      usleep(static_cast<useconds_t>(Below(kLongestPause, random)));
      if (step.field) {
        auto& box = static_cast<TextBox&>(*form.Find(IdOf(kFields[static_cast<std::size_t>(step.field - 1)])));
        window.Pass([&] { form.PointTo(box, box.MaxLength(), 0); });
      } else if (step.letter) {
        press({.code = 0, .shift = 0, .text = std::string(1, step.letter)});
      } else {
        press({.code = key::kBack, .shift = 0, .text = {}});
      }
      if (::write(pipe, "k", 1) != 1) return;
    }
    pause();  // it is killed before
  };
  screen.Show();
  return 0;
}

// How many acknowledged steps the draft lacks; kSomethingElse if it never stood there so.
int Missing(const std::string& drafts_folder, const std::string& scope, unsigned seed, int acknowledged) {
  FileDrafts drafts(drafts_folder);
  Texts kept;
  const auto left = drafts.Left([&](const KeptDraft& any) { return any.draft.scope == scope; });
  if (left.size() > 1) return kSomethingElse;
  if (!left.empty()) {
    for (const auto& [id, text] : left.front().draft.values) kept[id] = text;
  }
  std::vector<Texts> states;
  StepsOf(seed, &states);
  for (int step = acknowledged + 1; step >= 0; --step) {  // the next one may have come through, too
    if (kept == states[static_cast<std::size_t>(step)]) return std::max(acknowledged - step, 0);
  }
  return kSomethingElse;
}

int Run(const char* program, int rounds, unsigned seed) {
  const TempFolder work;
  const std::string folder = work / "company";
  WriteDemoCompany(*MakeEngine(), {.folder = folder, .workers = kDemoCases});
  const std::string scope = folder + " " + kCompany + " " + kYear;
  std::mt19937 random(seed);
  long keys = 0;
  int last_missing = 0;
  for (int round = 1; round <= rounds; ++round) {
    const auto round_seed = static_cast<unsigned>(random());
    const std::string drafts = work / "drafts";
    fs::remove_all(drafts);
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) return 2;
    const pid_t child = fork();
    if (child == 0) {
      const std::string number = std::to_string(round_seed);
      const std::string out = std::to_string(pipe[1]);
      execl(program, program, "--type", folder.c_str(), drafts.c_str(), number.c_str(), out.c_str(), nullptr);
      _exit(127);
    }
    ::close(pipe[1]);
    const int enough = Below(kLastKill, random) + 1;
    int acknowledged = 0;
    char byte = 0;
    while (acknowledged < enough && ::read(pipe[0], &byte, 1) == 1) ++acknowledged;
    usleep(static_cast<useconds_t>(Below(kLongestRest, random)));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    while (::read(pipe[0], &byte, 1) == 1) ++acknowledged;
    ::close(pipe[0]);
    keys += acknowledged;
    const bool killed = WIFSIGNALED(status) && acknowledged >= enough;
    const int missing = killed ? Missing(drafts, scope, round_seed, acknowledged) : kSomethingElse;
    if (missing > 1) {
      std::cerr << "draft_kills: round " << round << " of seed " << seed << ": of " << acknowledged
                << " steps the draft ";
      std::cerr << (missing == kSomethingElse ? "shows something else" : "lacks " + std::to_string(missing)) << '\n';
      return 1;
    }
    last_missing += missing;
  }
  std::cout << rounds << " kills after " << keys << " steps in all: the last key was missing " << last_missing
            << " times, never another one\n";
  return 0;
}

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) try {
  if (argc == 6 && std::string(argv[1]) == "--type") {
    return zendara::Type(argv[2], argv[3], static_cast<unsigned>(std::stoul(argv[4])), std::stoi(argv[5]));
  }
  if (argc < 2) {
    std::cerr << "usage: draft_kills ROUNDS [SEED]\n";
    return 2;
  }
  return zendara::Run(argv[0], std::stoi(argv[1]), argc > 2 ? static_cast<unsigned>(std::stoul(argv[2])) : 1);
} catch (const std::exception& error) {
  std::cerr << "draft_kills: " << error.what() << '\n';
  return 2;
}

// The desktop program: chooses company, year and screen, and shows it in windows.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPixmap>
#include <QTemporaryFile>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <utility>
#include <vector>

#include "adapters/cairo/cairo_writer.hpp"
#include "adapters/drafts/file_drafts.hpp"
#include "adapters/hosting/company_host.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/qt_host.hpp"
#include "adapters/qt/text.hpp"
#include "adapters/qt_script/scripted_windows.hpp"
#include "apps/desk/chooser.hpp"
#include "component/componente.hpp"
#include "runtime/failure.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

struct Options {
  std::string dir;
  std::string company;
  std::string year;
  std::string screen;
  std::string script;
  std::string screenshots;
  int zoom = 100;
};

// One line on standard error, whatever line ends the text holds.
int Fail(int status, std::string text) {
  for (char& c : text) {
    if (c == '\n' || c == '\r') c = ' ';
  }
  std::cerr << "zendara-desk: " << text << std::endl;
  return status;
}

// A display that cannot be reached, or that goes away, ends the program at once: every row that was finished is stored.
void OnMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  const bool lost = text.contains(QLatin1String("X11 connection broke")) ||
                    text.contains(QLatin1String("Wayland connection broke")) ||
                    text.contains(QLatin1String("could not connect to display"));
  if (type != QtFatalMsg && !lost) return;
  const bool gone = text.contains(QLatin1String("broke"));
  const std::string line = std::string("zendara-desk: ") +
                           (gone   ? "the display went away"
                            : lost ? "the display cannot be reached"
                                   : text.toStdString()) +
                           "\n";
  // No destructors: they would ask the display again.
  [[maybe_unused]] const auto written = ::write(STDERR_FILENO, line.data(), line.size());
  ::_exit(kFailed);
}

bool HasDisplay() {
  const auto set = [](const char* name) {
    const char* value = std::getenv(name);
    return value && *value;
  };
  return set("DISPLAY") || set("WAYLAND_DISPLAY") || set("QT_QPA_PLATFORM");
}

// Without a display windows are drawn on a screen of the size that they are made for. False if that cannot be said.
bool DrawOffscreen(QTemporaryFile& screen) {
  if (!screen.open()) return false;
  screen.write(R"({"screens": [{"name": "offscreen", "x": 0, "y": 0, "width": 1366, "height": 768,
                                "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
  screen.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toUtf8());
  return true;
}

// The last picture of each page stands for it; numbers show the order in which the pages came first.
class Album {
 public:
  explicit Album(std::string folder) : folder_(std::move(folder)) { std::filesystem::create_directories(folder_); }

  void Take(QWidget& window, const std::string& name) {
    const int number = numbers_.try_emplace(name, static_cast<int>(numbers_.size()) + 1).first->second;
    const QString file = QStringLiteral("%1-%2.png").arg(number, 2, 10, QLatin1Char('0')).arg(ToQt(name));
    if (!window.grab().save(ToQt(folder_) + QLatin1Char('/') + file)) failed_ = true;
  }
  bool Failed() const { return failed_; }
  std::size_t Pictures() const { return numbers_.size(); }

 private:
  std::string folder_;
  std::map<std::string, int> numbers_;
  bool failed_ = false;
};

class Desk {
 public:
  explicit Desk(Options options)
      : options_(std::move(options)),
        engine_(MakeEngine()),
        files_(MakeHostFiles()),
        drafts_(options_.script.empty() ? std::make_unique<FileDrafts>(DraftsFolder()) : nullptr),
        host_(documents_, drafts_.get()) {
    if (!options_.screenshots.empty()) album_.emplace(options_.screenshots);
  }

  int Run() {
    if (!options_.script.empty()) return Play();
    if (!options_.screen.empty()) return Open();
    return Choose();
  }

 private:
  Platform Surroundings() {
    return {.engine = engine_.get(),
            .dialogs = &host_,
            .files = files_.get(),
            .application_folder = options_.dir,
            .forms = &host_,
            .shell = &host_,
            .components = &host_.Neighbours()};
  }

  int Play() {
    std::ifstream in(options_.script, std::ios::binary);
    std::ostringstream text;
    if (in && in.peek() != std::char_traits<char>::eof()) text << in.rdbuf();
    if (!in.is_open() || in.bad()) return Fail(kFailed, options_.script + ": " + std::strerror(errno));
    Script script;
    try {
      script = ReadScript(text.str());
    } catch (const ScriptError& error) {
      return Fail(error.status(), options_.script + ":" + error.what());
    }
    const auto print = [](std::string_view line) {
      std::cout << line << std::flush;
      if (!std::cout) throw std::runtime_error("standard output takes no more");
    };
    ScriptedWindows::Photographer photographer;
    if (album_) photographer = [this](QWidget& window, const std::string& name) { album_->Take(window, name); };
    const ScriptResult result =
        ScriptedWindows(host_, std::move(script), print, std::move(photographer)).Play(Surroundings());
    if (result.status != 0) return Fail(result.status, options_.script + ":" + result.message);
    if (album_ && album_->Failed()) return Fail(kFailed, options_.screenshots + ": a picture could not be written");
    return 0;
  }

  static void Begin(CompanyHost& company, const std::string& code, const std::string& year, const std::string& name) {
    SessionValues values;
    values.company = code;
    values.year = year;
    values.name = name;
    company.Open(values);
  }

  int Open() {
    CompanyHost company(Surroundings());
    Begin(company, options_.company, options_.year, NameOf(options_.company));
    company.Show(options_.screen);
    return 0;
  }

  std::string NameOf(const std::string& code) {
    for (const Company& company : FindCompanies(*engine_, options_.dir)) {
      if (company.code == code) return company.name;
    }
    return {};
  }

  int Choose() {
    std::vector<Company> companies = FindCompanies(*engine_, options_.dir);
    if (companies.empty()) return Fail(kFailed, options_.dir + ": there is no company in its folder DATOS");
    const std::array<QString, kPantallasPublicas.size()> words = {
        QStringLiteral("&Trabajadores"), QStringLiteral("&Incidencias de I.T."),
        QStringLiteral("Incidencias de E.&S.P."), QStringLiteral("Incidencias Conceptos &Variables")};
    std::vector<ScreenChoice> screens;
    for (std::size_t i = 0; i < words.size(); ++i) {
      const std::string name(kPantallasPublicas[i]);
      screens.push_back({name, words[i], ToQt(ElComponente().pantallas.PorQueNo(name))});
    }
    CompanyHost company(Surroundings());
    Chooser chooser(std::move(companies), screens,
                    [&](const Company& chosen, const std::string& year, const std::string& screen) {
                      try {
                        Begin(company, chosen.code, year, chosen.name);
                        company.Show(screen);
                      } catch (const RuntimeError& error) {
                        host_.Show({.text = error.what(), .icon = BoxIcon::kCritical});
                      }
                    });
    chooser.Select(options_.company, options_.year);
    chooser.show();
    if (album_) {
      QApplication::processEvents();
      album_->Take(chooser, "Zendara");
    }
    return QApplication::exec();
  }

  Options options_;
  std::unique_ptr<Engine> engine_;
  std::unique_ptr<Files> files_;
  CairoWriter documents_;
  std::unique_ptr<FileDrafts> drafts_;  // none for a script, which has its own if it wants
  QtHost host_;
  std::optional<Album> album_;
};

int Main(int argc, char** argv) {
  Options options;
  CLI::App app("Zendara: el personal de una nómina, en ventanas", "zendara-desk");
  app.add_option("--dir", options.dir, "the application's folder, its subfolder DATOS holds the files")->required();
  app.add_option("--company", options.company, "company code, five characters");
  app.add_option("--year", options.year, "working year, two digits");
  app.add_option("--screen", options.screen, "screen to open at once")
      ->check(CLI::IsMember(std::vector<std::string>(kPantallasPublicas.begin(), kPantallasPublicas.end())));
  app.add_option("--run", options.script, "plays a script on the windows");
  app.add_option("--screenshots", options.screenshots, "folder for a picture of every page that a script shows");
  app.add_option("--zoom", options.zoom, "size of the text in percent")->check(CLI::Range(80, zoom::kMost));
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    std::cout << app.help();
    return 0;
  } catch (const CLI::ParseError& error) {
    return Fail(kWrongUsage, error.what());
  }
  if (!options.screen.empty() && (options.company.empty() || options.year.empty())) {
    return Fail(kWrongUsage, "--screen needs --company and --year");
  }
  if (options.script.empty()) {
    // However the folder is named, its drafts are the same.
    std::error_code error;
    const auto folder = std::filesystem::canonical(options.dir, error);
    if (!error) options.dir = folder.string();
  }
  QTemporaryFile screen;
  if (!HasDisplay()) {
    if (options.script.empty()) return Fail(kFailed, "there is no display; a script runs without one, with --run");
    if (!DrawOffscreen(screen)) return Fail(kFailed, "no temporary file can be written");
  }
  qInstallMessageHandler(OnMessage);
  int no_arguments = 1;
  QApplication application(no_arguments, argv);
  QApplication::setApplicationName(QStringLiteral("Zendara"));
  InstallLook();
  zoom::Set(options.zoom);
  return Desk(std::move(options)).Run();
}

}  // namespace
}  // namespace zendara

int main(int argc, char** argv) {
  // A reader that goes away and a file that may not grow show in the write that fails.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  try {
    return zendara::Main(argc, argv);
  } catch (const zendara::RuntimeError& error) {
    return zendara::Fail(zendara::kFailed, zendara::OneLine(error));
  } catch (const std::exception& error) {
    return zendara::Fail(zendara::kFailed, error.what());
  }
}

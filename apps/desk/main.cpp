// The desktop program: its options and its display.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QTemporaryFile>
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"
#include "adapters/stores/password.hpp"
#include "apps/desk/desk.hpp"
#include "apps/desk/start/icon.hpp"
#include "component/componente.hpp"
#include "runtime/failure.hpp"
#include "zendara/runtime_error.hpp"
#include "zendara/version.h"

namespace zendara {
namespace {

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

std::string FromEnvironment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

enum class Display { kNone, kOffscreen, kGiven };

// An offscreen platform that is asked for without a size would be too small for the windows.
Display DisplayAtHand() {
  const std::string platform = FromEnvironment("QT_QPA_PLATFORM");
  if (platform == "offscreen") return Display::kOffscreen;
  const bool given =
      !platform.empty() || !FromEnvironment("DISPLAY").empty() || !FromEnvironment("WAYLAND_DISPLAY").empty();
  return given ? Display::kGiven : Display::kNone;
}

// Windows are drawn on a screen that they have room on: one of the usual size, growing with the text. False if that
// cannot be said.
bool DrawOffscreen(QTemporaryFile& screen, int zoom) {
  constexpr int kWidth = 1366;
  constexpr int kHeight = 768;
  const int percent = std::max(zoom, 100);
  if (!screen.open()) return false;
  screen.write(QStringLiteral(R"({"screens": [{"name": "offscreen", "x": 0, "y": 0, "width": %1, "height": %2,
                                  "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                   .arg(kWidth * percent / 100)
                   .arg(kHeight * percent / 100)
                   .toUtf8());
  screen.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toUtf8());
  return true;
}

CLI::Validator Digits(std::size_t count) {
  return {[count](const std::string& text) {
            const bool good = text.size() == count && text.find_first_not_of("0123456789") == std::string::npos;
            return good ? std::string() : text + " is not a code of " + std::to_string(count) + " digits";
          },
          ""};
}

int Main(int argc, char** argv) {
  DeskOptions options;
  CLI::App app("Zendara: el personal de una nómina, en ventanas", "zendara-desk");
  app.set_version_flag("--version", "zendara-desk " ZENDARA_VERSION, "Print the version and exit");
  CLI::Option* dir = app.add_option(
      "--dir", options.place,
      "the application's folder, its subfolder DATOS holds the files; otherwise the last one, or one that is "
      "chosen in the first window");
  app.add_option("--store", options.place, "the server with the data in place of a folder: postgresql://HOST/DATABASE")
      ->excludes(dir);
  app.add_option("--company", options.company, "company code, five digits")->check(Digits(5));
  app.add_option("--year", options.year, "working year, two digits")->check(Digits(2));
  app.add_option("--screen", options.screen, "screen to open at once")
      ->check(CLI::IsMember(std::vector<std::string>(kPantallasPublicas.begin(), kPantallasPublicas.end())));
  app.add_option("--run", options.script, "plays a script on the windows");
  app.add_option("--screenshots", options.screenshots, "folder for a picture of every page that a script shows");
  app.add_option("--zoom", options.zoom, "size of the text in percent")->check(CLI::Range(80, zoom::kMost));
  const std::map<std::string, Colours> palettes = {
      {"light", Colours::kLight}, {"dark", Colours::kDark}, {"contrast", Colours::kContrast}};
  std::string colours;
  app.add_option("--colours", colours, "colours of the windows; otherwise as the desktop")
      ->check(CLI::IsMember(palettes));
  if (std::any_of(argv, argv + argc, WordHoldsPassword)) return Fail(kWrongUsage, kNoPasswords);
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    std::cout << app.help();
    return 0;
  } catch (const CLI::CallForVersion& version) {
    std::cout << version.what() << '\n';
    return 0;
  } catch (const CLI::ParseError& error) {
    return Fail(kWrongUsage, error.what());
  }
  if (!options.screen.empty() && (options.company.empty() || options.year.empty())) {
    return Fail(kWrongUsage, "--screen needs --company and --year");
  }
  if (!options.script.empty() && options.place.empty()) return Fail(kWrongUsage, "--run needs --dir or --store");
  QTemporaryFile screen;
  const Display display = DisplayAtHand();
  if (display == Display::kNone && options.script.empty()) {
    return Fail(kFailed, "there is no display; a script runs without one, with --run");
  }
  if (display != Display::kGiven && !DrawOffscreen(screen, options.zoom.value_or(100))) {
    return Fail(kFailed, "no temporary file can be written");
  }
  qInstallMessageHandler(OnMessage);
  int no_arguments = 1;
  QApplication application(no_arguments, argv);
  QApplication::setApplicationName(QStringLiteral("Zendara"));
  QApplication::setDesktopFileName(QStringLiteral("zendara-desk"));
  InstallLook(colours.empty() ? DesktopColours() : palettes.at(colours));
  QApplication::setWindowIcon(DeskIcon());
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

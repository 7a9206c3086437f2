#include "apps/desk/desk.hpp"

#include <QApplication>
#include <QPixmap>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"
#include "adapters/qt_script/scripted_windows.hpp"
#include "apps/demo/demo_company.hpp"
#include "apps/desk/start/start_window.hpp"
#include "component/componente.hpp"
#include "runtime/failure.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

const QString kPlace = QStringLiteral("Zendara");

std::vector<ScreenChoice> Screens() {
  const std::array<QString, kPantallasPublicas.size()> words = {
      QStringLiteral("&Trabajadores"), QStringLiteral("&Incidencias de I.T."), QStringLiteral("Incidencias de E.&S.P."),
      QStringLiteral("Incidencias Conceptos &Variables")};
  std::vector<ScreenChoice> screens;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string name(kPantallasPublicas[i]);
    screens.push_back({name, words[i], ToQt(ElComponente().pantallas.PorQueNo(name))});
  }
  return screens;
}

bool IsCut(const QWidget& window) {
  const auto hides = [](const QScrollArea* area) {
    return area->isVisible() &&
           (area->horizontalScrollBar()->maximum() > 0 || area->verticalScrollBar()->maximum() > 0);
  };
  const QSize least = window.minimumSizeHint();
  return std::ranges::any_of(window.findChildren<QScrollArea*>(), hides) || window.width() < least.width() ||
         window.height() < least.height();
}

// nullptr if there is none.
const Company* Named(const std::vector<Company>& companies, const std::string& code) {
  const auto found = std::ranges::find(companies, code, &Company::code);
  return found == companies.end() ? nullptr : &*found;
}

}  // namespace

int Fail(int status, std::string text) {
  for (char& c : text) {
    if (c == '\n' || c == '\r') c = ' ';
  }
  std::cerr << "zendara-desk: " << text << std::endl;
  return status;
}

Album::Album(std::string folder) : folder_(std::move(folder)) { std::filesystem::create_directories(folder_); }

void Album::Take(QWidget& window, const std::string& name) {
  const int number = numbers_.try_emplace(name, static_cast<int>(numbers_.size()) + 1).first->second;
  const QString file = QStringLiteral("%1-%2.png").arg(number, 2, 10, QLatin1Char('0')).arg(ToQt(name));
  if (!window.grab().save(ToQt(folder_) + QLatin1Char('/') + file)) trouble_ = "a picture could not be written";
  if (trouble_.empty() && IsCut(window)) trouble_ = FromQt(file) + ": the screen has no room for the whole of it";
}

Desk::Desk(DeskOptions options)
    : options_(std::move(options)),
      drafts_(options_.script.empty() ? std::make_unique<FileDrafts>(DraftsFolder()) : nullptr),
      host_(documents_, drafts_.get()) {
  if (!options_.screenshots.empty()) album_.emplace(options_.screenshots);
  if (options_.script.empty() && !album_) {
    remembered_ = ReadRemembered(RememberedFile());
    host_.Places() = remembered_->windows;
  }
  zoom::Set(options_.zoom.value_or(remembered_ ? remembered_->zoom : 100));
}

int Desk::Run() {
  if (!options_.script.empty()) return Play();
  if (!options_.screen.empty()) return OpenScreen();
  return Choose();
}

const Store& Desk::At(const std::string& place) {
  const auto known = stores_.find(place);
  return known != stores_.end() ? known->second : stores_.emplace(place, OpenStore(place)).first->second;
}

Platform Desk::Surroundings(const std::string& place) {
  const Store& store = At(place);
  // However a folder is named, its drafts are the same. A server has one name.
  std::error_code error;
  const std::filesystem::path one_name = std::filesystem::canonical(store.folder, error);
  Platform platform{.engine = store.engine.get(),
                    .dialogs = &host_,
                    .files = store.files.get(),
                    .application_folder = error || !drafts_ ? store.folder : one_name.string(),
                    .forms = &host_,
                    .shell = &host_};
  host_.OfferNeighbours(platform.components);
  // What a script prints does not depend on the machine.
  if (options_.script.empty()) platform.components.LookIn(MakeClassFiles());
  return platform;
}

int Desk::Play() {
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
  if (album_) {
    const auto first = FirstWindow(options_.place);
    first->show();
    QApplication::processEvents();
    album_->Take(*first, "Zendara");
  }
  ScriptedWindows::Photographer photographer;
  if (album_) photographer = [this](QWidget& window, const std::string& name) { album_->Take(window, name); };
  const ScriptResult result =
      ScriptedWindows(host_, std::move(script), print, std::move(photographer)).Play(Surroundings(options_.place));
  if (result.status != 0) return Fail(result.status, options_.script + ":" + result.message);
  if (album_ && !album_->Trouble().empty()) return Fail(kFailed, options_.screenshots + ": " + album_->Trouble());
  return 0;
}

void Desk::Show(const std::string& place, const std::string& company, const std::string& name, const std::string& year,
                const std::string& screen) {
  if (!company_ || place != place_) {
    company_.reset();
    company_.emplace(Surroundings(place));
    place_ = place;
  }
  SessionValues values;
  values.company = company;
  values.year = year;
  values.name = name;
  company_->Open(values);
  if (remembered_) {
    remembered_->folder = place;
    remembered_->company = company;
    remembered_->year = year;
    Remember();  // here already: who knows how the program ends
  }
  company_->Show(screen);
  Remember();
}

void Desk::Remember() {
  if (!remembered_) return;
  remembered_->zoom = zoom::Percent();
  remembered_->windows = host_.Places();
  if (!WriteRemembered(RememberedFile(), *remembered_)) {
    Fail(kFailed, FromQt(RememberedFile()) + ": cannot be written, choices are not kept");
  }
}

int Desk::OpenScreen() {
  const std::string place = options_.place.empty() && remembered_ ? remembered_->folder : options_.place;
  if (place.empty()) return Fail(kWrongUsage, "--screen needs --dir or --store: no place was chosen yet");
  const auto companies = Companies(place);
  const Company* company = Named(companies, options_.company);
  Show(place, options_.company, company ? company->name : std::string(), options_.year, options_.screen);
  return 0;
}

std::unique_ptr<StartWindow> Desk::FirstWindow(const std::string& place) {
  const auto open = [this](const std::string& where, const Company& company, const std::string& year,
                           const std::string& screen) {
    try {
      Show(where, company.code, company.name, year, screen);
    } catch (...) {
      const RuntimeError error = CurrentError();
      LogDetail(error);
      host_.Show({.text = OneLine(error), .icon = BoxIcon::kCritical});
    }
  };
  const auto write_demo = [](const std::string& where, const std::function<void(int, int)>& progress) {
    // An engine of the thread's own.
    const Store store = OpenStore(where);
    WriteDemoCompany(*store.engine, {.folder = store.folder}, progress);
  };
  StartActions actions = {
      .companies = [this](const std::string& where) { return Companies(where); },
      .open = open,
      .write_demo = write_demo,
      .tell = [this](const std::string& words) { host_.Show({.text = words, .icon = BoxIcon::kExclamation}); },
      .help = [this] { host_.ShowHelp({}, 0, {}); },
      .closed = [] { QApplication::quit(); },
  };
  auto window = std::make_unique<StartWindow>(std::move(actions), Screens());
  window->Begin(place);
  return window;
}

int Desk::Choose() {
  const std::string place = options_.place.empty() && remembered_ ? remembered_->folder : options_.place;
  const auto window = FirstWindow(place);
  if (Chooser* chooser = window->Companies()) {
    const auto companies = Companies(place);
    if (remembered_) chooser->Select(remembered_->company, remembered_->year);
    const Company* company = Named(companies, options_.company);
    if (!options_.company.empty() && !company) {
      return Fail(kFailed, At(place).folder + ": there is no company " + options_.company);
    }
    chooser->Select(options_.company, options_.year);
    if (!options_.year.empty() && chooser->ChosenYear() != options_.year) {
      return Fail(kFailed,
                  At(place).folder + ": company " + chooser->ChosenCompany()->code + " has no year " + options_.year);
    }
  }
  const QSize natural = window->size();
  host_.Places().PutBack(*window, kPlace);
  window->show();
  if (album_) {
    QApplication::processEvents();
    album_->Take(*window, "Zendara");
  }
  const int status = QApplication::exec();
  host_.Places().Keep(*window, kPlace, natural);
  const Chooser* chooser = window->Companies();
  if (remembered_ && chooser && chooser->ChosenCompany()) {
    remembered_->folder = window->Place();
    remembered_->company = chooser->ChosenCompany()->code;
    remembered_->year = chooser->ChosenYear();
  }
  Remember();
  return status;
}

}  // namespace zendara

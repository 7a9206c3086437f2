// The desktop: the first window and the screens that it opens, one screen alone, or a script at the screens.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/cairo/cairo_writer.hpp"
#include "adapters/drafts/file_drafts.hpp"
#include "adapters/hosting/company_host.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/qt_host.hpp"
#include "apps/desk/start/companies.hpp"
#include "apps/desk/start/remembered.hpp"
#include "zendara/engines.hpp"

class QWidget;

namespace zendara {

class StartWindow;

struct DeskOptions {
  std::string place;  // folder or server; empty: the one that is remembered, or none
  std::string company;
  std::string year;
  std::string screen;
  std::string script;
  std::string screenshots;
  std::optional<int> zoom;  // percent
};

inline constexpr int kFailed = 1;
inline constexpr int kWrongUsage = 2;

// One line on standard error, whatever line ends the text holds; gives back the status.
int Fail(int status, std::string text);

// The last picture of each page stands for it; numbers show the order in which the pages came first. A screen that is
// cut, since it has no room, is a trouble.
class Album {
 public:
  // Throws std::filesystem::filesystem_error when there can be no such folder.
  explicit Album(std::string folder);

  void Take(QWidget& window, const std::string& name);
  // What went wrong with them, in one line; empty if nothing did.
  const std::string& Trouble() const { return trouble_; }

 private:
  std::string folder_;
  std::map<std::string, int> numbers_;
  std::string trouble_;
};

class Desk {
 public:
  // REQUIRES: a QApplication with the look installed.
  explicit Desk(DeskOptions options);

  // Exit status of the program. Throws RuntimeError when a screen that was asked for cannot be opened.
  int Run();

 private:
  // Of a place; open from its first use on.
  const Store& At(const std::string& place);
  std::vector<Company> Companies(const std::string& place) { return FindCompanies(At(place)); }
  Platform Surroundings(const std::string& place);
  int Play();
  int OpenScreen();
  int Choose();
  std::unique_ptr<StartWindow> FirstWindow(const std::string& place);
  // Another place than that of the company that is open closes it.
  void Show(const std::string& place, const std::string& company, const std::string& name, const std::string& year,
            const std::string& screen);
  void Remember();

  DeskOptions options_;
  std::optional<Remembered> remembered_;  // scripts and pictures know of none
  std::map<std::string, Store> stores_;   // by place
  CairoWriter documents_;
  std::unique_ptr<FileDrafts> drafts_;  // none for a script, which has its own if it wants
  QtHost host_;
  std::string place_;  // of the company that is open
  std::optional<CompanyHost> company_;
  std::optional<Album> album_;
};

}  // namespace zendara

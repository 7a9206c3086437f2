// The first window: the companies of a place to choose from or, where there are none, ways to get one.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "apps/desk/start/chooser.hpp"
#include "apps/desk/start/demo_maker.hpp"

class QStackedLayout;

namespace zendara {

class FolderPage;

// What the window asks of the program around it. A place is a folder, or the connection of a server.
struct StartActions {
  std::function<std::vector<Company>(const std::string& place)> companies;  // throws RuntimeError
  // Returns when the screen was closed.
  std::function<void(const std::string& place, const Company& company, const std::string& year,
                     const std::string& screen)>
      open;
  DemoMaker::Write write_demo;  // runs on another thread
  std::function<void(const std::string& words)> tell;
  std::function<void()> help;
  std::function<void()> closed;
};

class StartWindow : public QWidget {
 public:
  StartWindow(StartActions actions, std::vector<ScreenChoice> screens);

  // A place with companies; without any, or where it cannot be asked, the page that offers some is shown. Empty: none
  // was chosen yet.
  void Begin(const std::string& place);
  // Another one, not while one of its buttons is being clicked. A folder without companies is told, and nothing
  // changes; a server without any is offered them.
  void Use(const QString& place);

  const std::string& Place() const { return place_; }
  // nullptr without companies.
  Chooser* Companies() const { return chooser_; }
  FolderPage* Offer() const { return folder_page_; }
  // The demonstration, to that place.
  void MakeDemo(const QString& place);
  // False when that is no server to use; the user was told why.
  bool Connects(const QString& connection);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void ShowCompanies(const std::string& place, std::vector<Company> companies);
  void ShowOffer(const std::string& place, const QString& words);
  void AskForFolder();
  void AskForServer();
  // Nothing when the place cannot be asked; `tell` was given the reason.
  std::optional<std::vector<Company>> Find(const std::string& place,
                                           const std::function<void(const std::string& words)>& tell);
  void Rescale();

  StartActions actions_;
  std::vector<ScreenChoice> screens_;
  std::string place_;  // with companies
  std::string asked_;  // of those without, the one that was asked last
  QStackedLayout* pages_;
  FolderPage* folder_page_ = nullptr;
  Chooser* chooser_ = nullptr;
  DemoMaker maker_;
};

}  // namespace zendara

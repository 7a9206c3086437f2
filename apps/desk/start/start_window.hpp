// The first window: the companies of a folder to choose from or, where there are none, ways to get one.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "apps/desk/start/chooser.hpp"
#include "apps/desk/start/demo_maker.hpp"

class QStackedLayout;

namespace zendara {

class FolderPage;

// What the window asks of the program around it.
struct StartActions {
  std::function<std::vector<Company>(const std::string& folder)> companies;
  // Returns when the screen was closed.
  std::function<void(const std::string& folder, const Company& company, const std::string& year,
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

  // A folder of companies; without any the page that offers some is shown. Empty: none was chosen yet.
  void Begin(const std::string& folder);
  // Another one, not while one of its buttons is being clicked. A folder without companies is told, and nothing
  // changes.
  void Use(const QString& folder);

  const std::string& Folder() const { return folder_; }
  // nullptr without companies.
  Chooser* Companies() const { return chooser_; }
  FolderPage* Offer() const { return folder_page_; }
  // The demonstration, into that folder.
  void MakeDemo(const QString& folder);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void ShowCompanies(const std::string& folder, std::vector<Company> companies);
  void AskForFolder();
  void Rescale();

  StartActions actions_;
  std::vector<ScreenChoice> screens_;
  std::string folder_;  // with companies
  QStackedLayout* pages_;
  FolderPage* folder_page_ = nullptr;
  Chooser* chooser_ = nullptr;
  DemoMaker maker_;
};

}  // namespace zendara

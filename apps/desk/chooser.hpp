// The first window: company, year and screen.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "apps/desk/companies.hpp"

class QComboBox;
class QListWidget;
class QPushButton;

namespace zendara {

struct ScreenChoice {
  std::string screen;  // name that the component knows
  QString words;       // on the button, with its access key
  QString why_not;     // it cannot be opened, and is shown disabled; empty if it can
};

class Chooser : public QWidget {
 public:
  // `open` shows a screen and returns when it was closed.
  Chooser(std::vector<Company> companies, const std::vector<ScreenChoice>& screens,
          std::function<void(const Company& company, const std::string& year, const std::string& screen)> open);

  void Select(const std::string& company, const std::string& year);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void ShowYears();
  void Rescale();

  std::vector<Company> companies_;
  std::function<void(const Company&, const std::string&, const std::string&)> open_;
  QListWidget* list_;
  QComboBox* years_;
  std::vector<QPushButton*> buttons_;
};

}  // namespace zendara

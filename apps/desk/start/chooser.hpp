// The page of the first window where there are companies: company, year and screen.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "apps/desk/start/companies.hpp"

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
  // `open` shows a screen and returns when it was closed. `other_folder` and `server` are asked for by a button.
  Chooser(const QString& place, std::vector<Company> companies, const std::vector<ScreenChoice>& screens,
          std::function<void(const Company& company, const std::string& year, const std::string& screen)> open,
          std::function<void()> other_folder, std::function<void()> server, QWidget* parent);

  // What there is of it; a year of two digits.
  void Select(const std::string& company, const std::string& year);
  // nullptr and empty for a company without years.
  const Company* ChosenCompany() const;
  std::string ChosenYear() const;
  // Enter: presses the button that has the keyboard, or the first screen that there is.
  void PressEnter();
  void Rescale();

 private:
  void ShowYears();

  std::vector<Company> companies_;
  std::function<void(const Company&, const std::string&, const std::string&)> open_;
  QListWidget* list_;
  QComboBox* years_;  // in full; the data of each has its two digits
  std::vector<QPushButton*> buttons_;
};

}  // namespace zendara

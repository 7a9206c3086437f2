// A message box in Spanish.
#pragma once

#include <QDialog>
#include <QRect>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "adapters/qt/detail_window.hpp"
#include "zendara/ports.hpp"

class QLabel;
class QPushButton;

namespace zendara {

// As wide as its title and its text need. Yes and No cannot be left without an answer: neither Esc nor the window's own
// button closes it. A letter that is underlined presses its button, Ctrl+C copies the text.
// With a detail, F1 and a button under the text show it; the question stays.
class MessageBox : public QDialog {
 public:
  // `about`: the field that the user is in, in words; it stands below the text. Empty: none.
  MessageBox(const Box& box, const QString& title, const QString& about, QWidget* parent);

  // Where that field is on the screen: the box shows itself beside it, if there is room.
  void StandClearOf(const QRect& field) { field_ = field; }
  // F1 on a box without a detail.
  void OnHelp(std::function<void()> help) { help_ = std::move(help); }
  // For the window with the detail.
  void OnKeepDetail(KeepDetail keep) { keep_detail_ = std::move(keep); }

  BoxAnswer Ask();
  // As a click on the button of that answer, for scripts. REQUIRES: the box is shown and has it.
  void Give(BoxAnswer answer);
  // The window with the detail, above the box. REQUIRES: the box is shown and has a detail.
  DetailWindow& ShowDetail();

  void reject() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QPushButton* Add(const QString& words, BoxAnswer answer);
  void Build(const QString& text, const QString& about);
  void Fit();

  QRect field_;
  BoxIcon icon_;
  QLabel* sign_ = nullptr;  // the icon, where there is one
  QLabel* text_ = nullptr;
  QLabel* about_ = nullptr;
  QPushButton* first_ = nullptr;  // Aceptar or Sí
  QPushButton* second_ = nullptr;
  BoxAnswer answer_ = BoxAnswer::kOk;
  std::vector<BoxDetail> detail_;
  QPushButton* detail_button_ = nullptr;
  KeepDetail keep_detail_;
  std::unique_ptr<DetailWindow> detail_window_;  // the last that was asked for
  std::function<void()> help_;
};

}  // namespace zendara

// A message box in Spanish.
#pragma once

#include <QMessageBox>
#include <memory>
#include <utility>
#include <vector>

#include "adapters/qt/detail_window.hpp"
#include "zendara/ports.hpp"

namespace zendara {

// Yes and No cannot be left without an answer: neither Esc nor the window's own button closes it.
// With a detail, F1 and a button under the text show it; the question stays.
class MessageBox : public QMessageBox {
 public:
  MessageBox(const Box& box, const QString& title, QWidget* parent);

  // For the window with the detail.
  void OnKeepDetail(KeepDetail keep) { keep_detail_ = std::move(keep); }

  BoxAnswer Ask();
  // As a click on the button of that answer, for scripts. REQUIRES: the box is shown and has it.
  void Give(BoxAnswer answer);
  // The window with the detail, above the box. REQUIRES: the box is shown and has a detail.
  DetailWindow& ShowDetail();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QPushButton* Add(const QString& words);
  void AddDetailButton();

  QPushButton* first_ = nullptr;  // Aceptar or Sí
  QPushButton* second_ = nullptr;
  std::vector<BoxDetail> detail_;
  QPushButton* detail_button_ = nullptr;
  KeepDetail keep_detail_;
  std::unique_ptr<DetailWindow> detail_window_;  // the last that was asked for
};

}  // namespace zendara

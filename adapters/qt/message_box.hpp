// A message box in Spanish.
#pragma once

#include <QMessageBox>

#include "zendara/ports.hpp"

namespace zendara {

// Yes and No cannot be left without an answer: neither Esc nor the window's own button closes it.
class MessageBox : public QMessageBox {
 public:
  MessageBox(const Box& box, const QString& title, QWidget* parent);

  BoxAnswer Ask();
  // As a click on the button of that answer, for scripts. REQUIRES: the box is shown and has it.
  void Give(BoxAnswer answer);

 private:
  QPushButton* Add(const QString& words);

  QPushButton* first_ = nullptr;  // Aceptar or Sí
  QPushButton* second_ = nullptr;
};

}  // namespace zendara

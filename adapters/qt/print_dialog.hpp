// On which printer, how often, which pages.
#pragma once

#include <QDialog>
#include <vector>

#include "adapters/cups/printers.hpp"

class QComboBox;
class QLineEdit;
class QPushButton;

namespace zendara {

// Enter prints, Esc leaves.
class PrintDialog : public QDialog {
 public:
  // REQUIRES: there is a printer.
  PrintDialog(const std::vector<Printer>& printers, QWidget* parent);

  // Without a title.
  PrintJob Job() const;

 private:
  // Prints only what can be read.
  void Check();

  QComboBox* printer_;
  QLineEdit* copies_;
  QLineEdit* pages_;
  QPushButton* print_;
};

}  // namespace zendara

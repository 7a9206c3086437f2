// How the figure of a message box came about, as a table to read and to copy.
#pragma once

#include <QDialog>
#include <vector>

#include "zendara/ports.hpp"

class QTableWidget;

namespace zendara {

// Esc and Enter close it. Ctrl+C copies the rows that are selected, or all: a line a row, columns separated by tabs.
class DetailWindow : public QDialog {
 public:
  DetailWindow(const std::vector<BoxDetail>& rows, const QString& title, QWidget* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Fill(const std::vector<BoxDetail>& rows);
  void Copy() const;
  // As large as the content, up to what the screen has room for.
  void Fit();
  void FitRows();

  QTableWidget* table_;
};

}  // namespace zendara

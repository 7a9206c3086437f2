// How the figure of a message box came about, as a table to read and to copy.
#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "zendara/ports.hpp"

class QLabel;
class QTableWidget;

namespace zendara {

// Keeps a detail as a file, with its dialog over that widget; what to say about it then, nothing if it was not kept.
using KeepDetail = std::function<QString(QWidget& over)>;

// Esc and Enter close it. Ctrl+C copies the rows that are selected, or all: a line a row, columns separated by tabs.
// Ctrl+P and a button keep them, if there is `keep`.
class DetailWindow : public QDialog {
 public:
  DetailWindow(const std::vector<BoxDetail>& rows, const QString& title, KeepDetail keep, QWidget* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Fill(const std::vector<BoxDetail>& rows);
  void Copy() const;
  void Keep();
  // As large as the content, up to what the screen has room for.
  void Fit();
  void FitRows();

  QTableWidget* table_;
  QLabel* hint_;
  KeepDetail keep_;
};

}  // namespace zendara

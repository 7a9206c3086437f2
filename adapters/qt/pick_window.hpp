// The window of a pick list: rows in columns, read as they come to sight.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <exception>
#include <optional>

#include "common/row_list.hpp"

class QLabel;
class QTableView;

namespace zendara {

class RowsModel;

// Letters and digits look for the row that begins with them in any column, arrows and Page keys walk, Enter and a
// double click take the row, Esc leaves.
class PickWindow : public QDialog {
 public:
  // `rows` outlives the window.
  PickWindow(const QString& title, RowList& rows, QWidget* parent);

  // The row taken, nothing if the window was left. Throws what reading the rows threw.
  std::optional<std::size_t> Chosen() const;
  // Brings that row to sight, as the current one. REQUIRES: it exists.
  void GoTo(std::size_t row);
  QTableView& Table() const { return *table_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void Walk(int steps);
  void Type(const QString& text);
  bool Search();
  void Widen();
  void Rescale();
  // Runs something that reads rows; an error closes the window and is kept for Chosen.
  template <typename Read>
  void Guard(Read read);

  RowList& rows_;
  RowsModel* model_;
  QTableView* table_;
  QLabel* typed_label_;
  QString typed_;
  QElapsedTimer since_key_;
  std::exception_ptr failure_;
};

}  // namespace zendara

// The window of a pick list: a search line over the rows that hold what is typed there.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <optional>
#include <utility>

#include "common/row_search.hpp"

class QLabel;
class QLineEdit;
class QTableView;

namespace zendara {

class RowsModel;

// The search line has the keyboard; arrows, Page keys, Home and End walk the rows, Ctrl with a digit or a click on a
// heading sorts, Enter and a double click take the row, Esc leaves. Rows are read while nothing else is to be done.
class PickWindow : public QDialog {
 public:
  // `rows` outlives the window.
  PickWindow(const QString& title, RowList& rows, QWidget* parent);

  // In place of the machine's own, when there is no row to take.
  void OnBeep(std::function<void()> beep) { beep_ = std::move(beep); }
  // The row taken, nothing if the window was left. Throws what reading the rows threw.
  std::optional<std::size_t> Chosen() const;
  // Brings that row to sight, as the current one, with no search. REQUIRES: it exists.
  void GoTo(std::size_t row);
  QTableView& Table() const { return *table_; }
  QLineEdit& Line() const { return *line_; }
  const RowSearch& Rows() const { return search_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void MakeTable(const QString& title);
  void LayOut(const QString& title);
  std::optional<std::size_t> Current() const;
  void StandOn(std::size_t place);
  // Changes what is shown, by the search, and shows it with what was read. An error closes the window and is thrown by
  // Chosen.
  template <typename Change>
  void Show(Change change);
  std::size_t Batch() const;
  void ReadOn();
  // Reads until no row that comes could be the current one in place of this.
  void Settle();
  void Walk(int steps);
  bool WalkBy(int key);
  void SortBy(int section);
  void Take();
  void Count();
  void Widen();
  int HeadingWidth(int column) const;
  void Rescale();

  RowList& rows_;
  RowSearch search_;
  RowsModel* model_;
  QTableView* table_;
  QLineEdit* line_;
  QLabel* count_;
  QTimer reading_;
  std::function<void()> beep_ = QApplication::beep;
  QElapsedTimer since_shown_;
  bool moved_ = false;  // the user has left the row on which the list begins, or the best of what was looked for
  int sorted_ = -1;     // section of the heading
  bool descending_ = false;
};

}  // namespace zendara

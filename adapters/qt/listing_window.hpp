// The preview of a listing: its pages, a search in them, and the ways to a printer and into files.
#pragma once

#include <QDialog>
#include <QTimer>
#include <cstddef>
#include <exception>
#include <functional>
#include <optional>
#include <vector>

#include "adapters/cairo/pango_text.hpp"
#include "print/paged_listing.hpp"

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace zendara {

class ListingView;
class StatusLine;

// Shows the first page at once and reads the rest while nothing else is to be done. Keys mean the same wherever the
// keyboard is: the table in the source lists them.
class ListingWindow : public QDialog {
 public:
  // Each runs with its dialogs over that widget and gives what to say then, nothing if nothing was done.
  struct Actions {
    std::function<QString(QWidget& over)> print;
    std::function<QString(QWidget& over)> save;
    std::function<void()> help;
  };

  // REQUIRES: both outlive it.
  ListingWindow(print::PagedListing& listing, const PangoMeasure& measure, Actions actions, QWidget* parent);

  // What reading threw, which closes the window; null if all went well.
  std::exception_ptr Failure() const { return failure_; }
  ListingView& View() const { return *view_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  struct KeyAction;
  static const KeyAction kKeys[];

  void LayOut();
  QPushButton* AddButton(QHBoxLayout& group, const QString& words, const QString& hint, void (ListingWindow::*act)());
  void AddSign(QHBoxLayout& group, const QString& sign, const QString& name, const QString& keys,
               void (ListingWindow::*act)());
  QLineEdit* AddField(QHBoxLayout& group, const QString& words, int characters);
  void Rescale();
  bool HandleKey(const QKeyEvent& event);

  // All that the user and the timer do.
  void Act(void (ListingWindow::*act)());
  void ReadOn();
  void ShowState();
  // At once, or as soon as all is read; what the user does next comes in its place.
  void OnceRead(std::function<void()> act);

  void FirstPage();
  void NextPage();
  void PreviousPage();
  void LastPage();
  void GoToTypedPage();
  void GoTo(std::size_t page);

  void Larger();
  void Smaller();
  void FullSize();
  void FitWidth();
  void LineUp();
  void LineDown();
  void LineLeft();
  void LineRight();
  void ViewDown();
  void ViewUp();

  // From the page in view on, as it is typed.
  void Look();
  void EnterSearch();
  void FindNext();
  void FindPrevious();
  void Find(bool backwards);
  void Seek(std::ptrdiff_t from, bool backwards);
  void SayFound(const QString& words);
  std::size_t FirstRowInView() const;

  void Print();
  void Save();
  void Help();
  void Leave();
  void Do(const std::function<QString(QWidget& over)>& action);

  print::PagedListing& listing_;
  Actions actions_;
  ListingView* view_;
  QLineEdit* page_ = nullptr;
  QLabel* pages_ = nullptr;
  QPushButton* percent_ = nullptr;
  QLineEdit* line_ = nullptr;
  QLabel* found_words_ = nullptr;
  StatusLine* status_ = nullptr;
  std::vector<QHBoxLayout*> groups_;  // of the bar above
  std::vector<QPushButton*> signs_;   // that have no words
  QTimer reading_;
  std::function<void()> once_read_;
  std::optional<std::size_t> found_;
  std::exception_ptr failure_;
};

}  // namespace zendara

// The list of all that was typed and not saved, on one screen and on the others.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "zendara/forms/form.hpp"

class QLabel;
class QTableWidget;

namespace zendara {

// Enter and a double click choose a draft of the form, Delete removes any after asking, Esc leaves.
class DraftsWindow : public QDialog {
 public:
  // `boxes` asks before a draft is removed, and throws nothing. Both outlive the window.
  DraftsWindow(Form& form, Dialogs& boxes, QWidget* parent);

  // The id of the draft to restore; empty: none.
  const std::string& Chosen() const { return chosen_; }
  QTableWidget& Table() const { return *table_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Fill();
  const KeptDraft* Current() const;  // nullptr: there is none
  void ShowHint();
  void Choose();
  void Remove();
  void Rescale();
  QString Summary(const Draft& draft) const;

  Form& form_;
  Dialogs& boxes_;
  std::vector<KeptDraft> drafts_;          // a row each
  std::vector<std::string> why_not_here_;  // of each row
  QTableWidget* table_;
  QLabel* hint_;
  std::string chosen_;
};

}  // namespace zendara

// The list of what was typed on a screen and not saved.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "platform/form/form.hpp"

class QLabel;
class QTableWidget;

namespace zendara {

// Enter and a double click choose a draft, Delete removes one after asking, Esc leaves.
class DraftsWindow : public QDialog {
 public:
  // `form` outlives the window.
  DraftsWindow(Form& form, QWidget* parent);

  // The id of the draft to restore; empty: none.
  const std::string& Chosen() const { return chosen_; }
  QTableWidget& Table() const { return *table_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Fill();
  void Choose();
  void Remove();
  void Rescale();
  QString Summary(const Draft& draft) const;

  Form& form_;
  std::vector<KeptDraft> drafts_;  // a row each
  QTableWidget* table_;
  QLabel* hint_;
  std::string chosen_;
};

}  // namespace zendara

// The line at the bottom of a form's window: on the left what the form has to say, on the right what stands on the
// screen and what the field with the focus expects.
#pragma once

#include <QWidget>

class QLabel;

namespace zendara {

class StatusLine : public QWidget {
 public:
  explicit StatusLine(QWidget* parent);

  // As many lines as it needs.
  void ShowMessage(const QString& message);
  void ShowPlace(const QString& position, const QString& expected);
  void ShowInsert(bool on);
  // A mark while something is not saved.
  void ShowUnsaved(bool unsaved);

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 private:
  QLabel* message_;
  QLabel* unsaved_;
  QLabel* expected_;
  QLabel* position_;
  QLabel* insert_;
};

}  // namespace zendara

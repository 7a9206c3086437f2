// The line at the bottom of a form's window: on the left what the form has to say and since when, on the right what the
// field with the focus expects and what stands on the screen.
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

  // The height that it needs, which it has by itself at the width that it has.
  int HeightFor(int width) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FitHeight();

  QLabel* time_;
  QLabel* message_;
  QLabel* expected_;
  QLabel* position_;
  QLabel* insert_;
};

}  // namespace zendara

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

  // The height that it needs, and has, at that width.
  int HeightAt(int width) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QLabel* message_;
  QLabel* expected_;
  QLabel* position_;
  QLabel* insert_;
};

}  // namespace zendara

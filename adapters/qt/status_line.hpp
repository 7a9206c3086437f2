// The line at the bottom of a form's window: on the left what the form has to say and since when, on the right what the
// field with the focus expects and what stands on the screen.
#pragma once

#include <QWidget>
#include <utility>

class QLabel;

namespace zendara {

class StatusLine : public QWidget {
 public:
  explicit StatusLine(QWidget* parent);

  // As many lines as it needs.
  void ShowMessage(const QString& message);
  void ShowPlace(const QString& position, const QString& expected);
  void ShowInsert(bool on);

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Arrange();
  // Widths of the message and of what is expected.
  std::pair<int, int> Share(int width) const;

  QLabel* time_;
  QLabel* message_;
  QLabel* expected_;
  QLabel* position_;
  QLabel* insert_;
};

}  // namespace zendara

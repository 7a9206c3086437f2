// The line at the bottom of a form's window: on the left what the form has to say and since when, on the right what the
// field with the focus expects and what stands on the screen.
#pragma once

#include <QWidget>

class QLabel;

namespace zendara {

class StatusLine : public QWidget {
 public:
  explicit StatusLine(QWidget* parent);

  // Over the full width, in as many lines as it needs, when there is no room for it beside the rest.
  void ShowMessage(const QString& message);
  void ShowPlace(const QString& position, const QString& expected);
  void ShowInsert(bool on);
  // A mark while something is not saved.
  void ShowUnsaved(bool unsaved);

  // The height that it needs, which it takes by itself at the width that it has.
  int HeightFor(int width) const;

 protected:
  void resizeEvent(QResizeEvent* /*event*/) override { Arrange(); }
  bool event(QEvent* event) override;

 private:
  struct Plan {
    int margin = 0;
    int gap = 0;
    int left = 0;  // where the message begins
    QSize message{};
    bool above = false;  // the message, over the rest
    QSize expected{};
    int low = 0;  // height of the rest
  };

  Plan PlanFor(int width) const;
  void Arrange();

  QLabel* time_ = nullptr;
  QLabel* message_ = nullptr;
  QLabel* unsaved_ = nullptr;
  QLabel* expected_ = nullptr;
  QLabel* position_ = nullptr;
  QLabel* insert_ = nullptr;
};

}  // namespace zendara

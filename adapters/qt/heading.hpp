// Words that stand above a form or before a row of it.
#pragma once

#include <QLabel>
#include <memory>

#include "adapters/qt/form_window.hpp"

namespace zendara {

// The heading of a form, large. It asks for the same room whatever it says, so that the window stays as it is; what is
// longer is cut with dots, and whole as a hint.
class FormHeading : public QLabel {
 public:
  explicit FormHeading(QWidget* parent);

  void ShowText(const QString& text);
  void Rescale();

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// The caption of a frame that is a row of a table.
std::unique_ptr<ControlView> MakeRowHeadingView(FormWindow& window, Control& frame, bool required, QWidget& parent);

// The words of a label: what the screen cannot be saved without has a mark before them.
void SetLabelText(QLabel& label, const QString& text, bool required);

}  // namespace zendara

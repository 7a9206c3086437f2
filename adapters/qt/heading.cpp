#include "adapters/qt/heading.hpp"

#include <QPainter>
#include <QStyle>

#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

constexpr double kLarger = 1.4;
constexpr int kCharacters = 38;

class RowHeadingView : public ControlView {
 public:
  RowHeadingView(FormWindow& window, Control& frame, bool required, QWidget& parent)
      : ControlView(window, frame, new QLabel(&parent)) {
    SetLabelText(static_cast<QLabel&>(*widget_), ToQt(frame.Caption()), required);
  }
};

}  // namespace

FormHeading::FormHeading(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void FormHeading::ShowText(const QString& text) {
  if (this->text() == text) return;
  setText(text);
  setToolTip(text);
}

void FormHeading::Rescale() {
  QFont large = TextFont();
  large.setPointSizeF(large.pointSizeF() * kLarger);
  large.setBold(true);
  setFont(large);
}

QSize FormHeading::sizeHint() const { return {TextWidth(fontMetrics(), kCharacters), fontMetrics().height()}; }

QSize FormHeading::minimumSizeHint() const { return {1, fontMetrics().height()}; }

void FormHeading::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
  style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown,
                        foregroundRole());
}

std::unique_ptr<ControlView> MakeRowHeadingView(FormWindow& window, Control& frame, bool required, QWidget& parent) {
  return std::make_unique<RowHeadingView>(window, frame, required, parent);
}

void SetLabelText(QLabel& label, const QString& text, bool required) {
  label.setTextFormat(required ? Qt::RichText : Qt::PlainText);
  if (!required) return label.setText(text);
  label.setText(
      QStringLiteral("<span style=\"color:%1\">*</span> %2").arg(ColourOf(Role::kAccent).name(), text.toHtmlEscaped()));
  label.setToolTip(QStringLiteral("Obligatorio"));
}

}  // namespace zendara

#include "adapters/qt/status_line.hpp"

#include <QEvent>
#include <QLabel>
#include <QTime>
#include <algorithm>

#include "adapters/qt/look.hpp"

namespace zendara {

StatusLine::StatusLine(QWidget* parent) : QWidget(parent) {
  const auto add = [this](const char* name, const QColor& ink) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, ink);
    label->setPalette(palette);
    return label;
  };
  time_ = add("time", tone::kQuiet);
  time_->setAccessibleName(QStringLiteral("Hora del aviso"));
  message_ = add("status", tone::kText);
  message_->setWordWrap(true);
  unsaved_ = add("unsaved", tone::kText);
  expected_ = add("expected", tone::kText);
  expected_->setAccessibleName(QStringLiteral("Qué se escribe en el campo"));
  position_ = add("position", tone::kQuiet);
  insert_ = add("insert", tone::kQuiet);
  insert_->setAccessibleName(QStringLiteral("Modo de escritura"));
  Arrange();
}

void StatusLine::ShowMessage(const QString& message) {
  if (message_->text() == message) return;
  message_->setText(message);
  time_->setText(message.isEmpty() ? QString() : QTime::currentTime().toString(QStringLiteral("HH:mm")));
  Arrange();
}

void StatusLine::ShowPlace(const QString& position, const QString& expected) {
  if (position_->text() == position && expected_->text() == expected) return;
  position_->setText(position);
  expected_->setText(expected);
  Arrange();
}

void StatusLine::ShowInsert(bool on) {
  const QString words = on ? QStringLiteral("Insertar") : QStringLiteral("Sobrescribir");
  if (insert_->text() == words) return;
  insert_->setText(words);
  Arrange();
}

void StatusLine::ShowUnsaved(bool unsaved) {
  const QString words = unsaved ? QStringLiteral("• Sin grabar") : QString();
  if (unsaved_->text() == words) return;
  unsaved_->setText(words);
  unsaved_->setAccessibleName(unsaved ? QStringLiteral("Sin grabar") : QString());
  Arrange();
}

StatusLine::Plan StatusLine::PlanFor(int width) const {
  const int line = fontMetrics().height();
  Plan plan{.margin = fontMetrics().descent(), .gap = line, .line = line};
  for (const QLabel* label : {unsaved_, expected_, position_, insert_})
    plan.right += label->sizeHint().width() + plan.gap;
  plan.left = 2 * plan.margin + (time_->text().isEmpty() ? 0 : time_->sizeHint().width() + plan.gap);
  const int room = std::max(width - plan.left - 2 * plan.margin, 1);
  const int alone = message_->text().isEmpty() ? 0 : fontMetrics().horizontalAdvance(message_->text()) + 1;
  plan.above = alone > room - plan.right;
  plan.message = {plan.above ? room : std::max(room - plan.right, 0),
                  plan.above ? std::max(message_->heightForWidth(room), line) : line};
  return plan;
}

int StatusLine::HeightFor(int width) const {
  const Plan plan = PlanFor(width);
  return plan.message.height() + (plan.above ? plan.line : 0) + 2 * plan.margin;
}

void StatusLine::Arrange() {
  const Plan plan = PlanFor(width());
  time_->setGeometry(2 * plan.margin, plan.margin, time_->sizeHint().width(), plan.line);
  message_->setGeometry({QPoint(plan.left, plan.margin), plan.message});
  const int top = plan.margin + (plan.above ? plan.message.height() : 0);
  int right = width() - 2 * plan.margin;
  for (QLabel* label : {insert_, position_, expected_, unsaved_}) {
    const int wide = label->sizeHint().width();
    label->setGeometry(right - wide, top, wide, plan.line);
    right -= wide + (wide > 0 ? plan.gap : 0);
  }
  setFixedHeight(HeightFor(width()));
}

// The texts have another size.
bool StatusLine::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) Arrange();
  return QWidget::event(event);
}

}  // namespace zendara

#include "adapters/qt/status_line.hpp"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QEvent>
#include <QLabel>
#include <QTime>
#include <algorithm>

namespace zendara {
namespace {

QAccessibleInterface* Accessible(const QString& /*key*/, QObject* object) {
  auto* line = dynamic_cast<StatusLine*>(object);
  return line ? new QAccessibleWidget(line, QAccessible::StatusBar) : nullptr;
}

}  // namespace

StatusLine::StatusLine(QWidget* parent) : QWidget(parent) {
  [[maybe_unused]] static const bool installed = (QAccessible::installFactory(Accessible), true);
  const auto add = [this](const char* name, QPalette::ColorRole ink) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setForegroundRole(ink);
    return label;
  };
  time_ = add("time", QPalette::PlaceholderText);
  time_->setAccessibleDescription(QStringLiteral("Hora del aviso"));
  message_ = add("status", QPalette::WindowText);
  message_->setWordWrap(true);
  expected_ = add("expected", QPalette::WindowText);
  expected_->setAccessibleDescription(QStringLiteral("Qué se escribe en el campo"));
  position_ = add("position", QPalette::PlaceholderText);
  insert_ = add("insert", QPalette::PlaceholderText);
  insert_->setAccessibleDescription(QStringLiteral("Modo de escritura"));
  Arrange();
}

void StatusLine::ShowMessage(const QString& message) {
  if (message_->text() == message) return;
  message_->setText(message);
  time_->setText(message.isEmpty() ? QString() : QTime::currentTime().toString(QStringLiteral("HH:mm")));
  Arrange();
  if (message.isEmpty()) return;
  QAccessibleEvent alert(message_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
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

StatusLine::Plan StatusLine::PlanFor(int width) const {
  const int line = fontMetrics().height();
  Plan plan{.margin = fontMetrics().descent(), .gap = line, .line = line};
  for (const QLabel* label : {expected_, position_, insert_}) plan.right += label->sizeHint().width() + plan.gap;
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
  for (QLabel* label : {insert_, position_, expected_}) {
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

#include "adapters/qt/status_line.hpp"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QEvent>
#include <QLabel>
#include <QTime>
#include <algorithm>
#include <cmath>

#include "runtime/failure.hpp"
#include "runtime/surroundings.hpp"

namespace zendara {
namespace {

QAccessibleInterface* Accessible(const QString& /*key*/, QObject* object) {
  auto* line = dynamic_cast<StatusLine*>(object);
  return line ? new QAccessibleWidget(line, QAccessible::StatusBar) : nullptr;
}

int WidthOf(const QLabel* label) {
  return label->text().isEmpty() ? 0 : label->fontMetrics().horizontalAdvance(label->text()) + 1;
}

// "09:05" by the clock of the host; nothing when that fails.
QString TimeOfDay() {
  try {
    constexpr int kMinutesOfADay = 24 * 60;
    const double now = Now().serial;
    const int minutes = static_cast<int>((now - std::floor(now)) * kMinutesOfADay + 1e-6);
    return QTime(minutes / 60 % 24, minutes % 60).toString(QStringLiteral("HH:mm"));
  } catch (...) {
    LogCurrentError();
    return {};
  }
}

// Of its words at that width.
int HeightOf(const QLabel* label, int width) {
  return label->fontMetrics().boundingRect(0, 0, width, QWIDGETSIZE_MAX, Qt::TextWordWrap, label->text()).height();
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
  unsaved_ = add("unsaved", QPalette::WindowText);
  expected_ = add("expected", QPalette::WindowText);
  expected_->setWordWrap(true);
  expected_->setAccessibleDescription(QStringLiteral("Qué se escribe en el campo"));
  position_ = add("position", QPalette::PlaceholderText);
  insert_ = add("insert", QPalette::PlaceholderText);
  insert_->setAccessibleDescription(QStringLiteral("Modo de escritura"));
  Arrange();
}

void StatusLine::ShowMessage(const QString& message) {
  if (message_->text() == message) return;
  message_->setText(message);
  time_->setText(message.isEmpty() ? QString() : TimeOfDay());
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

void StatusLine::ShowUnsaved(bool unsaved) {
  const QString words = unsaved ? QStringLiteral("• Sin grabar") : QString();
  if (unsaved_->text() == words) return;
  unsaved_->setText(words);
  unsaved_->setAccessibleName(unsaved ? QStringLiteral("Sin grabar") : QString());
  Arrange();
}

StatusLine::Plan StatusLine::PlanFor(int width) const {
  const int line = fontMetrics().height();
  Plan plan{.margin = fontMetrics().descent(), .gap = line};
  const int whole = std::max(width - 4 * plan.margin, 1);
  int right = 0;
  for (const QLabel* label : {unsaved_, position_, insert_}) {
    if (!label->text().isEmpty()) right += WidthOf(label) + plan.gap;
  }
  // Large words may need more lines for it.
  const int expected = std::clamp(whole - right, 1, std::max(WidthOf(expected_), 1));
  plan.expected = {expected, HeightOf(expected_, expected)};
  plan.low = std::max(plan.expected.height(), line);
  right += expected + plan.gap;
  plan.left = 2 * plan.margin + (time_->text().isEmpty() ? 0 : WidthOf(time_) + plan.gap);
  const int room = std::max(width - plan.left - 2 * plan.margin, 1);
  plan.above = WidthOf(message_) > room - right;
  plan.message = {plan.above ? room : std::max(room - right, 0), plan.above ? HeightOf(message_, room) : line};
  return plan;
}

int StatusLine::HeightFor(int width) const {
  const Plan plan = PlanFor(width);
  return (plan.above ? plan.message.height() : 0) + plan.low + 2 * plan.margin;
}

void StatusLine::Arrange() {
  const Plan plan = PlanFor(width());
  time_->setGeometry(2 * plan.margin, plan.margin, WidthOf(time_), fontMetrics().height());
  message_->setGeometry({QPoint(plan.left, plan.margin), plan.message});
  const int top = plan.margin + (plan.above ? plan.message.height() : 0);
  int right = width() - 2 * plan.margin;
  for (QLabel* label : {insert_, position_, expected_, unsaved_}) {
    const int wide = label == expected_ ? plan.expected.width() : WidthOf(label);
    label->setGeometry(right - wide, top, wide, plan.low);
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

#include "adapters/qt/status_line.hpp"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHBoxLayout>
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
  auto* row = new QHBoxLayout(this);
  const int margin = fontMetrics().descent();
  row->setContentsMargins(2 * margin, margin, 2 * margin, margin);
  row->setSpacing(fontMetrics().height());
  const auto add = [&](const char* name, int stretch, QPalette::ColorRole ink) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setForegroundRole(ink);
    row->addWidget(label, stretch);
    return label;
  };
  time_ = add("time", 0, QPalette::PlaceholderText);
  time_->setAccessibleName(QStringLiteral("Hora del aviso"));
  message_ = add("status", 1, QPalette::WindowText);
  message_->setWordWrap(true);
  expected_ = add("expected", 0, QPalette::WindowText);
  expected_->setAccessibleName(QStringLiteral("Qué se escribe en el campo"));
  position_ = add("position", 0, QPalette::PlaceholderText);
  insert_ = add("insert", 0, QPalette::PlaceholderText);
  insert_->setAccessibleName(QStringLiteral("Modo de escritura"));
}

void StatusLine::ShowMessage(const QString& message) {
  if (message_->text() == message) return;
  message_->setText(message);
  time_->setText(message.isEmpty() ? QString() : QTime::currentTime().toString(QStringLiteral("HH:mm")));
  setFixedHeight(heightForWidth(width()));
  if (message.isEmpty()) return;
  QAccessibleEvent alert(message_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void StatusLine::ShowPlace(const QString& position, const QString& expected) {
  if (position_->text() != position) position_->setText(position);
  if (expected_->text() != expected) expected_->setText(expected);
}

void StatusLine::ShowInsert(bool on) {
  const QString words = on ? QStringLiteral("Insertar") : QStringLiteral("Sobrescribir");
  if (insert_->text() != words) insert_->setText(words);
}

void StatusLine::resizeEvent(QResizeEvent* /*event*/) { setFixedHeight(heightForWidth(width())); }

int StatusLine::heightForWidth(int width) const {
  int taken = layout()->contentsMargins().left() + layout()->contentsMargins().right();
  for (const QLabel* label : {time_, expected_, position_, insert_}) {
    taken += label->sizeHint().width() + layout()->spacing();
  }
  const int margins = layout()->contentsMargins().top() + layout()->contentsMargins().bottom();
  return std::max(message_->heightForWidth(std::max(width - taken, 1)), insert_->sizeHint().height()) + margins;
}

}  // namespace zendara

#include "adapters/qt/status_line.hpp"

#include <QHBoxLayout>
#include <QLabel>
#include <algorithm>

namespace zendara {

StatusLine::StatusLine(QWidget* parent) : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  const int margin = fontMetrics().descent();
  row->setContentsMargins(2 * margin, margin, 2 * margin, margin);
  row->setSpacing(fontMetrics().height());
  const auto add = [&](const char* name, int stretch) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    row->addWidget(label, stretch);
    return label;
  };
  message_ = add("status", 1);
  message_->setWordWrap(true);
  unsaved_ = add("unsaved", 0);
  expected_ = add("expected", 0);
  position_ = add("position", 0);
  insert_ = add("insert", 0);
  insert_->setAccessibleName(QStringLiteral("Modo de escritura"));
}

void StatusLine::ShowMessage(const QString& message) {
  if (message_->text() != message) message_->setText(message);
}

void StatusLine::ShowPlace(const QString& position, const QString& expected) {
  if (position_->text() != position) position_->setText(position);
  if (expected_->text() != expected) expected_->setText(expected);
}

void StatusLine::ShowInsert(bool on) {
  const QString words = on ? QStringLiteral("Insertar") : QStringLiteral("Sobrescribir");
  if (insert_->text() != words) insert_->setText(words);
}

void StatusLine::ShowUnsaved(bool unsaved) {
  const QString words = unsaved ? QStringLiteral("• Sin grabar") : QString();
  if (unsaved_->text() == words) return;
  unsaved_->setText(words);
  unsaved_->setAccessibleName(unsaved ? QStringLiteral("Sin grabar") : QString());
}

int StatusLine::heightForWidth(int width) const {
  int taken = layout()->contentsMargins().left() + layout()->contentsMargins().right();
  for (const QLabel* label : {unsaved_, expected_, position_, insert_})
    taken += label->sizeHint().width() + layout()->spacing();
  const int margins = layout()->contentsMargins().top() + layout()->contentsMargins().bottom();
  return std::max(message_->heightForWidth(std::max(width - taken, 1)), insert_->sizeHint().height()) + margins;
}

}  // namespace zendara

#include "adapters/qt/status_line.hpp"

#include <QHBoxLayout>
#include <QLabel>
#include <QTime>
#include <algorithm>

#include "adapters/qt/look.hpp"

namespace zendara {

StatusLine::StatusLine(QWidget* parent) : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  const int margin = fontMetrics().descent();
  row->setContentsMargins(2 * margin, margin, 2 * margin, margin);
  row->setSpacing(fontMetrics().height());
  const auto add = [&](const char* name, int stretch, const QColor& ink) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, ink);
    label->setPalette(palette);
    row->addWidget(label, stretch);
    return label;
  };
  time_ = add("time", 0, tone::kQuiet);
  time_->setAccessibleName(QStringLiteral("Hora del aviso"));
  message_ = add("status", 1, tone::kText);
  message_->setWordWrap(true);
  // The line sees to its height itself.
  QSizePolicy policy = message_->sizePolicy();
  policy.setHeightForWidth(false);
  message_->setSizePolicy(policy);
  expected_ = add("expected", 0, tone::kText);
  expected_->setAccessibleName(QStringLiteral("Qué se escribe en el campo"));
  position_ = add("position", 0, tone::kQuiet);
  insert_ = add("insert", 0, tone::kQuiet);
  insert_->setAccessibleName(QStringLiteral("Modo de escritura"));
  FitHeight();
}

void StatusLine::ShowMessage(const QString& message) {
  if (message_->text() == message) return;
  message_->setText(message);
  time_->setText(message.isEmpty() ? QString() : QTime::currentTime().toString(QStringLiteral("HH:mm")));
  FitHeight();
}

void StatusLine::ShowPlace(const QString& position, const QString& expected) {
  if (position_->text() != position) position_->setText(position);
  if (expected_->text() != expected) expected_->setText(expected);
}

void StatusLine::ShowInsert(bool on) {
  const QString words = on ? QStringLiteral("Insertar") : QStringLiteral("Sobrescribir");
  if (insert_->text() != words) insert_->setText(words);
}

void StatusLine::resizeEvent(QResizeEvent* /*event*/) { FitHeight(); }

void StatusLine::FitHeight() { setFixedHeight(HeightFor(width())); }

int StatusLine::HeightFor(int width) const {
  int taken = layout()->contentsMargins().left() + layout()->contentsMargins().right();
  for (const QLabel* label : {time_, expected_, position_, insert_}) {
    taken += label->sizeHint().width() + layout()->spacing();
  }
  const int margins = layout()->contentsMargins().top() + layout()->contentsMargins().bottom();
  return std::max(message_->heightForWidth(std::max(width - taken, 1)), insert_->sizeHint().height()) + margins;
}

}  // namespace zendara

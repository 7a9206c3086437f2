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
  time_->setAccessibleDescription(QStringLiteral("Hora del aviso"));
  message_ = add("status", 1, QPalette::WindowText);
  message_->setWordWrap(true);
  expected_ = add("expected", 0, QPalette::WindowText);
  expected_->setWordWrap(true);
  expected_->setAccessibleDescription(QStringLiteral("Qué se escribe en el campo"));
  position_ = add("position", 0, QPalette::PlaceholderText);
  insert_ = add("insert", 0, QPalette::PlaceholderText);
  insert_->setAccessibleDescription(QStringLiteral("Modo de escritura"));
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

void StatusLine::resizeEvent(QResizeEvent* /*event*/) { Arrange(); }

void StatusLine::Arrange() {
  expected_->setFixedWidth(Share(width()).second);
  setFixedHeight(heightForWidth(width()));
  layout()->activate();  // before anything is painted
}

// What is expected gets what it needs, but for half of the room when there is a message that needs it.
std::pair<int, int> StatusLine::Share(int width) const {
  int room = width - layout()->contentsMargins().left() - layout()->contentsMargins().right() - layout()->spacing();
  for (const QLabel* label : {time_, position_, insert_}) room -= label->sizeHint().width() + layout()->spacing();
  const auto wanted = [](const QLabel* label) {
    return label->text().isEmpty()
               ? 0
               : label->fontMetrics().horizontalAdvance(label->text()) + label->fontMetrics().descent();
  };
  const int expected = std::clamp(wanted(expected_), 0, std::max({room - wanted(message_), room / 2, 1}));
  return {std::max(room - expected, 1), expected};
}

int StatusLine::heightForWidth(int width) const {
  const auto [message, expected] = Share(width);
  const auto lines = [](const QLabel* label, int across) {
    return label->fontMetrics().boundingRect(0, 0, across, QWIDGETSIZE_MAX, Qt::TextWordWrap, label->text()).height();
  };
  const int margins = layout()->contentsMargins().top() + layout()->contentsMargins().bottom();
  return std::max({lines(message_, message), lines(expected_, expected), insert_->sizeHint().height()}) + margins;
}

}  // namespace zendara

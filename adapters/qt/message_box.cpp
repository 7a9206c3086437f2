#include "adapters/qt/message_box.hpp"

#include <QPushButton>

#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

QMessageBox::Icon IconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::kCritical:
      return QMessageBox::Critical;
    case BoxIcon::kQuestion:
      return QMessageBox::Question;
    case BoxIcon::kExclamation:
      return QMessageBox::Warning;
    case BoxIcon::kInformation:
      return QMessageBox::Information;
    case BoxIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

MessageBox::MessageBox(const Box& box, const QString& title, QWidget* parent) : QMessageBox(parent) {
  setWindowModality(Qt::ApplicationModal);
  setWindowTitle(title);
  setTextFormat(Qt::PlainText);
  setText(ToQt(box.text));
  setIcon(IconOf(box.icon));
  if (box.buttons == BoxButtons::kOk) {
    first_ = Add(QStringLiteral("&Aceptar"));
    setEscapeButton(first_);
  } else {
    first_ = Add(QStringLiteral("&Sí"));
    second_ = Add(QStringLiteral("&No"));
  }
  setDefaultButton(second_ && box.default_button == 2 ? second_ : first_);
}

// A role that the toolkit takes neither for a way out nor for a place in some order of its own.
QPushButton* MessageBox::Add(const QString& words) { return addButton(words, QMessageBox::ActionRole); }

BoxAnswer MessageBox::Ask() {
  exec();
  if (!second_) return BoxAnswer::kOk;
  return clickedButton() == second_ ? BoxAnswer::kNo : BoxAnswer::kYes;
}

void MessageBox::Give(BoxAnswer answer) { (answer == BoxAnswer::kNo ? second_ : first_)->click(); }

}  // namespace zendara

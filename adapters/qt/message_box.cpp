#include "adapters/qt/message_box.hpp"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include "adapters/qt/keys.hpp"
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

MessageBox::MessageBox(const Box& box, const QString& title, QWidget* parent)
    : QMessageBox(parent), detail_(box.detail) {
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
  if (!detail_.empty()) AddDetailButton();
}

// A role that the toolkit takes neither for a way out nor for a place in some order of its own.
QPushButton* MessageBox::Add(const QString& words) { return addButton(words, QMessageBox::ActionRole); }

// Under the text: the row of buttons is for answers.
void MessageBox::AddDetailButton() {
  detail_button_ = new QPushButton(QStringLiteral("&Detalle (F1)"), this);
  detail_button_->setAutoDefault(false);
  connect(detail_button_, &QPushButton::clicked, this, [this] { ShowDetail(); });
  auto* grid = static_cast<QGridLayout*>(layout());
  int row = 0;
  int column = 0;
  int span = 0;
  grid->getItemPosition(grid->indexOf(findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))), &row, &column, &span,
                        &span);
  grid->addWidget(detail_button_, row + 1, column, Qt::AlignLeft);
}

DetailWindow& MessageBox::ShowDetail() {
  detail_window_ =
      std::make_unique<DetailWindow>(detail_, QStringLiteral("Detalle: ") + windowTitle(), keep_detail_, this);
  // Otherwise nobody has the keyboard where no window manager passes it on.
  connect(detail_window_.get(), &QDialog::finished, this, [this] { activateWindow(); });
  detail_window_->open();
  return *detail_window_;
}

void MessageBox::keyPressEvent(QKeyEvent* event) {
  if (HandleZoomKey(*event)) return;
  const int key = event->key();
  const bool on_detail = detail_button_ && detail_button_->hasFocus();
  // Enter would give the default answer otherwise.
  if (on_detail && (key == Qt::Key_Return || key == Qt::Key_Enter)) return detail_button_->click();
  if (detail_button_ && key == Qt::Key_F1) return detail_button_->click();
  QMessageBox::keyPressEvent(event);
}

BoxAnswer MessageBox::Ask() {
  exec();
  if (!second_) return BoxAnswer::kOk;
  return clickedButton() == second_ ? BoxAnswer::kNo : BoxAnswer::kYes;
}

void MessageBox::Give(BoxAnswer answer) { (answer == BoxAnswer::kNo ? second_ : first_)->click(); }

}  // namespace zendara

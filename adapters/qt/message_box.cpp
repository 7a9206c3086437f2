#include "adapters/qt/message_box.hpp"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "adapters/qt/fit.hpp"
#include "adapters/qt/keys.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/own_window.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

constexpr int kCharactersAcross = 80;
// What a title bar has beside the title, in heights of a line.
constexpr int kLinesOfTitleButtons = 9;

QStyle::StandardPixmap PixmapOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::kCritical:
      return QStyle::SP_MessageBoxCritical;
    case BoxIcon::kQuestion:
      return QStyle::SP_MessageBoxQuestion;
    case BoxIcon::kExclamation:
      return QStyle::SP_MessageBoxWarning;
    default:
      return QStyle::SP_MessageBoxInformation;
  }
}

}  // namespace

MessageBox::MessageBox(const Box& box, const QString& title, const QString& about, QWidget* parent)
    : QDialog(parent), icon_(box.icon), detail_(box.detail) {
  BeginOwnWindow(*this);
  setWindowModality(Qt::ApplicationModal);
  setAttribute(Qt::WA_KeyboardFocusChange);  // so that the style marks what has the keyboard
  setWindowTitle(title);
  if (box.buttons == BoxButtons::kOk) {
    first_ = Add(QStringLiteral("&Aceptar"), BoxAnswer::kOk);
  } else {
    first_ = Add(QStringLiteral("&Sí"), BoxAnswer::kYes);
    second_ = Add(QStringLiteral("&No"), BoxAnswer::kNo);
    setWindowFlag(Qt::WindowCloseButtonHint, false);
  }
  Build(ToQt(box.text), about);
  QPushButton* preset = second_ && box.default_button == 2 ? second_ : first_;
  preset->setDefault(true);
  preset->setFocus();
  zoom::Watch(this, [this] { Fit(); });
  Fit();
}

QPushButton* MessageBox::Add(const QString& words, BoxAnswer answer) {
  auto* button = new QPushButton(words, this);
  connect(button, &QPushButton::clicked, this, [this, answer] {
    answer_ = answer;
    accept();
  });
  return button;
}

void MessageBox::Build(const QString& text, const QString& about) {
  auto* words = new QVBoxLayout;
  const auto add = [&](const char* name, const QString& shown) {
    auto* label = new QLabel(shown, this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    words->addWidget(label);
    return label;
  };
  text_ = add("text", text);
  if (!about.isEmpty()) {
    about_ = add("about", QStringLiteral("Campo: ") + about);
    about_->setForegroundRole(QPalette::PlaceholderText);
  }
  if (!detail_.empty()) {
    detail_button_ = new QPushButton(QStringLiteral("&Detalle (F1)"), this);
    detail_button_->setAutoDefault(false);
    connect(detail_button_, &QPushButton::clicked, this, [this] { ShowDetail(); });
    words->addWidget(detail_button_, 0, Qt::AlignLeft);
  }
  words->addStretch();
  auto* content = new QHBoxLayout;
  if (icon_ != BoxIcon::kNone) {
    sign_ = new QLabel(this);
    content->addWidget(sign_, 0, Qt::AlignTop);
  }
  content->addLayout(words, 1);
  auto* answers = new QHBoxLayout;
  answers->addStretch();
  for (QPushButton* button : {first_, second_}) {
    if (button) answers->addWidget(button);
  }
  answers->addStretch();
  auto* all = new QVBoxLayout(this);
  all->addLayout(content);
  all->addLayout(answers);
  // The row of buttons is for answers: the detail comes behind them.
  if (detail_button_) setTabOrder(second_ ? second_ : first_, detail_button_);
  setAccessibleDescription(about_ ? text + QLatin1Char('\n') + about_->text() : text);
}

void MessageBox::Fit() {
  const int line = QFontMetrics(TextFont()).height();
  const QRect room = RoomFor(*this);
  layout()->setContentsMargins(line, line, line, line);
  layout()->setSpacing(line);
  int beside = 2 * line;
  if (sign_) {
    sign_->setPixmap(style()->standardIcon(PixmapOf(icon_)).pixmap(QSize(line, line) * 2));
    beside += 3 * line;
  }
  const int widest = std::min(TextWidth(text_->fontMetrics(), kCharactersAcross), room.width() - beside);
  for (QLabel* label : {text_, about_}) {
    if (!label) continue;
    label->setWordWrap(false);
    const int wanted = label->sizeHint().width();
    label->setWordWrap(wanted > widest);
    label->setMinimumWidth(std::min(wanted, widest));
  }
  const int title = text_->fontMetrics().horizontalAdvance(windowTitle()) + kLinesOfTitleButtons * line;
  layout()->activate();
  // The toolkit's own way stops at two thirds of the screen, which large text needs more than.
  const int width = std::max(std::min(title, room.width()), layout()->totalMinimumSize().width());
  const bool wraps = layout()->hasHeightForWidth();
  setMinimumWidth(width);
  resize(width, wraps ? layout()->totalHeightForWidth(width) : layout()->totalSizeHint().height());
  if (isVisible()) KeepOnScreen(*this);
}

DetailWindow& MessageBox::ShowDetail() {
  detail_window_ =
      std::make_unique<DetailWindow>(detail_, QStringLiteral("Detalle: ") + windowTitle(), keep_detail_, this);
  // Otherwise nobody has the keyboard where no window manager passes it on.
  connect(detail_window_.get(), &QDialog::finished, this, [this] { activateWindow(); });
  detail_window_->open();
  return *detail_window_;
}

void MessageBox::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  const QMargins frame = FrameOf(*this);
  const QRect whole = geometry() + frame;
  if (whole.intersects(field_)) {
    const QRect room = screen()->availableGeometry();
    const int gap = fontMetrics().height() / 2;
    const int below = field_.bottom() + gap;
    const int above = field_.top() - gap - whole.height();
    const bool fits_below = below + whole.height() <= room.bottom();
    if (fits_below || above >= room.top()) move(whole.left(), fits_below ? below : above);
  }
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void MessageBox::keyPressEvent(QKeyEvent* event) {
  if (HandleZoomKey(*event)) return;
  const int key = event->key();
  if (event->matches(QKeySequence::Copy)) return QGuiApplication::clipboard()->setText(text_->text());
  const bool on_detail = detail_button_ && detail_button_->hasFocus();
  // Enter would give the default answer otherwise.
  if (on_detail && (key == Qt::Key_Return || key == Qt::Key_Enter)) return detail_button_->click();
  if (key == Qt::Key_F1) {
    if (detail_button_) return detail_button_->click();
    if (help_) return help_();
  }
  if (!(event->modifiers() & ~Qt::ShiftModifier)) {
    for (QPushButton* button : {first_, second_, detail_button_}) {
      if (button && QKeySequence::mnemonic(button->text()) == QKeySequence(Qt::ALT | Qt::Key(key))) {
        return button->click();
      }
    }
  }
  QDialog::keyPressEvent(event);
}

// Esc, and the window's own button.
void MessageBox::reject() {
  if (!second_) first_->click();
}

BoxAnswer MessageBox::Ask() {
  // Nothing answers it when the application ends.
  answer_ = second_ ? BoxAnswer::kNo : BoxAnswer::kOk;
  exec();
  return answer_;
}

void MessageBox::Give(BoxAnswer answer) { (answer == BoxAnswer::kNo ? second_ : first_)->click(); }

}  // namespace zendara

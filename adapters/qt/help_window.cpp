#include "adapters/qt/help_window.hpp"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <vector>

#include "adapters/qt/look.hpp"
#include "adapters/qt/own_window.hpp"
#include "adapters/qt/text.hpp"
#include "common/ayuda.hpp"

namespace zendara {
namespace {

const QString kPlace = QStringLiteral("Ayuda");
constexpr int kCharactersAcross = 80;
constexpr int kFewestCharacters = 65;
constexpr int kHitsShown = 7;
constexpr int kSmallest = 50;  // percent
constexpr int kLargest = 300;
constexpr int kStep = 10;

class Browser : public QTextBrowser {
 public:
  explicit Browser(QWidget* parent) : QTextBrowser(parent) {
    // Also when the history goes back to a page.
    connect(this, &QTextBrowser::sourceChanged, this, [this] {
      setExtraSelections({});
      Dress();
    });
  }

  // Tables as they are read, not as Markdown leaves them. All in one step: the text is laid out after each.
  void Dress() {
    const int em = QFontMetrics(document()->defaultFont()).height();
    QTextCursor all(document());
    all.beginEditBlock();
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
      auto* table = qobject_cast<QTextTable*>(frame);
      if (!table) continue;
      QTextTableFormat format = table->format();
      format.setCellPadding(em / 4.0);
      format.setCellSpacing(0);
      format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
      format.setBorderCollapse(true);
      format.setBorder(1);
      format.setBorderBrush(ColourOf(Role::kLine));
      format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
      format.setBottomMargin(em / 2.0);
      table->setFormat(format);
    }
    DressLinks();
    QTextFrameFormat page = document()->rootFrame()->frameFormat();
    page.setMargin(em);
    document()->rootFrame()->setFrameFormat(page);
    all.endEditBlock();
  }

  // In the window's colours: the reader of the text takes the application's.
  void DressLinks() {
    std::vector<QTextCursor> links;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
      for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
        const QTextFragment words = piece.fragment();
        if (!words.charFormat().isAnchor()) continue;
        QTextCursor& link = links.emplace_back(document());
        link.setPosition(words.position());
        link.setPosition(words.position() + words.length(), QTextCursor::KeepAnchor);
      }
    }
    QTextCharFormat colour;
    colour.setForeground(palette().brush(QPalette::Link));
    for (QTextCursor& link : links) link.mergeCharFormat(colour);
  }

  // The page that is shown already is not read again.
  void Show(const QUrl& place) {
    setExtraSelections({});
    const bool same = source().adjusted(QUrl::RemoveFragment) == place.adjusted(QUrl::RemoveFragment);
    if (!same) return setSource(place, QTextDocument::MarkdownResource);
    GoTo(place);
  }

 protected:
  void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override {
    QTextBrowser::doSetSource(url, type);
    GoTo(url);
  }

 private:
  void GoTo(const QUrl& place) {
    const QTextBlock heading = HeadingOf(*document(), place.fragment(QUrl::FullyDecoded));
    moveCursor(QTextCursor::Start);
    if (!heading.isValid()) return verticalScrollBar()->setValue(0);
    const qreal top = document()->documentLayout()->blockBoundingRect(heading).top();
    verticalScrollBar()->setValue(qRound(top - fontMetrics().height() / 2.0));
  }
};

}  // namespace

// A dialog stays above the window that it is opened from.
HelpWindow::HelpWindow(WindowPlaces& places)
    : QWidget(nullptr, Qt::Dialog | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint), places_(places) {
  BeginOwnWindow(*this);
  search_ = new QLineEdit(this);
  search_->setPlaceholderText(QStringLiteral("palabras, en todas las páginas"));
  auto* label = new QLabel(QStringLiteral("&Buscar:"), this);
  label->setBuddy(search_);
  found_ = new QListWidget(this);
  found_->setAccessibleName(QStringLiteral("Encontrado"));
  found_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  nothing_ = new QLabel(QStringLiteral("Ninguna página tiene esas palabras."), this);
  auto* browser = new Browser(this);
  browser->setOpenExternalLinks(false);
  browser->setAccessibleName(QStringLiteral("Página de la ayuda"));
  browser_ = browser;
  auto* back = new QPushButton(QStringLiteral("&Atrás"), this);
  auto* forward = new QPushButton(QStringLiteral("A&delante"), this);
  auto* start = new QPushButton(QStringLiteral("Í&ndice"), this);
  auto* close = new QPushButton(QStringLiteral("&Cerrar"), this);

  auto* top = new QHBoxLayout;
  top->addWidget(label);
  top->addWidget(search_);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {back, forward, start}) buttons->addWidget(button);
  buttons->addStretch();
  buttons->addWidget(close);
  auto* column = new QVBoxLayout(this);
  column->addLayout(top);
  column->addWidget(found_);
  column->addWidget(nothing_);
  column->addWidget(browser_, 1);
  column->addLayout(buttons);

  for (QPushButton* button : {back, forward}) button->setEnabled(false);
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
  connect(browser_, &QTextBrowser::forwardAvailable, forward, &QPushButton::setEnabled);
  connect(browser_, &QTextBrowser::sourceChanged, this, [this](const QUrl& page) {
    const QString title = HelpTitle(page);
    setWindowTitle(title == ToQt(PaginasAyuda().front().titulo) ? title : QStringLiteral("Ayuda: ") + title);
  });
  connect(back, &QPushButton::clicked, browser_, &QTextBrowser::backward);
  connect(forward, &QPushButton::clicked, browser_, &QTextBrowser::forward);
  connect(start, &QPushButton::clicked, this,
          [this] { browser_->setSource(HelpAddress(ToQt(PaginasAyuda().front().fichero))); });
  connect(close, &QPushButton::clicked, this, &QWidget::close);
  connect(search_, &QLineEdit::textChanged, this, [this] { Search(); });
  connect(found_, &QListWidget::itemActivated, this, [this] { GoToHit(); });
  connect(found_, &QListWidget::itemClicked, this, [this] { GoToHit(); });
  for (QWidget* widget : std::initializer_list<QWidget*>{search_, found_, browser_, back, forward, start, close})
    widget->installEventFilter(this);
  zoom::Watch(this, [this] { SetTextSize(percent_); });
  SetTextSize(percent_);
}

void HelpWindow::Open(int context, const HelpPlace& place) {
  if (QWidget* active = QApplication::activeWindow(); active != this) before_ = active;
  ShowBeside();
  const QUrl page = HelpAddress(ToQt(PaginaDeContexto(context).fichero));
  const QUrl target = place.link.empty() ? page : page.resolved(QUrl(ToQt(place.link)));
  static_cast<Browser*>(browser_)->Show(target);
  const QTextBlock heading = HeadingOf(*browser_->document(), target.fragment(QUrl::FullyDecoded));
  if (heading.isValid() && !place.words.empty()) {
    // Up to the next heading.
    QTextBlock end = heading.next();
    while (end.isValid() && end.blockFormat().headingLevel() == 0) end = end.next();
    const int last = (end.isValid() ? end : browser_->document()->lastBlock()).blockNumber();
    Mark(ToQt(place.words), heading.blockNumber() + 1, last);
  }
  browser_->setFocus();
}

void HelpWindow::Explain(const QString& message) {
  static const QRegularExpression number(QStringLiteral("\\d"));
  QStringList words = message.simplified().split(QLatin1Char(' '));
  words.removeIf([](const QString& word) { return word.contains(number); });
  while (words.size() > 1 && SearchHelp(words.join(QLatin1Char(' '))).empty()) words.removeLast();
  if (QWidget* active = QApplication::activeWindow(); active != this) before_ = active;
  ShowBeside();
  search_->setText(words.join(QLatin1Char(' ')));
  GoToHit();
}

// Where the window below leaves room, on the right of the screen otherwise.
void HelpWindow::ShowBeside() {
  if (!isVisible()) {
    const QWidget* below = before_ ? before_ : this;
    const QRect area = below->screen()->availableGeometry();
    const int room = before_ ? area.right() - below->frameGeometry().right() - 2 * fontMetrics().height() : 0;
    int width = std::min(TextWidth(fontMetrics(), kCharactersAcross), area.width());
    if (room >= TextWidth(fontMetrics(), kFewestCharacters)) width = std::min(width, room);
    resize(width, area.height() * 4 / 5);
    move(area.right() - width - fontMetrics().height(), area.top() + area.height() / 10);
    places_.PutBack(*this, kPlace);
    winId();
    FollowModal();
    show();
    layout()->activate();
  }
  raise();
  activateWindow();
}

// Modality.

// The toolkit leaves a window alone that belongs to the modal one.
void HelpWindow::FollowModal() {
  QWindow* modal = QGuiApplication::modalWindow();
  if (!windowHandle() || windowHandle()->transientParent() == modal) return;
  windowHandle()->setTransientParent(modal);
  disconnect(modal_closed_);
  if (!modal) return;
  modal_closed_ = connect(
      modal, &QWindow::visibleChanged, this, [this] { FollowModal(); }, Qt::QueuedConnection);
}

bool HelpWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowBlocked) FollowModal();
  return QWidget::event(event);
}

void HelpWindow::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  places_.Keep(*this, kPlace, {});
  GiveKeyboardBack();
}

// Otherwise nobody has the keyboard where no window manager passes it on.
void HelpWindow::GiveKeyboardBack() {
  QWidget* modal = QApplication::activeModalWidget();
  QWidget* below = modal ? modal : before_.data();
  if (below && below->isVisible()) below->activateWindow();
}

// Keys.

bool HelpWindow::HandleOwnKey(const QKeyEvent& event) {
  const bool control = event.modifiers() & Qt::ControlModifier;
  switch (event.key()) {
    case Qt::Key_Escape:
      close();
      return true;
    case Qt::Key_F1:
      GiveKeyboardBack();
      return true;
    case Qt::Key_F:
      if (control) search_->setFocus(Qt::ShortcutFocusReason);
      return control;
    case Qt::Key_Plus:
    case Qt::Key_Equal:  // plus without Shift on some keyboards
      if (control) SetTextSize(percent_ + kStep);
      return control;
    case Qt::Key_Minus:
      if (control) SetTextSize(percent_ - kStep);
      return control;
    case Qt::Key_0:
      if (control) SetTextSize(100);
      return control;
    default:
      return false;
  }
}

bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  auto& pressed = *static_cast<QKeyEvent*>(event);
  if (HandleOwnKey(pressed)) return true;
  const int key = pressed.key();
  if (watched == search_) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      GoToHit();
      return true;
    }
    if (key == Qt::Key_Up || key == Qt::Key_Down) {
      const int row = found_->currentRow() + (key == Qt::Key_Up ? -1 : 1);
      if (row >= 0 && row < found_->count()) found_->setCurrentRow(row);
      return true;
    }
  } else if (watched == browser_ && !pressed.text().isEmpty() && pressed.text().at(0).isLetterOrNumber() &&
             !(pressed.modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
    // Whoever types looks for something.
    search_->setFocus(Qt::ShortcutFocusReason);
    QApplication::sendEvent(search_, event);
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  if (!HandleOwnKey(*event)) QWidget::keyPressEvent(event);
}

// Look.

void HelpWindow::SetTextSize(int percent) {
  percent_ = std::clamp(percent, kSmallest, kLargest);
  QFont font = TextFont();
  font.setPointSizeF(font.pointSizeF() * percent_ / 100);
  browser_->document()->setDefaultFont(font);
  static_cast<Browser*>(browser_)->Dress();
  Search();  // rows have another height
}

void HelpWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  // Colours of links and lines are in the text.
  if (event->type() == QEvent::PaletteChange && browser_ && !browser_->source().isEmpty()) browser_->reload();
}

// Search.

void HelpWindow::Search() {
  hits_ = SearchHelp(search_->text());
  found_->clear();
  for (const HelpHit& hit : hits_) found_->addItem(hit.title + QStringLiteral(": ") + hit.sentence);
  found_->setCurrentRow(0);
  found_->setVisible(!hits_.empty());
  const int rows = std::min(found_->count(), kHitsShown);
  found_->setFixedHeight(std::max(found_->sizeHintForRow(0), 0) * rows + 2 * found_->frameWidth());
  nothing_->setVisible(hits_.empty() && !search_->text().trimmed().isEmpty());
}

void HelpWindow::GoToHit() {
  const int row = found_->currentRow();
  if (row < 0) return;
  const HelpHit hit = hits_[static_cast<std::size_t>(row)];
  static_cast<Browser*>(browser_)->Show(hit.page);
  Mark(search_->text(), hit.block, hit.last_block);
  browser_->setFocus();
}

void HelpWindow::Mark(const QString& words, int first_block, int last_block) {
  const QTextDocument& page = *browser_->document();
  QList<QTextEdit::ExtraSelection> marks;
  const auto mark = [&](const QString& wanted) {
    int shown = -1;
    for (int number = first_block; number <= last_block; ++number) {
      const QTextBlock block = page.findBlockByNumber(number);
      const QString text = Folded(block.text());
      const auto at = text.indexOf(wanted);
      if (at < 0) continue;
      if (shown < 0) shown = number;
      QTextEdit::ExtraSelection found;
      found.cursor = QTextCursor(block);
      found.cursor.setPosition(block.position() + static_cast<int>(at));
      found.cursor.setPosition(block.position() + static_cast<int>(at + wanted.size()), QTextCursor::KeepAnchor);
      found.format.setBackground(palette().brush(QPalette::Highlight));
      found.format.setForeground(palette().brush(QPalette::HighlightedText));
      marks << found;
      break;
    }
    return shown;
  };
  int first = mark(Folded(words.trimmed()));
  if (first < 0) {
    for (const QString& word : Folded(words).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
      const int at = mark(word);
      if (first < 0 || (at >= 0 && at < first)) first = at;
    }
  }
  browser_->setExtraSelections(marks);
  if (first >= 0) ScrollTo(first);
}

// In the upper part of the window, with what stands before it.
void HelpWindow::ScrollTo(int block) {
  const QTextDocument& page = *browser_->document();
  const QRectF place = page.documentLayout()->blockBoundingRect(page.findBlockByNumber(block));
  QScrollBar& bar = *browser_->verticalScrollBar();
  bar.setValue(qRound(place.top()) - browser_->viewport()->height() / 4);
}

}  // namespace zendara

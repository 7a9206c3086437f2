#include "adapters/qt/listing_window.hpp"

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <ranges>
#include <utility>

#include "adapters/qt/fit.hpp"
#include "adapters/qt/flow_layout.hpp"
#include "adapters/qt/listing_view.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/own_window.hpp"
#include "adapters/qt/status_line.hpp"
#include "adapters/qt/text.hpp"
#include "runtime/format.hpp"

namespace zendara {
namespace {

constexpr std::size_t kBatch = 64;
constexpr qint64 kSlice = 20;  // milliseconds of reading, after which a key may come
constexpr int kPageDigits = 7;
constexpr int kSearchCharacters = 16;
constexpr double kPixelsPerTwip = 1 / 15.0;

QString Grouped(std::size_t number) { return ToQt(GroupThousands(std::to_string(number))); }

enum class Where { kAnywhere, kOutsideOfFields, kInPages };

}  // namespace

struct ListingWindow::KeyAction {
  Qt::KeyboardModifiers modifiers;
  int key;
  void (ListingWindow::*act)();
  Where where = Where::kAnywhere;
};

const ListingWindow::KeyAction ListingWindow::kKeys[] = {
    {Qt::NoModifier, Qt::Key_PageDown, &ListingWindow::NextPage},
    {Qt::NoModifier, Qt::Key_PageUp, &ListingWindow::PreviousPage},
    {Qt::ControlModifier, Qt::Key_Home, &ListingWindow::FirstPage},
    {Qt::ControlModifier, Qt::Key_End, &ListingWindow::LastPage},
    {Qt::NoModifier, Qt::Key_Up, &ListingWindow::LineUp},
    {Qt::NoModifier, Qt::Key_Down, &ListingWindow::LineDown},
    {Qt::NoModifier, Qt::Key_Left, &ListingWindow::LineLeft, Where::kOutsideOfFields},
    {Qt::NoModifier, Qt::Key_Right, &ListingWindow::LineRight, Where::kOutsideOfFields},
    {Qt::NoModifier, Qt::Key_Home, &ListingWindow::FirstPage, Where::kOutsideOfFields},
    {Qt::NoModifier, Qt::Key_End, &ListingWindow::LastPage, Where::kOutsideOfFields},
    {Qt::NoModifier, Qt::Key_Space, &ListingWindow::ViewDown, Where::kInPages},
    {Qt::ShiftModifier, Qt::Key_Space, &ListingWindow::ViewUp, Where::kInPages},
    {Qt::ControlModifier, Qt::Key_Plus, &ListingWindow::Larger},
    {Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_Plus, &ListingWindow::Larger},
    {Qt::ControlModifier, Qt::Key_Equal, &ListingWindow::Larger},  // plus without Shift on some keyboards
    {Qt::ControlModifier, Qt::Key_Minus, &ListingWindow::Smaller},
    {Qt::ControlModifier, Qt::Key_0, &ListingWindow::FullSize},
    {Qt::ControlModifier, Qt::Key_F, &ListingWindow::EnterSearch},
    {Qt::NoModifier, Qt::Key_F3, &ListingWindow::FindNext},
    {Qt::ShiftModifier, Qt::Key_F3, &ListingWindow::FindPrevious},
    {Qt::ControlModifier, Qt::Key_P, &ListingWindow::Print},
    {Qt::ControlModifier, Qt::Key_S, &ListingWindow::Save},
    {Qt::NoModifier, Qt::Key_F1, &ListingWindow::Help},
    {Qt::NoModifier, Qt::Key_Escape, &ListingWindow::Leave},
};

ListingWindow::ListingWindow(print::PagedListing& listing, const PangoMeasure& measure, Actions actions,
                             QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint),
      listing_(listing),
      actions_(std::move(actions)),
      view_(new ListingView(listing, measure, this)) {
  BeginOwnWindow(*this);
  setWindowModality(Qt::ApplicationModal);
  setAttribute(Qt::WA_KeyboardFocusChange);  // so that the style marks what has the keyboard
  setWindowTitle(ToQt(listing.Description().title));
  LayOut();
  view_->OnChanged([this] { ShowState(); });
  reading_.setInterval(0);
  reading_.callOnTimeout(this, [this] { Act(&ListingWindow::ReadOn); });
  zoom::Watch(this, [this] { Rescale(); });
  Rescale();
  ShowState();
  view_->setFocus();
}

QPushButton* ListingWindow::AddButton(QHBoxLayout& group, const QString& words, const QString& hint,
                                      void (ListingWindow::*act)()) {
  auto* button = new QPushButton(words, this);
  button->setAutoDefault(false);
  button->setToolTip(hint);
  button->setAccessibleDescription(hint);
  button->installEventFilter(this);
  connect(button, &QPushButton::clicked, this, [this, act] { Act(act); });
  group.addWidget(button);
  return button;
}

void ListingWindow::AddSign(QHBoxLayout& group, const QString& sign, const QString& name, const QString& keys,
                            void (ListingWindow::*act)()) {
  QPushButton* button = AddButton(group, sign, name + QStringLiteral(": ") + keys, act);
  button->setAccessibleName(name);
  signs_.push_back(button);
}

QLineEdit* ListingWindow::AddField(QHBoxLayout& group, const QString& words, int characters) {
  auto* label = new QLabel(words, this);
  auto* field = new QLineEdit(this);
  field->setObjectName(QString::number(characters));
  field->setAccessibleName(PlainCaption(FromQt(words)));
  field->installEventFilter(this);
  label->setBuddy(field);
  group.addWidget(label);
  group.addWidget(field);
  return field;
}

void ListingWindow::LayOut() {
  auto* bar = new FlowLayout;
  const auto group = [&] {
    auto* row = new QHBoxLayout;
    bar->AddLayout(row);
    groups_.push_back(row);
    return row;
  };
  QHBoxLayout* pages = group();
  AddSign(*pages, QStringLiteral("|◀"), QStringLiteral("Primera página"), QStringLiteral("Ctrl+Inicio"),
          &ListingWindow::FirstPage);
  AddSign(*pages, QStringLiteral("◀"), QStringLiteral("Página anterior"), QStringLiteral("Re Pág"),
          &ListingWindow::PreviousPage);
  page_ = AddField(*pages, QStringLiteral("&Página:"), kPageDigits);
  page_->setValidator(new QIntValidator(0, 9'999'999, page_));
  page_->setToolTip(QStringLiteral("Escriba el número de la página y pulse Intro"));
  page_->setAlignment(Qt::AlignRight);
  pages_ = new QLabel(this);
  pages->addWidget(pages_);
  AddSign(*pages, QStringLiteral("▶"), QStringLiteral("Página siguiente"), QStringLiteral("Av Pág"),
          &ListingWindow::NextPage);
  AddSign(*pages, QStringLiteral("▶|"), QStringLiteral("Última página"), QStringLiteral("Ctrl+Fin"),
          &ListingWindow::LastPage);

  QHBoxLayout* size = group();
  AddSign(*size, QStringLiteral("−"), QStringLiteral("Más pequeña"), QStringLiteral("Ctrl+−"), &ListingWindow::Smaller);
  percent_ = AddButton(*size, QString(), QStringLiteral("Tamaño del papel: Ctrl+0"), &ListingWindow::FullSize);
  AddSign(*size, QStringLiteral("+"), QStringLiteral("Más grande"), QStringLiteral("Ctrl++"), &ListingWindow::Larger);
  AddButton(*size, QStringLiteral("&A lo ancho"), QStringLiteral("La página, tan ancha como la ventana"),
            &ListingWindow::FitWidth);

  QHBoxLayout* search = group();
  line_ = AddField(*search, QStringLiteral("&Buscar:"), kSearchCharacters);
  line_->setToolTip(QStringLiteral("Ctrl+F. La siguiente: F3 o Intro. La anterior: Mayús+F3."));
  line_->setClearButtonEnabled(true);
  found_words_ = new QLabel(this);
  search->addWidget(found_words_);

  bar->AddSpace();
  QHBoxLayout* ends = group();
  AddButton(*ends, QStringLiteral("&Imprimir"), QStringLiteral("En una impresora: Ctrl+P"), &ListingWindow::Print);
  AddButton(*ends, QStringLiteral("&Guardar"), QStringLiteral("Como PDF, hoja de cálculo o CSV: Ctrl+S"),
            &ListingWindow::Save);
  AddButton(*ends, QStringLiteral("Sa&lir"), QStringLiteral("Esc"), &ListingWindow::Leave);

  auto* hint = new QLabel(QStringLiteral("Av Pág y Re Pág: otra página. Ctrl+F: buscar. F3: la siguiente. "
                                         "Ctrl+P: imprimir. Ctrl+S: guardar. Esc: salir."),
                          this);
  hint->setWordWrap(true);
  status_ = new StatusLine(this);
  auto* column = new QVBoxLayout(this);
  column->addLayout(bar);
  column->addWidget(view_, 1);
  column->addWidget(hint);
  column->addWidget(status_);
  setTabOrder(view_, page_);
  view_->installEventFilter(this);
  connect(page_, &QLineEdit::returnPressed, this, [this] { Act(&ListingWindow::GoToTypedPage); });
  connect(line_, &QLineEdit::returnPressed, this, [this] { Act(&ListingWindow::FindNext); });
  connect(line_, &QLineEdit::textChanged, this, [this] { Act(&ListingWindow::Look); });
}

// As wide as the paper at the size of the text, as high as there is room.
void ListingWindow::Rescale() {
  for (QLineEdit* field : {page_, line_}) {
    field->setFixedWidth(TextWidth(fontMetrics(), field->objectName().toInt()) + 2 * fontMetrics().height());
  }
  found_words_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("Línea 999.999")));
  const int line = fontMetrics().height();
  percent_->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("400 %")) + 3 * line / 2);
  for (QPushButton* sign : signs_) sign->setFixedWidth(2 * line);
  for (QHBoxLayout* group : groups_) group->setContentsMargins(0, 0, group == groups_.back() ? 0 : line, 0);
  if (isVisible()) return;
  const QSize most = RoomFor(*this).size() * 19 / 20;
  const double paper = listing_.PaperOf().width * kPixelsPerTwip * zoom::Percent() / 100;
  resize(QSize(static_cast<int>(paper) + 5 * fontMetrics().height(), most.height()).boundedTo(most));
}

void ListingWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!listing_.Complete()) reading_.start();
}

// Reading.

// No exception may fly through the toolkit, and a part of a listing is none.
void ListingWindow::Act(void (ListingWindow::*act)()) {
  if (failure_) return;
  try {
    (this->*act)();
  } catch (...) {
    failure_ = std::current_exception();
    reading_.stop();
    reject();
  }
}

void ListingWindow::ReadOn() {
  QElapsedTimer since;
  since.start();
  while (listing_.ReadOn(kBatch) && since.elapsed() < kSlice) {
  }
  view_->Refresh();
  ShowState();
  if (!listing_.Complete()) return;
  reading_.stop();
  if (const auto act = std::exchange(once_read_, nullptr)) act();
}

void ListingWindow::OnceRead(std::function<void()> act) {
  if (listing_.Complete()) return act();
  once_read_ = std::move(act);
}

void ListingWindow::ShowState() {
  const QString page = QString::number(view_->Page() + 1);
  if (!page_->isModified()) page_->setText(page);
  const QString more = listing_.Complete() ? QString() : QStringLiteral("…");
  const QString of = QStringLiteral("de ") + Grouped(listing_.Pages()) + more;
  pages_->setText(of);
  percent_->setText(QStringLiteral("%1 %").arg(view_->Percent()));
  percent_->setAccessibleName(QStringLiteral("Tamaño, %1 por ciento").arg(view_->Percent()));
  const QString name = windowTitle() + QStringLiteral(", página %1 ").arg(page) + of;
  if (view_->accessibleName() != name) view_->setAccessibleName(name);
  status_->ShowPlace(ToQt(print::LinesText(listing_.Rows())) + more, {});
}

// Pages.

void ListingWindow::GoTo(std::size_t page) {
  once_read_ = nullptr;
  page_->setModified(false);
  view_->GoTo(page);
  ShowState();
}

void ListingWindow::FirstPage() { GoTo(0); }
void ListingWindow::NextPage() { GoTo(view_->Page() + 1); }
void ListingWindow::PreviousPage() { GoTo(view_->Page() == 0 ? 0 : view_->Page() - 1); }

void ListingWindow::LastPage() {
  OnceRead([this] { GoTo(listing_.Pages() - 1); });
}

void ListingWindow::GoToTypedPage() {
  const std::size_t typed = std::max(page_->text().toULongLong(), 1ULL) - 1;
  if (typed < listing_.Pages()) {
    GoTo(typed);
  } else {
    OnceRead([this, typed] { GoTo(typed); });
  }
  page_->selectAll();
}

// What is seen of them.

void ListingWindow::Larger() { view_->Larger(); }
void ListingWindow::Smaller() { view_->Smaller(); }
void ListingWindow::FullSize() { view_->SetPercent(100); }
void ListingWindow::FitWidth() { view_->FitWidth(); }
void ListingWindow::LineUp() { view_->Scroll(0, -1); }
void ListingWindow::LineDown() { view_->Scroll(0, 1); }
void ListingWindow::LineLeft() { view_->Scroll(-1, 0); }
void ListingWindow::LineRight() { view_->Scroll(1, 0); }
void ListingWindow::ViewDown() { view_->ScrollViews(1); }
void ListingWindow::ViewUp() { view_->ScrollViews(-1); }

// Search.

std::size_t ListingWindow::FirstRowInView() const {
  const auto rows = std::views::iota(std::size_t{0}, listing_.Rows());
  const auto first =
      std::ranges::partition_point(rows, [&](std::size_t row) { return listing_.PageOf(row) < view_->Page(); });
  return first == rows.end() ? 0 : *first;
}

void ListingWindow::EnterSearch() {
  line_->setFocus(Qt::ShortcutFocusReason);
  line_->selectAll();
}

void ListingWindow::Look() {
  once_read_ = nullptr;
  const std::size_t from = found_ ? *found_ : FirstRowInView();
  found_.reset();
  view_->Mark(FromQt(line_->text().trimmed()));
  view_->ShowFound(std::nullopt);
  SayFound({});
  if (!line_->text().trimmed().isEmpty()) Seek(static_cast<std::ptrdiff_t>(from), false);
}

void ListingWindow::FindNext() { Find(QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier)); }
void ListingWindow::FindPrevious() { Find(true); }

void ListingWindow::Find(bool backwards) {
  if (line_->text().trimmed().isEmpty()) return EnterSearch();
  const bool in_view = found_ && listing_.PageOf(*found_) == view_->Page();
  const auto begin = static_cast<std::ptrdiff_t>(in_view ? *found_ : FirstRowInView());
  Seek(backwards ? begin - 1 : in_view ? begin + 1 : begin, backwards);
}

// `from` may be one before the first row and one behind the last. Where it would go round the end, or finds nothing, it
// waits until all is read.
void ListingWindow::Seek(std::ptrdiff_t from, bool backwards) {
  const auto rows = static_cast<std::ptrdiff_t>(std::max<std::size_t>(listing_.Rows(), 1));
  const auto begin = static_cast<std::size_t>((from + rows) % rows);
  const auto row = listing_.Find(FromQt(line_->text().trimmed()), begin, backwards);
  const auto at = row ? static_cast<std::ptrdiff_t>(*row) : 0;
  const bool round = row && (backwards ? at > from : at < from);
  if (!listing_.Complete() && (!row || round)) {
    SayFound(QStringLiteral("Buscando…"));
    return OnceRead([this, from, backwards] { Seek(from, backwards); });
  }
  found_ = row;
  if (!row) {
    SayFound(QStringLiteral("No está"));
    status_->ShowMessage(QStringLiteral("El listado no tiene «%1».").arg(line_->text().trimmed()));
    return;
  }
  while (listing_.PageOf(*row) >= listing_.Pages() && !listing_.Complete()) listing_.ReadOn(kBatch);
  view_->Refresh();
  view_->ShowFound(row);
  SayFound(QStringLiteral("Línea ") + Grouped(*row + 1));
  status_->ShowMessage(round ? QStringLiteral("La búsqueda ha dado la vuelta al listado.") : QString());
}

void ListingWindow::SayFound(const QString& words) {
  if (found_words_->text() == words) return;
  found_words_->setText(words);
  QAccessibleEvent changed(found_words_, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&changed);
}

// What becomes of it.

void ListingWindow::Print() { Do(actions_.print); }
void ListingWindow::Save() { Do(actions_.save); }
void ListingWindow::Help() { actions_.help(); }
void ListingWindow::Leave() { reject(); }

// Who writes the listing reads it on.
void ListingWindow::Do(const std::function<QString(QWidget& over)>& action) {
  reading_.stop();
  const QString said = action(*this);
  view_->Refresh();
  ShowState();
  if (!said.isEmpty()) status_->ShowMessage(said);
  reading_.start();
}

// Keys.

bool ListingWindow::HandleKey(const QKeyEvent& event) {
  const auto modifiers = event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
  const bool in_field = qobject_cast<QLineEdit*>(focusWidget()) != nullptr;
  for (const KeyAction& action : kKeys) {
    if (action.key != event.key() || action.modifiers != modifiers) continue;
    if (action.where == Where::kOutsideOfFields && in_field) return false;
    if (action.where == Where::kInPages && focusWidget() != view_) return false;
    Act(action.act);
    return true;
  }
  return false;
}

bool ListingWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && HandleKey(*static_cast<QKeyEvent*>(event))) return true;
  return QDialog::eventFilter(watched, event);
}

}  // namespace zendara

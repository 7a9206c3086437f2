#include "adapters/qt/pick_window.hpp"

#include <QAbstractTableModel>
#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>
#include <algorithm>
#include <exception>

#include "adapters/qt/keys.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/own_window.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

constexpr std::size_t kBatch = 256;
constexpr std::size_t kBatches = 32;
constexpr qint64 kSlice = 20;  // milliseconds of reading, after which a key may come
constexpr qint64 kShowAgain = 200;
constexpr int kRowsShown = 18;

// With points between the thousands.
QString Grouped(std::size_t number) {
  QString digits = QString::number(number);
  for (qsizetype at = digits.size() - 3; at > 0; at -= 3) digits.insert(at, QLatin1Char('.'));
  return digits;
}

}  // namespace

// The rows that are shown, their columns in the order of reading.
class RowsModel : public QAbstractTableModel {
 public:
  RowsModel(const RowList& rows, const RowSearch& search, QObject* parent)
      : QAbstractTableModel(parent), rows_(rows), search_(search) {}

  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(search_.Shown());
  }
  int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows_.Reading().size());
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    try {
      const std::size_t row = search_.RowAt(static_cast<std::size_t>(index.row()));
      return ToQt(rows_.Cell(row, ColumnAt(index.column()))).trimmed();
    } catch (...) {
      // Nothing may fly through the toolkit.
      failure_ = std::current_exception();
      return {};
    }
  }

  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal || !HasHeadings()) return {};
    if (role == Qt::DisplayRole) return ToQt(rows_.View().headings[ColumnAt(section)]);
    if (role == Qt::TextAlignmentRole) return int{Qt::AlignLeft | Qt::AlignVCenter};
    if (role == Qt::ToolTipRole) return QStringLiteral("Ordena por esta columna (Ctrl+%1)").arg(section + 1);
    return {};
  }

  bool HasHeadings() const { return !rows_.View().headings.empty(); }
  std::size_t ColumnAt(int section) const { return rows_.Reading()[static_cast<std::size_t>(section)]; }

  template <typename Change>
  void Reset(Change change) {
    beginResetModel();
    Try(change);
    endResetModel();
  }

  template <typename Reading>
  void Try(Reading reading) {
    try {
      reading();
    } catch (...) {
      failure_ = std::current_exception();
    }
  }

  std::exception_ptr Failure() const { return failure_; }

 private:
  const RowList& rows_;
  const RowSearch& search_;
  mutable std::exception_ptr failure_;
};

namespace {

// A cell with what was looked for on a ground of its own.
class MarkedCells : public QStyledItemDelegate {
 public:
  MarkedCells(const RowSearch& search, QObject* parent) : QStyledItemDelegate(parent), search_(search) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    cell.state &= ~QStyle::State_HasFocus;  // the row is the mark
    const auto hits = search_.Looking() ? search_.Hits(FromQt(cell.text)) : std::vector<TextRange>();
    const QStyle& style = *option.widget->style();
    if (hits.empty()) return style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, option.widget);

    QString text;
    text.swap(cell.text);
    style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, option.widget);
    const QRect room = style.subElementRect(QStyle::SE_ItemViewItemText, &cell, option.widget);
    const int left = room.left() + style.pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, option.widget) + 1;
    const auto x_of = [&](int characters) {
      return left + cell.fontMetrics.horizontalAdvance(text.left(UnitsOf(text, characters)));
    };
    const bool selected = cell.state & QStyle::State_Selected;
    for (const TextRange& hit : hits) {
      const QRect mark(QPoint(x_of(hit.start), room.top() + 1),
                       QPoint(x_of(hit.start + hit.length) - 1, room.bottom() - 1));
      painter->fillRect(mark & room, ColourOf(selected ? Role::kFoundSelected : Role::kFound));
    }
    text.swap(cell.text);
    cell.backgroundBrush = Qt::NoBrush;
    painter->setPen(cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    const QString shown = cell.fontMetrics.elidedText(cell.text, Qt::ElideRight, room.right() - left + 1);
    painter->drawText(QRect(QPoint(left, room.top()), room.bottomRight()), Qt::AlignLeft | Qt::AlignVCenter, shown);
  }

 private:
  const RowSearch& search_;
};

}  // namespace

PickWindow::PickWindow(const QString& title, RowList& rows, QWidget* parent)
    : QDialog(parent), rows_(rows), search_(rows) {
  BeginOwnWindow(*this);
  setWindowModality(Qt::ApplicationModal);
  setWindowTitle(title);
  model_ = new RowsModel(rows, search_, this);
  MakeTable(title);
  LayOut(title);
  reading_.setInterval(0);
  reading_.callOnTimeout(this, [this] { ReadOn(); });
  connect(line_, &QLineEdit::textChanged, this, [this](const QString& text) {
    moved_ = false;
    Show([&] { search_.Look(FromQt(text)); });
  });
  connect(table_, &QAbstractItemView::clicked, this, [this] { moved_ = true; });
  connect(table_, &QAbstractItemView::doubleClicked, this, [this] { Take(); });
  connect(table_->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int section) { SortBy(section); });
  connect(table_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { Widen(); });
  zoom::Watch(this, [this] { Rescale(); });
  Show([this] { search_.ReadOn(kBatch); });
  Rescale();
  line_->setFocus();
}

void PickWindow::MakeTable(const QString& title) {
  table_ = new QTableView(this);
  table_->setAccessibleName(title);
  table_->setModel(model_);
  table_->setItemDelegate(new MarkedCells(search_, table_));
  table_->setShowGrid(false);
  table_->setAlternatingRowColors(true);
  table_->verticalHeader()->hide();
  table_->setWordWrap(false);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setTabKeyNavigation(false);
  table_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  table_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  QHeaderView& headings = *table_->horizontalHeader();
  headings.setVisible(model_->HasHeadings());
  headings.setHighlightSections(false);
  headings.setSectionsClickable(true);
  headings.setSortIndicatorShown(true);
  if (const auto column = rows_.View().sorted_by) {
    sorted_ = static_cast<int>(std::ranges::find(rows_.Reading(), *column) - rows_.Reading().begin());
  }
  headings.setSortIndicator(sorted_, Qt::AscendingOrder);
  table_->installEventFilter(this);
}

void PickWindow::LayOut(const QString& title) {
  line_ = new QLineEdit(this);
  line_->setAccessibleName(QStringLiteral("Buscar"));
  line_->setClearButtonEnabled(true);
  line_->setPlaceholderText(QStringLiteral("Palabras o cifras de cualquier columna"));
  line_->installEventFilter(this);
  auto* line_label = new QLabel(QStringLiteral("&Buscar:"), this);
  line_label->setBuddy(line_);
  auto* table_label = new QLabel(title, this);
  table_label->setBuddy(table_);
  count_ = new QLabel(this);
  auto* hint = new QLabel(QStringLiteral("Flechas: otra fila. Intro: elegir. Esc: salir."), this);
  if (model_->HasHeadings()) hint->setText(hint->text() + QStringLiteral(" Ctrl+1, Ctrl+2…: ordenar."));
  auto* grid = new QGridLayout(this);
  grid->addWidget(line_label, 0, 0);
  grid->addWidget(line_, 0, 1, 1, 2);
  grid->addWidget(table_label, 1, 0, 1, 2);
  grid->addWidget(count_, 1, 2, Qt::AlignRight);
  grid->addWidget(table_, 2, 0, 1, 3);
  grid->addWidget(hint, 3, 0, 1, 3);
  grid->setColumnStretch(1, 1);
}

// Rows.

std::optional<std::size_t> PickWindow::Chosen() const {
  if (model_->Failure()) std::rethrow_exception(model_->Failure());
  return result() == Accepted ? Current() : std::nullopt;
}

std::optional<std::size_t> PickWindow::Current() const {
  const QModelIndex index = table_->currentIndex();
  if (!index.isValid()) return std::nullopt;
  return search_.RowAt(static_cast<std::size_t>(index.row()));
}

void PickWindow::StandOn(std::size_t place) {
  const QModelIndex index = model_->index(static_cast<int>(place), 0);
  table_->setCurrentIndex(index);
  table_->scrollTo(index);
}

// The row that was current stays so while it is shown; until the user moves it is the one to begin on, or the best hit.
template <typename Change>
void PickWindow::Show(Change change) {
  const std::optional<std::size_t> before = Current();
  const int top = table_->verticalScrollBar()->value();
  if (!model_->Failure()) {
    model_->Reset([&] {
      change();
      search_.ShowRead();
    });
  }
  since_shown_.start();
  if (model_->Failure()) {
    reading_.stop();
    return reject();
  }
  if (search_.Shown() > 0) {
    const auto wanted = moved_ ? before : search_.Looking() ? std::nullopt : search_.Present();
    const auto place = wanted ? search_.PlaceOf(*wanted) : std::nullopt;
    table_->verticalScrollBar()->setValue(top);
    StandOn(place ? *place : search_.Best());
  }
  Count();
  Widen();
}

// Each puts its rows among those that are there: the more of these, the more at once.
std::size_t PickWindow::Batch() const { return std::max(kBatch, search_.Read() / kBatches); }

// To show rows takes as long as to read thousands of them, so that it is done now and then; but hits that are to be
// seen are shown at once.
void PickWindow::ReadOn() {
  if (search_.Complete() && !model_->Failure()) return reading_.stop();
  model_->Try([this] {
    QElapsedTimer since;
    since.start();
    while (!search_.Complete() && since.elapsed() < kSlice) search_.ReadOn(Batch());
  });
  const bool to_be_seen = search_.Shown() < kRowsShown && search_.Waiting() > 0;
  if (to_be_seen || search_.Complete() || model_->Failure() || since_shown_.elapsed() >= kShowAgain) Show([] {});
}

void PickWindow::Settle() {
  const auto may_change = [this] { return search_.Looking() ? !search_.Complete() : search_.PresentMayCome(); };
  if (moved_ || !(may_change() || search_.Waiting() > 0)) return;
  Show([&] {
    while (may_change()) search_.ReadOn(kBatch);
  });
}

void PickWindow::GoTo(std::size_t row) {
  line_->clear();
  Show([&] {
    while (!search_.Complete() && search_.Read() <= row) search_.ReadOn(kBatch);
  });
  moved_ = true;
  if (const auto place = search_.PlaceOf(row)) StandOn(*place);
}

void PickWindow::Count() {
  const QString read = Grouped(search_.Read());
  const QString more = search_.Complete() ? QString() : QStringLiteral("…");
  QString text = read + (search_.Read() == 1 && more.isEmpty() ? QStringLiteral(" fila") : QStringLiteral(" filas"));
  if (search_.Looking()) text = Grouped(search_.Shown()) + QStringLiteral(" de ") + read;
  if (search_.Looking() && search_.Shown() == 0) text = QStringLiteral("Ninguna fila lo contiene, de ") + read;
  text += more;
  if (text == count_->text()) return;
  count_->setText(text);
  QAccessibleEvent changed(count_, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&changed);
}

// Once more turns the order round, a third time brings back that of the list.
void PickWindow::SortBy(int section) {
  if (!model_->HasHeadings() || section >= model_->columnCount({})) return;
  Settle();
  const bool same = sorted_ == section;
  const bool descending = same && !descending_;
  const bool none = same && descending_;
  sorted_ = none ? -1 : section;
  descending_ = descending;
  table_->horizontalHeader()->setSortIndicator(sorted_, descending ? Qt::DescendingOrder : Qt::AscendingOrder);
  moved_ = moved_ || !search_.Looking();
  Show([&] { search_.Sort(none ? std::nullopt : std::optional(model_->ColumnAt(section)), descending); });
}

// Keys.

void PickWindow::Walk(int steps) {
  if (!search_.Looking()) Settle();
  const int rows = model_->rowCount({});
  if (rows == 0) return;
  const int place = std::clamp(table_->currentIndex().row() + steps, 0, rows - 1);
  moved_ = true;
  StandOn(static_cast<std::size_t>(place));
}

bool PickWindow::WalkBy(int key) {
  const int all = static_cast<int>(rows_.Reached()) + 1;
  const int page = std::max(table_->viewport()->height() / std::max(table_->rowHeight(0), 1) - 1, 1);
  switch (key) {
    case Qt::Key_Up:
      Walk(-1);
      return true;
    case Qt::Key_Down:
      Walk(1);
      return true;
    case Qt::Key_PageUp:
      Walk(-page);
      return true;
    case Qt::Key_PageDown:
      Walk(page);
      return true;
    case Qt::Key_Home:
      Walk(-all);
      return true;
    case Qt::Key_End:
      Show([this] {
        while (!search_.Complete()) search_.ReadOn(Batch());
      });
      Walk(static_cast<int>(search_.Read()));
      return true;
    default:
      return false;
  }
}

// Somebody who types fast means the row that all rows would give. With no hit there is nothing to take, and the window
// stays.
void PickWindow::Take() {
  Settle();
  if (Current()) return accept();
  if (!search_.Looking()) return reject();
  beep_();
}

bool PickWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  auto& pressed = *static_cast<QKeyEvent*>(event);
  if (HandleZoomKey(pressed)) return true;
  const int key = pressed.key();
  if ((pressed.modifiers() & Qt::ControlModifier) && key >= Qt::Key_1 && key <= Qt::Key_9) {
    SortBy(key - Qt::Key_1);
    return true;
  }
  if (!(pressed.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier)) && WalkBy(key)) return true;
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Take();
      return true;
    case Qt::Key_Escape:
      reject();
      return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Left:
    case Qt::Key_Right:
      return false;
    default:
      break;
  }
  if (watched != table_ || KeysOf(pressed).empty()) return false;
  // What is typed belongs to the search line, wherever the keyboard is.
  line_->setFocus();
  QApplication::sendEvent(line_, event);
  return true;
}

// Sizes.

void PickWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  Widen();
  reading_.start();  // closes the window again if it could not read the first rows
}

// Columns are as wide as what was to be seen so far, so they grow and never jump back.
void PickWindow::Widen() {
  const int first = std::max(table_->rowAt(0), 0);
  const int last = std::min(first + kRowsShown + 1, model_->rowCount({}));
  const int gap = table_->fontMetrics().height();
  int all = table_->verticalScrollBar()->sizeHint().width() + 2 * table_->frameWidth();
  for (int column = 0; column < model_->columnCount({}); ++column) {
    int width = std::max(table_->columnWidth(column), HeadingWidth(column));
    for (int row = first; row < last; ++row) {
      const QString text = model_->data(model_->index(row, column), Qt::DisplayRole).toString();
      width = std::max(width, table_->fontMetrics().horizontalAdvance(text) + gap);
    }
    if (width != table_->columnWidth(column)) table_->setColumnWidth(column, width);
    all += width;
  }
  const QMargins margins = layout()->contentsMargins();
  const int widest = screen()->availableGeometry().width() * 9 / 10;
  const int shown = std::min(std::max(all, layout()->minimumSize().width() - margins.left() - margins.right()), widest);
  table_->setMinimumWidth(shown);
  // The mark of the current row goes to the edge.
  const int last_column = model_->columnCount({}) - 1;
  if (all < shown) table_->setColumnWidth(last_column, table_->columnWidth(last_column) + shown - all);
  if (width() < table_->minimumWidth() + margins.left() + margins.right()) adjustSize();
}

int PickWindow::HeadingWidth(int column) const {
  return model_->HasHeadings() ? table_->horizontalHeader()->sectionSizeHint(column) : 0;
}

void PickWindow::Rescale() {
  const int height = RowHeight(table_->fontMetrics());
  table_->horizontalHeader()->setMinimumSectionSize(0);
  table_->verticalHeader()->setMinimumSectionSize(height);
  table_->verticalHeader()->setDefaultSectionSize(height);
  for (int column = 0; column < model_->columnCount({}); ++column) table_->setColumnWidth(column, 0);
  const int rows = std::clamp(static_cast<int>(search_.Read()), 4, kRowsShown);
  const int headings = model_->HasHeadings() ? table_->horizontalHeader()->sizeHint().height() : 0;
  const int highest = screen()->availableGeometry().height() * 3 / 5;
  const int wanted = std::min(rows * height + headings + 2 * table_->frameWidth(), highest);
  table_->setMinimumHeight(wanted);
  table_->setMaximumHeight(static_cast<int>(search_.Read()) > kRowsShown ? QWIDGETSIZE_MAX : wanted);
  Widen();
  adjustSize();
}

}  // namespace zendara

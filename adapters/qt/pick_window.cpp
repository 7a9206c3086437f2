#include "adapters/qt/pick_window.hpp"

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "adapters/qt/keys.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr std::size_t kBatch = 200;
constexpr int kRowsShown = 18;
constexpr int kCodeKind = 1;
constexpr qint64 kPauseThatEndsAWord = 1500;  // milliseconds

}  // namespace

// Rows that were reached; more of them as the view scrolls on.
class RowsModel : public QAbstractTableModel {
 public:
  RowsModel(RowList& rows, QObject* parent) : QAbstractTableModel(parent), rows_(rows) {}

  int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : shown_; }
  int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows_.Columns());
  }
  bool canFetchMore(const QModelIndex& parent) const override {
    return !parent.isValid() && !failure_ && (!rows_.Complete() || static_cast<std::size_t>(shown_) < rows_.Reached());
  }
  void fetchMore(const QModelIndex& /*parent*/) override { Reach(static_cast<std::size_t>(shown_) + kBatch - 1); }

  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    try {
      return ToQt(rows_.Cell(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column())))
          .trimmed();
    } catch (...) {
      // Nothing may fly through the toolkit.
      failure_ = std::current_exception();
      return {};
    }
  }

  // Shows the rows up to this one, and what was read beyond.
  void Reach(std::size_t row) {
    try {
      rows_.Reach(row);
    } catch (...) {
      failure_ = std::current_exception();
    }
    const int reached = static_cast<int>(rows_.Reached());
    if (reached <= shown_) return;
    beginInsertRows({}, shown_, reached - 1);
    shown_ = reached;
    endInsertRows();
  }

  std::exception_ptr Failure() const { return failure_; }

 private:
  RowList& rows_;
  int shown_ = 0;
  mutable std::exception_ptr failure_;
};

PickWindow::PickWindow(const QString& title, RowList& rows, QWidget* parent) : QDialog(parent), rows_(rows) {
  setWindowModality(Qt::ApplicationModal);
  setWindowTitle(title);
  model_ = new RowsModel(rows, this);
  model_->Reach(kBatch - 1);
  table_ = new QTableView(this);
  table_->setAccessibleName(title);
  table_->setModel(model_);
  table_->setShowGrid(false);
  table_->setAlternatingRowColors(true);
  table_->horizontalHeader()->hide();
  table_->verticalHeader()->hide();
  table_->setWordWrap(false);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setTabKeyNavigation(false);
  table_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  table_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  table_->installEventFilter(this);
  typed_label_ = new QLabel(this);
  auto* column = new QVBoxLayout(this);
  column->addWidget(table_);
  column->addWidget(typed_label_);
  connect(table_, &QAbstractItemView::doubleClicked, this, [this] { accept(); });
  connect(table_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { Widen(); });
  zoom::Watch(this, [this] { Rescale(); });
  Rescale();
  Type({});
  if (model_->rowCount({}) > 0) table_->setCurrentIndex(model_->index(0, 0));
  table_->setFocus();
}

std::optional<std::size_t> PickWindow::Chosen() const {
  if (failure_) std::rethrow_exception(failure_);
  if (model_->Failure()) std::rethrow_exception(model_->Failure());
  if (result() != Accepted || !table_->currentIndex().isValid()) return std::nullopt;
  return static_cast<std::size_t>(table_->currentIndex().row());
}

template <typename Read>
void PickWindow::Guard(Read read) {
  try {
    read();
  } catch (...) {
    failure_ = std::current_exception();
  }
  if (failure_ || model_->Failure()) reject();
}

void PickWindow::GoTo(std::size_t row) {
  Guard([&] {
    model_->Reach(row);
    const QModelIndex index = model_->index(static_cast<int>(row), 0);
    table_->setCurrentIndex(index);
    table_->scrollTo(index);
  });
}

void PickWindow::Walk(int steps) {
  Type({});
  Guard([&] {
    const auto row = static_cast<std::size_t>(std::max(table_->currentIndex().row() + steps, 0));
    model_->Reach(row);
    if (rows_.Reached() > 0) GoTo(std::min(row, rows_.Reached() - 1));
  });
}

void PickWindow::Type(const QString& text) {
  typed_ = text;
  typed_label_->setText(text.isEmpty() ? QStringLiteral("Escriba para buscar. Intro elige, Esc sale.")
                                       : QStringLiteral("Buscando: ") + text);
}

// Digits look in the codes first, letters in the texts: of the columns that hold it the likeliest decides.
bool PickWindow::Search() {
  std::vector<std::size_t> columns(rows_.Columns());
  for (std::size_t i = 0; i < columns.size(); ++i) columns[i] = i;
  const bool code = typed_.at(0).isDigit();
  std::ranges::stable_partition(columns, [&](std::size_t column) { return (rows_.Kind(column) == kCodeKind) == code; });
  const std::string text = FromQt(typed_);
  const auto here = static_cast<std::size_t>(std::max(table_->currentIndex().row(), 0));
  for (const std::size_t from : {here, std::size_t{0}}) {
    for (const std::size_t column : columns) {
      if (const auto row = rows_.Find(column, text, from)) {
        GoTo(*row);
        return true;
      }
    }
    if (from == 0) break;
  }
  return false;
}

bool PickWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const auto& pressed = *static_cast<QKeyEvent*>(event);
  if (HandleZoomKey(pressed)) return true;
  const int page = std::max(table_->viewport()->height() / std::max(table_->rowHeight(0), 1) - 1, 1);
  switch (pressed.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      accept();
      return true;
    case Qt::Key_Escape:
      reject();
      return true;
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
      Type({});
      GoTo(0);
      return true;
    case Qt::Key_End:
      Type({});
      Guard([&] {
        if (rows_.Total() > 0) GoTo(rows_.Total() - 1);
      });
      return true;
    case Qt::Key_Backspace:
      Type(typed_.chopped(typed_.isEmpty() ? 0 : 1));
      if (!typed_.isEmpty()) Guard([&] { Search(); });
      return true;
    default:
      break;
  }
  for (const Key& key : KeysOf(pressed)) {
    if (key.text.empty() || (key.shift & (key::kControl | key::kAlt))) continue;
    const bool fresh = typed_.isEmpty() || since_key_.elapsed() > kPauseThatEndsAWord;
    since_key_.start();
    const QString before = fresh ? QString() : typed_;
    Type(before + ToQt(key.text));
    Guard([&] {
      if (Search()) return;
      QApplication::beep();
      Type(before);
    });
  }
  return true;
}

void PickWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  Widen();
}

// Columns are as wide as what was to be seen so far, so they grow and never jump back.
void PickWindow::Widen() {
  const int first = std::max(table_->rowAt(0), 0);
  const int last = std::min(first + kRowsShown + 1, model_->rowCount({}));
  const int gap = table_->fontMetrics().height();
  int all = table_->verticalScrollBar()->sizeHint().width() + 2 * table_->frameWidth();
  for (int column = 0; column < model_->columnCount({}); ++column) {
    int width = table_->columnWidth(column);
    for (int row = first; row < last; ++row) {
      const QString text = model_->data(model_->index(row, column), Qt::DisplayRole).toString();
      width = std::max(width, table_->fontMetrics().horizontalAdvance(text) + gap);
    }
    if (width != table_->columnWidth(column)) table_->setColumnWidth(column, width);
    all += width;
  }
  const QMargins margins = layout()->contentsMargins();
  const int widest = screen()->availableGeometry().width() * 9 / 10;
  const int shown = std::min(std::max(all, typed_label_->sizeHint().width()), widest);
  table_->setMinimumWidth(shown);
  // The mark of the current row goes to the edge.
  const int last_column = model_->columnCount({}) - 1;
  if (all < shown) table_->setColumnWidth(last_column, table_->columnWidth(last_column) + shown - all);
  if (width() < table_->minimumWidth() + margins.left() + margins.right()) adjustSize();
}

void PickWindow::Rescale() {
  const int height = table_->fontMetrics().height() * 4 / 3;
  table_->horizontalHeader()->setMinimumSectionSize(0);
  table_->verticalHeader()->setMinimumSectionSize(height);
  table_->verticalHeader()->setDefaultSectionSize(height);
  for (int column = 0; column < model_->columnCount({}); ++column) table_->setColumnWidth(column, 0);
  const int rows = std::clamp(model_->rowCount({}), 4, kRowsShown);
  const int highest = screen()->availableGeometry().height() * 3 / 4;
  const int wanted = std::min(rows * height + 2 * table_->frameWidth(), highest);
  table_->setMinimumHeight(wanted);
  table_->setMaximumHeight(model_->rowCount({}) > kRowsShown ? QWIDGETSIZE_MAX : wanted);
  Widen();
  adjustSize();
}

}  // namespace zendara

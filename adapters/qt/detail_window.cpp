#include "adapters/qt/detail_window.hpp"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "adapters/qt/fit.hpp"
#include "adapters/qt/keys.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/own_window.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

constexpr int kLabel = 0;
constexpr int kFigure = 1;
constexpr int kSource = 2;
constexpr int kColumns = 3;
constexpr int kCharactersAcross = 120;

// Text with room around it, so that rows of several lines stand apart. No line ends within a product.
class RoomyCells : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QString displayText(const QVariant& value, const QLocale& /*locale*/) const override {
    return value.toString().replace(QStringLiteral(" × "), QStringLiteral("\u00A0×\u00A0"));
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    QString text;
    text.swap(cell.text);
    const QStyle& style = *option.widget->style();
    style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, option.widget);
    cell.text = text;
    cell.rect = Inner(option);
    cell.backgroundBrush = Qt::NoBrush;
    cell.state &= ~QStyle::State_HasFocus;
    style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, option.widget);
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem text = option;
    if (option.rect.isValid()) text.rect = Inner(option);
    return QStyledItemDelegate::sizeHint(text, index) +
           (option.rect.size() - text.rect.size()).expandedTo(Room(option));
  }

 private:
  static QSize Room(const QStyleOptionViewItem& option) {
    const int line = option.fontMetrics.height();
    return {line * 2 / 3, line / 2};
  }
  static QRect Inner(const QStyleOptionViewItem& option) {
    const QSize room = Room(option);
    return option.rect.adjusted(room.width() / 2, room.height() / 2, -room.width() / 2, -room.height() / 2);
  }
};

}  // namespace

DetailWindow::DetailWindow(const std::vector<BoxDetail>& rows, const QString& title, KeepDetail keep, QWidget* parent)
    : QDialog(parent), keep_(std::move(keep)) {
  BeginOwnWindow(*this);
  setWindowModality(Qt::ApplicationModal);
  setAttribute(Qt::WA_KeyboardFocusChange);  // so that the style marks what has the keyboard
  setWindowTitle(title);
  table_ = new QTableWidget(this);
  table_->setAccessibleName(title);
  table_->setItemDelegate(new RoomyCells(table_));
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setTabKeyNavigation(false);
  table_->setShowGrid(false);
  table_->setAlternatingRowColors(true);
  table_->setTextElideMode(Qt::ElideNone);
  table_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setMinimumSectionSize(0);
  table_->horizontalHeader()->setHighlightSections(false);
  table_->horizontalHeader()->setSectionsClickable(false);
  Fill(rows);
  hint_ = new QLabel(QStringLiteral("Ctrl+C copia la tabla. Intro o Esc cierra."), this);
  auto* close = new QPushButton(QStringLiteral("&Cerrar"), this);
  close->setDefault(true);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(hint_, 1);
  if (keep_) {
    auto* save = new QPushButton(QStringLiteral("&Guardar PDF"), this);
    save->setAutoDefault(false);
    save->installEventFilter(this);
    connect(save, &QPushButton::clicked, this, [this] { Keep(); });
    bottom->addWidget(save);
  }
  bottom->addWidget(close);
  auto* column = new QVBoxLayout(this);
  column->addWidget(table_);
  column->addLayout(bottom);
  for (QWidget* widget : {static_cast<QWidget*>(table_), static_cast<QWidget*>(close)})
    widget->installEventFilter(this);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  connect(table_->horizontalHeader(), &QHeaderView::sectionResized, this, [this] { FitRows(); });
  zoom::Watch(this, [this] { Fit(); });
  Fit();
  table_->setFocus();
}

void DetailWindow::Fill(const std::vector<BoxDetail>& rows) {
  table_->setColumnCount(kColumns);
  table_->setRowCount(static_cast<int>(rows.size()));
  table_->setHorizontalHeaderLabels(
      {QStringLiteral("Concepto"), QStringLiteral("Importe"), QStringLiteral("De dónde sale")});
  const auto alignment = [](int column) { return Qt::AlignTop | (column == kFigure ? Qt::AlignRight : Qt::AlignLeft); };
  for (int column = 0; column < kColumns; ++column) {
    table_->horizontalHeaderItem(column)->setTextAlignment(alignment(column));
  }
  QFont bold;
  bold.setBold(true);
  for (int row = 0; row < table_->rowCount(); ++row) {
    const BoxDetail& detail = rows[static_cast<std::size_t>(row)];
    const std::string* texts[kColumns] = {&detail.label, &detail.figure, &detail.source};
    for (int column = 0; column < kColumns; ++column) {
      auto* item = new QTableWidgetItem(ToQt(*texts[column]));
      item->setTextAlignment(alignment(column));
      if (row == table_->rowCount() - 1) {
        item->setFont(bold);
        item->setBackground(ColourOf(Role::kHeading));
      }
      table_->setItem(row, column, item);
    }
  }
}

void DetailWindow::Copy() const {
  const QItemSelectionModel& selection = *table_->selectionModel();
  QStringList lines;
  for (int row = 0; row < table_->rowCount(); ++row) {
    if (selection.hasSelection() && !selection.isRowSelected(row)) continue;
    QStringList texts;
    for (int column = 0; column < kColumns; ++column) texts << table_->item(row, column)->text();
    lines << texts.join(QLatin1Char('\t'));
  }
  QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

void DetailWindow::Keep() {
  const QString said = keep_(*this);
  if (said.isEmpty()) return;
  hint_->setText(hint_->fontMetrics().elidedText(said, Qt::ElideMiddle, hint_->width()));
  hint_->setToolTip(said);
}

void DetailWindow::Fit() {
  layout()->activate();  // after a change of the text's size
  const QSize most = RoomFor(*this).size() * 9 / 10;
  const QMargins margins = layout()->contentsMargins();
  const int around = margins.left() + margins.right() + 2 * table_->frameWidth();
  const int bar = table_->verticalScrollBar()->sizeHint().width();
  QHeaderView& columns = *table_->horizontalHeader();
  columns.setStretchLastSection(false);
  columns.setMinimumSectionSize(0);

  // Each as wide as its longest line; what is too long is wrapped, the source first.
  table_->setWordWrap(false);
  table_->resizeColumnsToContents();
  table_->setWordWrap(true);
  const int room = std::min(most.width(), TextWidth(fontMetrics(), kCharactersAcross)) - around - bar;
  table_->setColumnWidth(kLabel, std::min(table_->columnWidth(kLabel), room * 2 / 5));
  const int left = room - table_->columnWidth(kLabel) - table_->columnWidth(kFigure);
  table_->setColumnWidth(kSource, std::min(table_->columnWidth(kSource), left));
  FitRows();

  const int below = sizeHint().height() - table_->sizeHint().height();
  const int height =
      below + columns.sizeHint().height() + table_->verticalHeader()->length() + 2 * table_->frameWidth();
  const bool scrolls = height > most.height();
  const int width = around + columns.length() + (scrolls ? bar : 0);
  columns.setStretchLastSection(true);
  resize(width, std::min(height, most.height()));
  if (isVisible()) KeepOnScreen(*this);  // grown with the text, it may reach over the edge
}

// The view's own way makes them as high as the headings of rows would be.
void DetailWindow::FitRows() {
  const QAbstractItemView& view = *table_;
  for (int row = 0; row < table_->rowCount(); ++row) table_->setRowHeight(row, view.sizeHintForRow(row));
}

bool DetailWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto& pressed = *static_cast<QKeyEvent*>(event);
    if (HandleZoomKey(pressed)) return true;
    if (pressed.matches(QKeySequence::Copy)) {
      Copy();
      return true;
    }
    if (keep_ && IsKeepKey(pressed)) {
      Keep();
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace zendara

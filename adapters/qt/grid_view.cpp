#include "adapters/qt/grid_view.hpp"

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>
#include <algorithm>

#include "adapters/qt/input_events.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/names.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kMostRowsShown = 14;
// Height of a line of the font that design widths are meant for.
constexpr double kDesignFontHeight = 13;

class Cells : public QAbstractTableModel {
 public:
  Cells(Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {}

  int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : rows_; }
  int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : columns_; }

  QVariant data(const QModelIndex& index, int role) const override {
    const int row = index.row();
    const int column = index.column();
    if (row >= grid_.Rows() || column >= grid_.Columns()) return {};
    const bool fixed = row < grid_.FixedRows() || column < grid_.FixedColumns();
    switch (role) {
      case Qt::DisplayRole:
        return ToQt(grid_.Cell(row, column));
      case Qt::AccessibleTextRole: {
        const QString text = ToQt(grid_.Cell(row, column));
        if (fixed) return text;
        return NameOf(grid_) + QStringLiteral(", ") + NameOfCell(grid_, row, column) + QStringLiteral(": ") +
               (text.isEmpty() ? QStringLiteral("vacío") : text);
      }
      case Qt::BackgroundRole:
        return fixed ? QVariant(ColourOf(Role::kHeading)) : QVariant();
      case Qt::TextAlignmentRole: {
        const Alignment side = grid_.ColumnAt(column).alignment;
        const auto horizontal = side == Alignment::kRight    ? Qt::AlignRight
                                : side == Alignment::kCenter ? Qt::AlignHCenter
                                                             : Qt::AlignLeft;
        return QVariant::fromValue(Qt::Alignment(horizontal | Qt::AlignVCenter));
      }
      default:
        return {};
    }
  }

  Qt::ItemFlags flags(const QModelIndex& index) const override {
    const bool fixed = index.row() < grid_.FixedRows() || index.column() < grid_.FixedColumns();
    return fixed ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  }

  // True if the grid has another shape than before.
  bool Renew() {
    if (rows_ == grid_.Rows() && columns_ == grid_.Columns()) {
      if (rows_ > 0 && columns_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
      return false;
    }
    beginResetModel();
    rows_ = grid_.Rows();
    columns_ = grid_.Columns();
    endResetModel();
    return true;
  }

 private:
  Grid& grid_;
  int rows_ = 0;
  int columns_ = 0;
};

// The current cell stands out while the grid has the keyboard, or while a box is about it.
class CellPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem cell = option;
    const auto* table = static_cast<const QTableView*>(option.widget);
    const bool marked = table->property(kMarked).toBool() && index == table->currentIndex();
    const bool active = option.state.testFlag(QStyle::State_HasFocus);
    cell.state &= ~(QStyle::State_HasFocus | QStyle::State_Selected);
    if (active) painter->fillRect(cell.rect, ColourOf(Role::kActive));
    QStyledItemDelegate::paint(painter, cell, index);
    if (!active && !marked) return;
    const int width = RingWidth(cell.fontMetrics);
    painter->setPen(
        QPen(ColourOf(marked ? Role::kWarning : Role::kAccent), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter->drawRect(QRectF(cell.rect).adjusted(width / 2.0, width / 2.0, -width / 2.0, -width / 2.0));
  }
};

class GridView : public ControlView {
 public:
  GridView(FormWindow& window, Grid& grid, QWidget& parent)
      : ControlView(window, grid, new QTableView(&parent)),
        grid_(grid),
        table_(static_cast<QTableView*>(widget_)),
        cells_(new Cells(grid, table_)) {
    table_->setModel(cells_);
    table_->setItemDelegate(new CellPainter(table_));
    table_->horizontalHeader()->hide();
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setMinimumSectionSize(0);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionMode(QAbstractItemView::NoSelection);
    table_->setTabKeyNavigation(false);
    table_->setWordWrap(false);
    table_->setTextElideMode(Qt::ElideRight);
    table_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    table_->viewport()->setFocusPolicy(Qt::NoFocus);
    Watch(table_->viewport());
  }

  void Sync() override {
    ControlView::Sync();
    if (cells_->Renew()) {
      Rescale();
    } else {
      SetWidths();
    }
    const QModelIndex current = cells_->index(grid_.Row(), grid_.Col());
    if (table_->currentIndex() != current) {
      table_->setCurrentIndex(current);
      table_->scrollTo(current);
    }
  }

  void Rescale() override {
    const QFontMetrics metrics(TextFont());
    const int height = metrics.height() + metrics.height() / 3;
    table_->verticalHeader()->setMinimumSectionSize(height);
    table_->verticalHeader()->setDefaultSectionSize(height);
    const int rows = std::min(grid_.Rows(), kMostRowsShown);
    table_->setFixedHeight(rows * height + 2 * table_->frameWidth());
    SetWidths();
  }

  bool Handle(QObject* watched, QEvent* event) override {
    if (watched == table_->viewport()) {
      const bool press = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
      if (press) PressMouse(*static_cast<QMouseEvent*>(event));
      if (event->type() == QEvent::Wheel && grid_.Rows() > kMostRowsShown) {
        QCoreApplication::sendEvent(table_->verticalScrollBar(), event);
        return true;
      }
      return press || event->type() == QEvent::MouseButtonRelease || ControlView::Handle(watched, event);
    }
    return ControlView::Handle(watched, event);
  }

  void ClickOn(int row, int column) override {
    ClickWidget(*table_->viewport(), table_->visualRect(cells_->index(row, column)).center());
  }

 private:
  void PressMouse(const QMouseEvent& event) {
    const QModelIndex cell = table_->indexAt(event.position().toPoint());
    const bool fixed = !cell.isValid() || cell.row() < grid_.FixedRows() || cell.column() < grid_.FixedColumns();
    window_.Pass([&] {
      if (fixed) {
        window_.Shown().Click(grid_);
      } else {
        window_.Shown().PointTo(grid_, cell.row(), cell.column());
      }
    });
  }

  // As designed, but no text is cut off.
  int WidthOf(int column, double scale, const QFontMetrics& metrics) const {
    const int designed = static_cast<int>(grid_.ColumnAt(column).width * scale / kTwipsPerPixel);
    if (designed <= 0) return 0;
    int width = designed;
    for (int row = 0; row < grid_.Rows(); ++row) {
      const std::string& text = grid_.Cell(row, column);
      if (!text.empty()) width = std::max(width, metrics.horizontalAdvance(ToQt(text)) + metrics.height() * 2 / 3);
    }
    return width;
  }

  void SetWidths() {
    const QFontMetrics metrics(TextFont());
    const double scale = metrics.height() / kDesignFontHeight;
    int all = 2 * table_->frameWidth();
    for (int column = 0; column < grid_.Columns(); ++column) {
      const int width = WidthOf(column, scale, metrics);
      table_->setColumnHidden(column, width <= 0);
      if (width <= 0) continue;
      if (table_->columnWidth(column) != width) table_->setColumnWidth(column, width);
      all += width;
    }
    if (grid_.Rows() > kMostRowsShown) all += table_->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    if (table_->width() != all) table_->setFixedWidth(all);
  }

  Grid& grid_;
  QTableView* table_;
  Cells* cells_;
};

}  // namespace

std::unique_ptr<ControlView> MakeGridView(FormWindow& window, Grid& grid, QWidget& parent) {
  return std::make_unique<GridView>(window, grid, parent);
}

}  // namespace zendara

#include "adapters/qt/row_picker_view.hpp"

#include <QCoreApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTreeWidget>
#include <algorithm>

#include "adapters/qt/input_events.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

constexpr int kTwipsPerPixel = 15;
// Height of a line of the font that design widths are meant for.
constexpr double kDesignFontHeight = 13;
constexpr int kFewestRows = 4;

class RowPickerView : public ControlView {
 public:
  RowPickerView(FormWindow& window, RowPicker& picker, QWidget& parent)
      : ControlView(window, picker, new QTreeWidget(&parent)),
        picker_(picker),
        list_(static_cast<QTreeWidget*>(widget_)) {
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->setTextElideMode(Qt::ElideRight);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->header()->setSectionsMovable(false);
    list_->header()->setStretchLastSection(false);
    list_->viewport()->setFocusPolicy(Qt::NoFocus);
    list_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    Watch(list_->viewport());
  }

  void Sync() override {
    ControlView::Sync();
    const auto text = [&](int row, int column) {
      return row < picker_.Rows() ? ToQt(picker_.Cell(row, column)) : QString();
    };
    list_->setColumnCount(picker_.Columns());
    const int rows = std::max(picker_.Rows() - 1, 0);
    while (list_->topLevelItemCount() > rows) delete list_->topLevelItem(rows);
    while (list_->topLevelItemCount() < rows) list_->addTopLevelItem(new QTreeWidgetItem);
    for (int column = 0; column < picker_.Columns(); ++column) {
      list_->headerItem()->setText(column, text(0, column));
      for (int row = 0; row < rows; ++row) {
        QTreeWidgetItem& item = *list_->topLevelItem(row);
        const bool marked = picker_.Marked() == row + 1;
        const QString shown = text(row + 1, column);
        QFont font = list_->font();
        font.setBold(marked && column == 0);
        item.setFont(column, font);
        item.setBackground(column, marked ? QBrush(ColourOf(Role::kHeading)) : QBrush());
        item.setText(column, column > 0 ? shown : (marked ? QStringLiteral("▸ ") : QStringLiteral("   ")) + shown);
        item.setToolTip(column, shown);
      }
    }
    const QFontMetrics metrics(TextFont());
    for (int row = 0; row < rows; ++row) list_->topLevelItem(row)->setSizeHint(0, {0, RowHeight(metrics)});
    QTreeWidgetItem* current = list_->topLevelItem(picker_.Row() - 1);
    list_->setCurrentItem(current);
    if (current) current->setSelected(picker_.HasFocus());
    SetWidths();
  }

  void Rescale() override {
    Sync();
    const QFontMetrics metrics(TextFont());
    list_->setMinimumHeight((kFewestRows + 1) * metrics.height() * 3 / 2);
  }

  bool Handle(QObject* watched, QEvent* event) override {
    if (watched != list_->viewport()) return ControlView::Handle(watched, event);
    const bool twice = event->type() == QEvent::MouseButtonDblClick;
    if (twice || event->type() == QEvent::MouseButtonPress) {
      const auto& mouse = *static_cast<QMouseEvent*>(event);
      const int row = list_->indexOfTopLevelItem(list_->itemAt(mouse.position().toPoint()));
      if (row >= 0 && mouse.button() == Qt::LeftButton) {
        window_.Pass([&] {
          window_.Shown().PointTo(picker_, row + 1, 0);
          if (twice) window_.Shown().Click(picker_);
        });
      }
      return true;
    }
    if (event->type() == QEvent::Wheel && list_->verticalScrollBar()->maximum() > 0) {
      QCoreApplication::sendEvent(list_->verticalScrollBar(), event);
      return true;
    }
    return event->type() == QEvent::MouseButtonRelease || ControlView::Handle(watched, event);
  }

  void ClickOn(int row, int /*column*/) override {
    if (const QTreeWidgetItem* item = list_->topLevelItem(row - 1)) {
      ClickWidget(*list_->viewport(), list_->visualItemRect(item).center());
    }
  }

 private:
  // As designed; the widest column takes the rest.
  void SetWidths() {
    const double scale = QFontMetrics(TextFont()).height() / kDesignFontHeight;
    int all = 2 * list_->frameWidth() + list_->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    int widest = 0;
    for (int column = 0; column < picker_.Columns(); ++column) {
      const int width = static_cast<int>(picker_.ColumnAt(column).width * scale / kTwipsPerPixel);
      list_->header()->setSectionResizeMode(column, QHeaderView::Fixed);
      if (list_->columnWidth(column) != width) list_->setColumnWidth(column, width);
      if (picker_.ColumnAt(column).width > picker_.ColumnAt(widest).width) widest = column;
      all += width;
    }
    list_->header()->setSectionResizeMode(widest, QHeaderView::Stretch);
    list_->setMinimumWidth(all);
  }

  RowPicker& picker_;
  QTreeWidget* list_;
};

}  // namespace

std::unique_ptr<ControlView> MakeRowPickerView(FormWindow& window, RowPicker& picker, QWidget& parent) {
  return std::make_unique<RowPickerView>(window, picker, parent);
}

}  // namespace zendara

#include "adapters/qt/form_layout.hpp"

#include <QApplication>
#include <QBoxLayout>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QTabWidget>
#include <algorithm>

#include "adapters/qt/look.hpp"
#include "adapters/qt/names.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

// Property of a strip: its height in twips.
constexpr char kStripHeight[] = "strip";
constexpr int kTwipsPerPixel = 15;

// A field with words before it.
bool HasLabel(const Layout& layout) {
  return layout.kind == LayoutKind::kControl && layout.control->HasCaptionBefore() &&
         !layout.control->Caption().empty();
}

bool BeginsWithLabel(const Layout& layout) {
  return layout.kind == LayoutKind::kRow && !layout.children.empty() && HasLabel(layout.children.front());
}

// Takes the place that is left over.
bool Fills(const Layout& layout) {
  switch (layout.kind) {
    case LayoutKind::kSpace:
    case LayoutKind::kStrip:
    case LayoutKind::kTabs:
    case LayoutKind::kFrame:
      return true;
    case LayoutKind::kControl:
      return false;
    default:
      return std::ranges::any_of(layout.children, Fills);
  }
}

class Builder {
 public:
  Builder(FormWindow& window, const Keep& keep) : window_(window), keep_(keep) {}

  // Lays the children out in the widget.
  void Fill(QWidget& parent, LayoutKind kind, const std::vector<Layout>& children) {
    const bool inner_row =
        children.size() == 1 && children.front().kind == LayoutKind::kRow && !BeginsWithLabel(children.front());
    if (inner_row) return Fill(parent, LayoutKind::kRow, children.front().children);
    const Layout inside{kind == LayoutKind::kRow ? kind : LayoutKind::kColumn, nullptr, children, {}};
    if (inside.kind == LayoutKind::kRow) {
      auto* row = new QHBoxLayout(&parent);
      AddToRow(*row, parent, inside);
    } else {
      auto* grid = new QGridLayout(&parent);
      AddToColumn(*grid, parent, inside);
      Close(*grid);
    }
  }

  // A form or a page.
  void Fill(QWidget& parent, const Layout& layout) {
    const bool lines = layout.kind == LayoutKind::kColumn || layout.kind == LayoutKind::kRow;
    Fill(parent, layout.kind, lines ? layout.children : std::vector<Layout>{layout});
  }

 private:
  ControlView& View(QWidget& parent, Control& control) {
    auto view = MakeView(window_, control, parent);
    ControlView& made = *view;
    keep_(std::move(view), control);
    return made;
  }

  QLabel* Label(QWidget& parent, const Control& control, ControlView& view) {
    auto* label = new QLabel(ToQt(control.Caption()).remove(QLatin1Char('&')), &parent);
    label->setTextFormat(Qt::PlainText);
    QSizePolicy policy = label->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    label->setSizePolicy(policy);
    view.SetLabel(label);
    return label;
  }

  struct Line {
    QLabel* label = nullptr;
    QHBoxLayout* body = nullptr;
  };

  Line Place(QWidget& parent, const Layout& layout) {
    Line line;
    ControlView& view = View(parent, *layout.control);
    if (HasLabel(layout)) line.label = Label(parent, *layout.control, view);
    line.body = new QHBoxLayout;
    line.body->addWidget(view.Widget());
    const QString name = NameOf(*layout.control);
    for (Control* control : layout.attached) {
      const ControlView& behind = View(parent, *control);
      line.body->addWidget(behind.Widget());
      if (!control->Caption().empty() || name.isEmpty()) continue;
      behind.Widget()->setAccessibleName(behind.NameBehind(name));
    }
    return line;
  }

  QWidget* Container(QWidget& parent, const Layout& layout) {
    QWidget* widget = View(parent, *layout.control).Widget();
    if (layout.kind == LayoutKind::kTabs) {
      auto* tabs = static_cast<QTabWidget*>(widget);
      for (const Layout& child : layout.children) {
        auto* page = new QWidget;
        Fill(*page, child);
        tabs->addTab(page, {});  // the view gives the titles
      }
    } else {
      Fill(*widget, LayoutKind::kColumn, layout.children);
    }
    return widget;
  }

  QWidget* EmptyStrip(QWidget& parent, const Layout& layout) {
    QWidget* widget = View(parent, *layout.control).Widget();
    widget->setProperty(kStripHeight, layout.height);
    widget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return widget;
  }

  // A row of the grid for each line: labels in its first column, fields in the second.
  void AddToColumn(QGridLayout& grid, QWidget& parent, const Layout& layout) {
    for (const Layout& child : layout.children) AddLine(grid, parent, child);
  }

  void AddLine(QGridLayout& grid, QWidget& parent, const Layout& child) {
    const int row = grid.rowCount();
    switch (child.kind) {
      case LayoutKind::kColumn:
        AddToColumn(grid, parent, child);
        break;
      case LayoutKind::kSpace:
        grid.setRowStretch(row, 1);
        grid.addItem(new QSpacerItem(0, 0), row, 0);
        break;
      case LayoutKind::kStrip:
        grid.addWidget(EmptyStrip(parent, child), row, 0, 1, 2);
        break;
      case LayoutKind::kFrame:
      case LayoutKind::kTabs:
        grid.addWidget(Container(parent, child), row, 0, 1, 2);
        break;
      case LayoutKind::kControl: {
        const Line line = Place(parent, child);
        AddLabel(grid, row, line.label);
        line.body->addStretch();
        grid.addLayout(line.body, row, line.label ? 1 : 0, 1, line.label ? 1 : 2);
        break;
      }
      case LayoutKind::kRow: {
        auto* body = new QHBoxLayout;
        if (!BeginsWithLabel(child)) {
          grid.addLayout(body, row, 0, 1, 2);
          AddToRow(*body, parent, child);
          break;
        }
        // Its first label stands under those of the lines above.
        Layout rest = child;
        rest.children.erase(rest.children.begin());
        const Line line = Place(parent, child.children.front());
        AddLabel(grid, row, line.label);
        grid.addLayout(body, row, 1);
        body->addLayout(line.body);
        AddToRow(*body, parent, rest);
        break;
      }
    }
  }

  static void AddLabel(QGridLayout& grid, int row, QLabel* label) {
    if (label) grid.addWidget(label, row, 0, Qt::AlignRight | Qt::AlignVCenter);
  }

  static void Close(QGridLayout& grid) {
    grid.setColumnStretch(1, 1);
    for (int row = 0; row < grid.rowCount(); ++row) {
      if (grid.rowStretch(row) > 0) return;
    }
    grid.setRowStretch(grid.rowCount(), 1);
  }

  void AddToRow(QHBoxLayout& body, QWidget& parent, const Layout& layout) {
    for (const Layout& child : layout.children) {
      switch (child.kind) {
        case LayoutKind::kSpace:
          body.addStretch(1);
          break;
        case LayoutKind::kStrip:
          body.addWidget(EmptyStrip(parent, child), 1);
          break;
        case LayoutKind::kFrame:
        case LayoutKind::kTabs:
          body.addWidget(Container(parent, child), 1);
          break;
        case LayoutKind::kControl: {
          const Line line = Place(parent, child);
          if (line.label) body.addWidget(line.label);
          body.addLayout(line.body);
          break;
        }
        case LayoutKind::kRow: {
          auto* inner = new QHBoxLayout;
          body.addLayout(inner, Fills(child) ? 1 : 0);
          AddToRow(*inner, parent, child);
          break;
        }
        case LayoutKind::kColumn: {
          auto* grid = new QGridLayout;
          body.addLayout(grid, Fills(child) ? 1 : 0);
          AddToColumn(*grid, parent, child);
          Close(*grid);
          break;
        }
      }
    }
    if (!Fills(layout)) body.addStretch(1);
  }

  FormWindow& window_;
  const Keep& keep_;
};

void Rescale(QLayout& layout, int em) {
  QWidget* parent = layout.parentWidget();
  if (parent && parent->layout() == &layout) {
    const int margin = parent->property(kBare).toBool() ? 0 : em / 2;
    layout.setContentsMargins(margin, margin, margin, margin);
  }
  if (auto* grid = qobject_cast<QGridLayout*>(&layout)) {
    grid->setVerticalSpacing(em * 2 / 5);
    grid->setHorizontalSpacing(em / 2);
  } else {
    layout.setSpacing(em / 2);
  }
  for (int i = 0; i < layout.count(); ++i) {
    QLayoutItem* item = layout.itemAt(i);
    if (QLayout* inner = item->layout()) Rescale(*inner, em);
  }
}

}  // namespace

void BuildLayout(FormWindow& window, const Layout& layout, QWidget& content, const Keep& keep) {
  Builder(window, keep).Fill(content, layout);
}

void RenewSizes(QWidget& content) {
  const QList<QWidget*> widgets = content.findChildren<QWidget*>();
  // From the innermost out.
  std::for_each(widgets.crbegin(), widgets.crend(), [](QWidget* widget) {
    if (widget->layout()) widget->layout()->invalidate();
    widget->updateGeometry();
  });
  content.layout()->invalidate();
  content.layout()->activate();  // the layouts in it too
}

void RescaleSpacing(QWidget& content) {
  const int em = QFontMetrics(QApplication::font()).height();
  if (content.layout()) Rescale(*content.layout(), em);
  for (QWidget* widget : content.findChildren<QWidget*>()) {
    if (const QVariant height = widget->property(kStripHeight); height.isValid()) {
      widget->setFixedHeight(height.toInt() * zoom::Percent() / (100 * kTwipsPerPixel));
    }
    // Only where a form's own structure stands; other widgets have layouts of their own.
    const bool page = widget->parentWidget() && widget->parentWidget()->inherits("QStackedWidget");
    const bool frame = qobject_cast<QGroupBox*>(widget) || widget->property(kBare).isValid();
    if (widget->layout() && (page || frame)) Rescale(*widget->layout(), em);
  }
}

}  // namespace zendara

#include "adapters/qt/form_layout.hpp"

#include <QBoxLayout>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <algorithm>
#include <map>

#include "adapters/qt/beside_layout.hpp"
#include "adapters/qt/flow_layout.hpp"
#include "adapters/qt/heading.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/names.hpp"
#include "adapters/qt/picture_view.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

constexpr int kTwipsPerPixel = 15;

// Properties of widgets that follow the font.
constexpr char kOwnLayout[] = "own_layout";  // what stands in it is the form's structure
constexpr char kStripHeight[] = "strip";     // in twips
constexpr char kLines[] = "lines";           // of wrapped words
constexpr char kBehind[] = "behind";         // words behind a field
constexpr char kTight[] = "tight";           // a button as narrow as its words
// Of layouts.
constexpr char kLabelColumn[] = "labels";  // grids of one number have labels of one width
constexpr char kTouching[] = "touching";   // without spaces

// Words that are wrapped ask for the same room whatever they say, so that nothing moves.
constexpr int kCharactersOfWords = 42;  // at least, in a line
constexpr int kLinesBehind = 2;         // of those behind a field
constexpr int kCharactersBehind = 18;

// A field with words before it.
bool HasLabel(const Layout& layout) {
  return layout.kind == LayoutKind::kControl && layout.labelled && layout.control->HasCaptionBefore() &&
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
    case LayoutKind::kTable:
    case LayoutKind::kScrolled:
    case LayoutKind::kFlow:
    case LayoutKind::kBeside:
      return true;
    case LayoutKind::kControl:
    case LayoutKind::kJoined:
    case LayoutKind::kHeading:
      return false;
    default:
      return std::ranges::any_of(layout.children, Fills);
  }
}

// Asks for all the room of what it scrolls, and needs little.
class ScrolledPart : public QScrollArea {
 public:
  explicit ScrolledPart(QWidget* parent) : QScrollArea(parent) {
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
  }

  QSize sizeHint() const override { return widget()->sizeHint(); }
  QSize minimumSizeHint() const override {
    const int line = fontMetrics().height();
    return QSize(20 * line, 6 * line).boundedTo(sizeHint());
  }
};

class Builder {
 public:
  Builder(FormWindow& window, const Keep& keep) : window_(window), keep_(keep) {}

  // A form or a page.
  void Fill(QWidget& parent, const Layout& layout) {
    const bool lines = layout.kind == LayoutKind::kColumn || layout.kind == LayoutKind::kRow;
    Fill(parent, layout.kind, lines ? layout.children : std::vector<Layout>{layout}, NewColumn());
  }

 private:
  // Number of a column of labels, for all grids in which they have one width.
  int NewColumn() { return ++columns_; }

  // Lays the children out in the widget.
  void Fill(QWidget& parent, LayoutKind kind, const std::vector<Layout>& children, int column) {
    parent.setProperty(kOwnLayout, true);
    const bool inner_row =
        children.size() == 1 && children.front().kind == LayoutKind::kRow && !BeginsWithLabel(children.front());
    if (inner_row || kind == LayoutKind::kRow) {
      auto* row = new QHBoxLayout(&parent);
      AddToRow(*row, parent, inner_row ? children.front().children : children);
    } else {
      auto* grid = new QGridLayout(&parent);
      AddToColumn(*grid, parent, children, column);
      Close(*grid);
    }
  }

  ControlView& Kept(std::unique_ptr<ControlView> view, Control& control) {
    ControlView& made = *view;
    keep_(std::move(view), control);
    return made;
  }

  ControlView& View(QWidget& parent, Control& control) { return Kept(MakeView(window_, control, parent), control); }

  QLabel* Label(QWidget& parent, const Control& control, ControlView& view) {
    auto* label = new QLabel(&parent);
    SetLabelText(*label, ToQt(control.Caption()).remove(QLatin1Char('&')), control.Required());
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
    if (layout.main) view.Widget()->setProperty(kMain, true);
    if (layout.lines > 0) Wrap(static_cast<QLabel&>(*view.Widget()), layout.lines);
    line.body = new QHBoxLayout;
    line.body->addWidget(view.Widget());
    const QString name = NameOf(*layout.control);
    for (Control* control : layout.attached) {
      const ControlView& behind = View(parent, *control);
      line.body->addWidget(behind.Widget());
      if (control->Kind() == ControlKind::kLabel) {
        auto& words = static_cast<QLabel&>(*behind.Widget());
        Wrap(words, kLinesBehind);
        words.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        words.setProperty(kBehind, true);
      }
      if (!control->Caption().empty() || name.isEmpty()) continue;
      behind.Widget()->setAccessibleName(behind.NameBehind(name));
    }
    return line;
  }

  static void Quieten(QWidget& words) { words.setForegroundRole(QPalette::PlaceholderText); }

  static void Wrap(QLabel& words, int lines) {
    words.setWordWrap(true);
    words.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    words.setProperty(kLines, lines);
    Quieten(words);
  }

  QWidget* ScrolledIn(QWidget* parent, const Layout& layout) {
    auto* area = new ScrolledPart(parent);
    auto* inside = new QWidget;
    Fill(*inside, layout.children.front());
    area->setWidget(inside);
    inside->setAutoFillBackground(false);
    return area;
  }

  // Frames, tabs and scrolled parts.
  QWidget* Container(QWidget& parent, const Layout& layout, int column) {
    if (layout.kind == LayoutKind::kScrolled) return ScrolledIn(&parent, layout);
    QWidget* widget = View(parent, *layout.control).Widget();
    if (layout.kind == LayoutKind::kTabs) {
      auto* tabs = static_cast<QTabWidget*>(widget);
      for (const Layout& child : layout.children) {
        QWidget* page = child.kind == LayoutKind::kScrolled ? ScrolledIn(nullptr, child) : new QWidget;
        if (child.kind != LayoutKind::kScrolled) Fill(*page, child);
        tabs->addTab(page, {});  // the view gives the titles
      }
    } else {
      Fill(*widget, LayoutKind::kColumn, layout.children, column);
    }
    return widget;
  }

  QWidget* EmptyStrip(QWidget& parent, const Layout& layout) {
    QWidget* widget = View(parent, *layout.control).Widget();
    widget->setProperty(kStripHeight, layout.height);
    widget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return widget;
  }

  static QWidget* HeadingOf(QWidget& parent) {
    auto* heading = new FormHeading(&parent);
    heading->setObjectName(QLatin1String(kHeadingName));
    return heading;
  }

  QLayout* JoinedButtons(QWidget& parent, const Layout& layout) {
    auto* row = new QHBoxLayout;
    row->setProperty(kTouching, true);
    for (const Layout& child : layout.children) {
      QWidget* button = View(parent, *child.control).Widget();
      button->setProperty(kTight, true);
      row->addWidget(button);
    }
    return row;
  }

  QLayout* Flowing(QWidget& parent, const Layout& layout) {
    auto* flow = new FlowLayout;
    for (const Layout& child : layout.children) {
      if (child.kind == LayoutKind::kSpace) {
        flow->AddSpace();
      } else if (child.kind == LayoutKind::kHeading) {
        flow->addWidget(HeadingOf(parent));
      } else {
        auto* unit = new QHBoxLayout;
        AddToRow(*unit, parent, {child}, false);
        flow->AddLayout(unit);
      }
    }
    return flow;
  }

  QLayout* WithPicture(QWidget& parent, const Layout& layout) {
    auto* part = new QGridLayout;
    AddToColumn(*part, parent, {layout.children.front()}, NewColumn());
    Close(*part);
    QWidget& picture = *View(parent, *layout.children.back().control).Widget();
    picture.setProperty(kBeside, true);
    QSizePolicy policy = picture.sizePolicy();
    policy.setRetainSizeWhenHidden(false);
    picture.setSizePolicy(policy);
    return new BesideLayout(part, picture, {layout.width, layout.height});
  }

  // Headings of columns, and a row of fields for each frame.
  QLayout* Rows(QWidget& parent, const Layout& layout, int label_column) {
    auto* grid = new QGridLayout;
    grid->setProperty(kLabelColumn, label_column);
    int column = 1;
    for (const std::string& heading : layout.headings) {
      auto* words = new QLabel(ToQt(heading), &parent);
      Quieten(*words);
      grid->addWidget(words, 0, column++);
    }
    int row = 1;
    for (const Layout& child : layout.children) {
      const bool required =
          std::ranges::any_of(child.children, [](const Layout& cell) { return cell.control->Required(); });
      const ControlView& title = Kept(MakeRowHeadingView(window_, *child.control, required, parent), *child.control);
      grid->addWidget(title.Widget(), row, 0, Qt::AlignRight | Qt::AlignVCenter);
      column = 1;
      for (Layout cell : child.children) {
        cell.labelled = false;
        QHBoxLayout* body = Place(parent, cell).body;
        body->addStretch();
        grid->addLayout(body, row, column++);
      }
      ++row;
    }
    grid->setColumnStretch(column, 1);
    return grid;
  }

  // A row of the grid for each line: labels in its first column, fields in the second.
  void AddToColumn(QGridLayout& grid, QWidget& parent, const std::vector<Layout>& lines, int column) {
    grid.setProperty(kLabelColumn, column);
    const bool labels = std::ranges::any_of(lines, [](const Layout& l) { return HasLabel(l) || BeginsWithLabel(l); });
    for (const Layout& line : lines) AddLine(grid, parent, line, column, labels);
  }

  void AddLine(QGridLayout& grid, QWidget& parent, const Layout& child, int column, bool labels) {
    const int row = grid.rowCount();
    const auto across = [&](QLayout* layout) { grid.addLayout(layout, row, 0, 1, 2); };
    switch (child.kind) {
      case LayoutKind::kColumn:
        AddToColumn(grid, parent, child.children, column);
        break;
      case LayoutKind::kSpace:
        grid.setRowStretch(row, 1);
        grid.addItem(new QSpacerItem(0, 0), row, 0);
        break;
      case LayoutKind::kStrip:
        grid.addWidget(EmptyStrip(parent, child), row, 0, 1, 2);
        break;
      case LayoutKind::kHeading:
        grid.addWidget(HeadingOf(parent), row, 0, 1, 2);
        break;
      case LayoutKind::kFrame:
      case LayoutKind::kTabs:
      case LayoutKind::kScrolled:
        grid.addWidget(Container(parent, child, column), row, 0, 1, 2);
        break;
      case LayoutKind::kTable:
        across(Rows(parent, child, column));
        break;
      case LayoutKind::kFlow:
        across(Flowing(parent, child));
        break;
      case LayoutKind::kBeside:
        across(WithPicture(parent, child));
        break;
      case LayoutKind::kJoined:
        across(JoinedButtons(parent, child));
        break;
      case LayoutKind::kControl: {
        const Line line = Place(parent, child);
        AddLabel(grid, row, line.label);
        if (child.control->Kind() == ControlKind::kRowPicker) {
          grid.setRowStretch(row, 1);  // as many rows as fit
        } else if (child.lines == 0) {
          line.body->addStretch();
        }
        // What has its own words, as a check box, stands under the fields.
        const bool under_fields = labels && child.lines == 0;
        grid.addLayout(line.body, row, under_fields ? 1 : 0, 1, under_fields ? 1 : 2);
        break;
      }
      case LayoutKind::kRow: {
        auto* body = new QHBoxLayout;
        if (!BeginsWithLabel(child)) {
          across(body);
          AddToRow(*body, parent, child.children);
          break;
        }
        // Its first label stands under those of the lines above.
        const Line line = Place(parent, child.children.front());
        AddLabel(grid, row, line.label);
        grid.addLayout(body, row, 1);
        body->addLayout(line.body);
        AddToRow(*body, parent, {child.children.begin() + 1, child.children.end()});
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

  void AddToRow(QHBoxLayout& body, QWidget& parent, const std::vector<Layout>& children, bool closed = true) {
    for (const Layout& child : children) {
      switch (child.kind) {
        case LayoutKind::kSpace:
          body.addStretch(1);
          break;
        case LayoutKind::kStrip:
          body.addWidget(EmptyStrip(parent, child), 1);
          break;
        case LayoutKind::kHeading:
          body.addWidget(HeadingOf(parent));
          break;
        case LayoutKind::kFrame:
        case LayoutKind::kTabs:
        case LayoutKind::kScrolled:
          body.addWidget(Container(parent, child, NewColumn()), 1);
          break;
        case LayoutKind::kTable:
          body.addLayout(Rows(parent, child, NewColumn()), 1);
          break;
        case LayoutKind::kFlow:
          body.addLayout(Flowing(parent, child), 1);
          break;
        case LayoutKind::kBeside:
          body.addLayout(WithPicture(parent, child), 1);
          break;
        case LayoutKind::kJoined:
          body.addLayout(JoinedButtons(parent, child));
          break;
        case LayoutKind::kControl: {
          const Line line = Place(parent, child);
          if (line.label) body.addWidget(line.label);
          body.addLayout(line.body);
          break;
        }
        case LayoutKind::kRow: {
          auto* inner = new QHBoxLayout;
          const bool fills = Fills(child);
          body.addLayout(inner, fills ? 1 : 0);
          AddToRow(*inner, parent, child.children, fills);
          break;
        }
        case LayoutKind::kColumn: {
          auto* grid = new QGridLayout;
          body.addLayout(grid, Fills(child) ? 1 : 0);
          AddToColumn(*grid, parent, child.children, NewColumn());
          Close(*grid);
          break;
        }
      }
    }
    if (closed && std::ranges::none_of(children, Fills)) body.addStretch(1);
  }

  FormWindow& window_;
  const Keep& keep_;
  int columns_ = 0;
};

void Rescale(QLayout& layout, int em) {
  QWidget* parent = layout.parentWidget();
  if (parent && parent->layout() == &layout) {
    const int margin = parent->property(kBare).toBool() ? 0 : em / 2;
    // A titled frame has room above by its title.
    const int above = qobject_cast<QGroupBox*>(parent) ? margin / 2 : margin;
    layout.setContentsMargins(margin, above, margin, above);
  }
  if (auto* grid = qobject_cast<QGridLayout*>(&layout)) {
    grid->setVerticalSpacing(em / 4);
    grid->setHorizontalSpacing(em / 2);
  } else {
    layout.setSpacing(layout.property(kTouching).toBool() ? 0 : em / 2);
  }
  for (int i = 0; i < layout.count(); ++i) {
    QLayoutItem* item = layout.itemAt(i);
    if (QLayout* inner = item->layout()) Rescale(*inner, em);
  }
}

// The labels of each column get the width of the widest.
void AlignLabels(QWidget& content) {
  std::map<int, std::vector<QGridLayout*>> columns;
  for (QGridLayout* grid : content.findChildren<QGridLayout*>()) {
    if (const QVariant column = grid->property(kLabelColumn); column.isValid()) columns[column.toInt()].push_back(grid);
  }
  for (const auto& [number, grids] : columns) {
    int width = 0;
    for (const QGridLayout* grid : grids) {
      for (int row = 0; row < grid->rowCount(); ++row) {
        const QLayoutItem* item = grid->itemAtPosition(row, 0);
        const bool across = item && item == grid->itemAtPosition(row, 1);
        if (item && !across) width = std::max(width, item->sizeHint().width());
      }
    }
    for (QGridLayout* grid : grids) grid->setColumnMinimumWidth(0, width);
  }
}

}  // namespace

void BuildLayout(FormWindow& window, const Layout& layout, QWidget& content, const Keep& keep) {
  Builder(window, keep).Fill(content, layout);
}

bool HasScrolledPart(const Layout& layout) {
  return layout.kind == LayoutKind::kScrolled || std::ranges::any_of(layout.children, HasScrolledPart);
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
  const QFontMetrics metrics(TextFont());
  const int em = metrics.height();
  for (QWidget* widget : content.findChildren<QWidget*>()) {
    if (const QVariant height = widget->property(kStripHeight); height.isValid()) {
      widget->setFixedHeight(static_cast<int>(height.toInt() * TextScale() / kTwipsPerPixel));
    }
    if (const QVariant lines = widget->property(kLines); lines.isValid()) {
      widget->setFixedHeight(lines.toInt() * metrics.lineSpacing());
      if (widget->property(kBehind).isValid()) {
        widget->setFixedWidth(TextWidth(metrics, kCharactersBehind));
      } else {
        widget->setMinimumWidth(TextWidth(metrics, kCharactersOfWords));
      }
    }
    if (widget->property(kTight).isValid()) {
      const QString words = static_cast<QPushButton*>(widget)->text().remove(QLatin1Char('&'));
      widget->setFixedWidth(metrics.horizontalAdvance(words) + em * 3 / 2);
    }
    if (auto* heading = dynamic_cast<FormHeading*>(widget)) heading->Rescale();
  }
  // Only where a form's own structure stands; other widgets have layouts of their own.
  if (content.layout()) Rescale(*content.layout(), em);
  for (QWidget* widget : content.findChildren<QWidget*>()) {
    if (widget->layout() && widget->property(kOwnLayout).toBool()) Rescale(*widget->layout(), em);
  }
  AlignLabels(content);
}

}  // namespace zendara

#include "adapters/qt/style.hpp"

#include <QComboBox>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>

#include "adapters/qt/look.hpp"

namespace zendara {
namespace {

constexpr double kCorner = 3;

bool Has(const QStyleOption& option, QStyle::StateFlag flag) { return option.state.testFlag(flag); }
bool IsMain(const QWidget* widget) { return widget && widget->property(kMain).toBool(); }
bool IsMarked(const QWidget* widget) { return widget && widget->property(kMarked).toBool(); }

void Ring(QPainter& painter, const QRect& rect, Role role, int width) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ColourOf(role), width));
  painter.setBrush(Qt::NoBrush);
  const double half = width / 2.0;
  painter.drawRoundedRect(QRectF(rect).adjusted(half, half, -half, -half), kCorner, kCorner);
  painter.restore();
}

void Ground(QPainter& painter, const QRect& rect, Role role) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ColourOf(role));
  painter.drawRoundedRect(rect, kCorner, kCorner);
  painter.restore();
}

// The ring of what has the focus, or of what a box is about. False if it is neither.
bool Mark(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
  const bool marked = IsMarked(widget);
  if (!marked && !Has(option, QStyle::State_HasFocus)) return false;
  Ring(painter, option.rect, marked ? Role::kWarning : Role::kAccent, RingWidth(option.fontMetrics));
  return true;
}

// What is entered: at rest, with the focus, or only shown.
void Field(QPainter& painter, const QStyleOption& option, const QWidget* widget, bool only_shown) {
  const bool active = Has(option, QStyle::State_HasFocus) && !only_shown;
  if (only_shown) {
    painter.fillRect(option.rect, ColourOf(Role::kShown));
  } else {
    Ground(painter, option.rect, active ? Role::kActive : Role::kInput);
  }
  if (!Mark(painter, option, widget) && !only_shown) Ring(painter, option.rect, Role::kBorder, kBorderWidth);
}

void Button(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
  if (!Has(option, QStyle::State_Enabled)) {
    Ring(painter, option.rect, Role::kLine, kBorderWidth);
    return;
  }
  const bool down = Has(option, QStyle::State_Sunken) || Has(option, QStyle::State_On);
  Ground(painter, option.rect,
         down                                   ? Role::kHeading
         : Has(option, QStyle::State_MouseOver) ? Role::kInput
                                                : Role::kButton);
  if (IsMain(widget)) {
    Ground(painter, option.rect, Role::kAccent);
    const int ring = RingWidth(option.fontMetrics);
    if (Has(option, QStyle::State_HasFocus)) {
      Ring(painter, option.rect.adjusted(ring, ring, -ring, -ring), Role::kOnAccent, ring);
    }
    return;
  }
  const auto* push = qstyleoption_cast<const QStyleOptionButton*>(&option);
  const bool by_enter = push && push->features.testFlag(QStyleOptionButton::DefaultButton);
  if (!Mark(painter, option, widget)) {
    Ring(painter, option.rect, by_enter ? Role::kAccent : Role::kBorder, kBorderWidth);
  }
}

// A triangle that points there, as wide as half a line.
void Arrow(QPainter& painter, const QRect& rect, Qt::ArrowType side, int line, bool enabled) {
  const double half = line / 4.0;
  QPolygonF triangle({{-half, -half / 2}, {half, -half / 2}, {0, half / 2}});
  const int turns = side == Qt::DownArrow ? 0 : side == Qt::LeftArrow ? 1 : side == Qt::UpArrow ? 2 : 3;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(QRectF(rect).center());
  painter.rotate(90 * turns);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ColourOf(enabled ? Role::kText : Role::kLine));
  painter.drawPolygon(triangle);
  painter.restore();
}

class Style : public QProxyStyle {
 public:
  Style() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    switch (element) {
      case PE_PanelLineEdit:
        // In a list that can be written in, the list draws it.
        if (widget && qobject_cast<QComboBox*>(widget->parentWidget())) return;
        return Field(*painter, *option, widget, Has(*option, State_ReadOnly) || !Has(*option, State_Enabled));
      case PE_FrameLineEdit:
        return;
      case PE_IndicatorCheckBox:
        return DrawCheck(*option, *painter);
      case PE_IndicatorRadioButton:
        return DrawOption(*option, *painter);
      case PE_PanelButtonCommand:
      case PE_PanelButtonTool:
        return Button(*painter, *option, widget);
      case PE_FrameFocusRect:
        Mark(*painter, *option, nullptr);
        return;
      case PE_IndicatorHeaderArrow: {
        const auto& header = *qstyleoption_cast<const QStyleOptionHeader*>(option);
        const bool up = header.sortIndicator == QStyleOptionHeader::SortUp;
        return Arrow(*painter, header.rect, up ? Qt::UpArrow : Qt::DownArrow, header.fontMetrics.height(), true);
      }
      case PE_Frame:
        if (Mark(*painter, *option, widget)) return;
        painter->setPen(QPen(ColourOf(Role::kBorder), kBorderWidth));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        return;
      case PE_FrameTabWidget:
        painter->setPen(ColourOf(Role::kLine));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        return;
      default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
  }

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    switch (element) {
      case CE_PushButton:  // the ring is the button's border
        drawControl(CE_PushButtonBevel, option, painter, widget);
        DrawWords(*qstyleoption_cast<const QStyleOptionButton*>(option), *painter, widget);
        return;
      case CE_CheckBox:
      case CE_RadioButton: {
        QStyleOptionButton button = *qstyleoption_cast<const QStyleOptionButton*>(option);
        button.state.setFlag(State_HasFocus, false);
        button.rect.adjust(RoomForRing(button.fontMetrics), 0, -RoomForRing(button.fontMetrics), 0);
        QProxyStyle::drawControl(element, &button, painter, widget);
        Mark(*painter, *option, widget);  // around mark and words
        return;
      }
      case CE_TabBarTabShape:
        return DrawTab(*qstyleoption_cast<const QStyleOptionTab*>(option), *painter);
      case CE_TabBarTabLabel: {  // the ring is around the tab
        QStyleOptionTab tab = *qstyleoption_cast<const QStyleOptionTab*>(option);
        tab.state.setFlag(State_HasFocus, false);
        return QProxyStyle::drawControl(element, &tab, painter, widget);
      }
      case CE_HeaderSection:
        painter->fillRect(option->rect, ColourOf(Role::kHeading));
        painter->setPen(ColourOf(Role::kLine));
        painter->drawLine(option->rect.bottomLeft(), option->rect.bottomRight());
        painter->drawLine(option->rect.topRight(), option->rect.bottomRight());
        return;
      default:
        QProxyStyle::drawControl(element, option, painter, widget);
    }
  }

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override {
    const bool enabled = Has(*option, State_Enabled);
    if (control == CC_ComboBox) {
      Field(*painter, *option, widget, !enabled);
      const QRect arrow = subControlRect(control, option, SC_ComboBoxArrow, widget);
      if (enabled) Arrow(*painter, arrow, Qt::DownArrow, option->fontMetrics.height(), true);
      return;
    }
    if (control == CC_GroupBox)
      return DrawGroup(*qstyleoption_cast<const QStyleOptionGroupBox*>(option), *painter, widget);
    if (control == CC_ScrollBar) return DrawScrollBar(*option, *painter, widget);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
  }

  // The title interrupts the line around the group.
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override {
    if (control != CC_GroupBox) return QProxyStyle::subControlRect(control, option, part, widget);
    const auto& group = *qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    const QFontMetrics metrics = TitleMetrics();
    switch (part) {
      case SC_GroupBoxLabel:
        return {metrics.height() / 2, 0, metrics.horizontalAdvance(group.text) + metrics.height() / 2,
                metrics.height()};
      case SC_GroupBoxContents:
        return group.rect.adjusted(kBorderWidth, metrics.height(), -kBorderWidth, -kBorderWidth);
      default:
        return group.rect.adjusted(0, metrics.height() / 2, 0, 0);
    }
  }

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override {
    const QSize plain = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (!option) return plain;
    const int line = option->fontMetrics.height();
    const int ring = RoomForRing(option->fontMetrics);
    switch (type) {
      case CT_PushButton:
        return plain + QSize(line / 2, line / 5);
      case CT_GroupBox: {
        const auto& group = *qstyleoption_cast<const QStyleOptionGroupBox*>(option);
        const QFontMetrics metrics = TitleMetrics();
        return {std::max(size.width() + 2 * kBorderWidth, metrics.horizontalAdvance(group.text) + 2 * metrics.height()),
                size.height() + metrics.height() + kBorderWidth};
      }
      case CT_CheckBox:
      case CT_RadioButton:
        return plain + QSize(2 * ring, 2);
      default:
        return plain;
    }
  }

  // Marks of check boxes and options grow with the text, and so does the room beside the headings of columns.
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
    const int plain = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
      case PM_IndicatorWidth:
      case PM_IndicatorHeight:
      case PM_ExclusiveIndicatorWidth:
      case PM_ExclusiveIndicatorHeight:
        return widget ? std::max(plain, widget->fontMetrics().height() * 4 / 5) : plain;
      case PM_HeaderMargin:
        return widget ? plain + widget->fontMetrics().height() / 3 : plain;
      default:
        return plain;
    }
  }

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override {
    switch (hint) {
      case SH_UnderlineShortcut:  // access keys are always to be seen
        return 1;
      case SH_DialogButtonLayout:  // buttons in the order in which they are given
      case SH_ComboBox_Popup:
        return 0;
      case SH_Table_GridLineColor:
        return static_cast<int>(ColourOf(Role::kLine).rgb());
      default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
  }

 private:
  void DrawWords(QStyleOptionButton button, QPainter& painter, const QWidget* widget) const {
    if (IsMain(widget) && Has(button, State_Enabled)) {
      button.palette.setColor(QPalette::ButtonText, ColourOf(Role::kOnAccent));
    }
    drawControl(CE_PushButtonLabel, &button, &painter, widget);
  }

  static int RoomForRing(const QFontMetrics& metrics) { return RingWidth(metrics) + 1; }

  static QFont TitleFont(QFont font) {
    font.setBold(true);
    return font;
  }
  static QFontMetrics TitleMetrics() { return QFontMetrics(TitleFont(TextFont())); }

  void DrawGroup(const QStyleOptionGroupBox& group, QPainter& painter, const QWidget* widget) const {
    const auto rect = [&](SubControl part) { return subControlRect(CC_GroupBox, &group, part, widget); };
    Ring(painter, rect(SC_GroupBoxFrame), Role::kLine, kBorderWidth);
    if (group.text.isEmpty()) return;
    painter.fillRect(rect(SC_GroupBoxLabel), ColourOf(Role::kWindow));
    painter.setFont(TitleFont(painter.font()));
    painter.setPen(ColourOf(Has(group, State_Enabled) ? Role::kText : Role::kQuiet));
    painter.drawText(rect(SC_GroupBoxLabel), Qt::AlignCenter, group.text);
  }

  static void DrawCheck(const QStyleOption& option, QPainter& painter) {
    const bool enabled = Has(option, State_Enabled);
    Ground(painter, option.rect, enabled ? Role::kInput : Role::kShown);
    if (enabled) Ring(painter, option.rect, Role::kBorder, kBorderWidth);
    const QRectF box = option.rect;
    const QPointF corner = box.topLeft();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ColourOf(Role::kText), box.width() / 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&](double x, double y) { return corner + QPointF(x * box.width(), y * box.height()); };
    if (Has(option, State_NoChange)) {
      painter.drawLine(at(0.3, 0.5), at(0.7, 0.5));
    } else if (Has(option, State_On)) {
      painter.drawPolyline(QPolygonF({at(0.24, 0.52), at(0.43, 0.72), at(0.76, 0.28)}));
    }
    painter.restore();
  }

  static void DrawOption(const QStyleOption& option, QPainter& painter) {
    const bool enabled = Has(option, State_Enabled);
    const QRectF circle = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(enabled ? QPen(ColourOf(Role::kBorder), kBorderWidth) : QPen(Qt::NoPen));
    painter.setBrush(ColourOf(enabled ? Role::kInput : Role::kShown));
    painter.drawEllipse(circle);
    if (Has(option, State_On)) {
      painter.setPen(Qt::NoPen);
      painter.setBrush(ColourOf(Role::kText));
      const double inner = circle.width() / 4;
      painter.drawEllipse(circle.adjusted(inner, inner, -inner, -inner));
    }
    painter.restore();
  }

  // The page in front has the ground of the pages and a bar above; the others lie behind.
  static void DrawTab(const QStyleOptionTab& tab, QPainter& painter) {
    const bool front = Has(tab, State_Selected);
    const QRect rect = front ? tab.rect : tab.rect.adjusted(0, 2, 0, -1);
    painter.fillRect(rect, ColourOf(front ? Role::kWindow : Role::kHeading));
    painter.setPen(ColourOf(front ? Role::kBorder : Role::kLine));
    painter.drawPolyline(QPolygon({rect.bottomLeft(), rect.topLeft(), rect.topRight(), rect.bottomRight()}));
    if (front) painter.fillRect(QRect(rect.topLeft(), QSize(rect.width(), 3)), ColourOf(Role::kAccent));
    Mark(painter, tab, nullptr);
  }

  void DrawScrollBar(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const {
    const auto rect = [&](SubControl part) { return subControlRect(CC_ScrollBar, &option, part, widget); };
    painter.fillRect(option.rect, ColourOf(Role::kHeading));
    const bool across = Has(option, State_Horizontal);
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(&option);
    if (slider && slider->maximum > slider->minimum) {
      Ground(painter, rect(SC_ScrollBarSlider).adjusted(2, 2, -2, -2), Role::kBorder);
    }
    const int line = option.fontMetrics.height();
    Arrow(painter, rect(SC_ScrollBarSubLine), across ? Qt::LeftArrow : Qt::UpArrow, line, true);
    Arrow(painter, rect(SC_ScrollBarAddLine), across ? Qt::RightArrow : Qt::DownArrow, line, true);
  }
};

}  // namespace

QStyle* MakeStyle() { return new Style; }

}  // namespace zendara

#include "adapters/qt/look.hpp"

#include <QApplication>
#include <QPalette>
#include <QPointer>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QToolTip>
#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace zendara {
namespace {

constexpr double kBasePoints = 9;
constexpr int kSteps[] = {80, 90, 100, 110, 125, 150, 175, 200, 225, zoom::kMost};

class Style : public QProxyStyle {
 public:
  Style() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override {
    const QSize plain = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type != CT_PushButton || !option) return plain;
    const int line = option->fontMetrics.height();
    return plain + QSize(line / 2, line / 5);
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
      default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
  }
};

QPalette Colours() {
  QPalette palette(tone::kWindow);
  palette.setColor(QPalette::Window, tone::kWindow);
  palette.setColor(QPalette::WindowText, tone::kText);
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::AlternateBase, tone::kWindow);
  palette.setColor(QPalette::Text, tone::kText);
  palette.setColor(QPalette::Button, QColor(0xEC, 0xEF, 0xF3));
  palette.setColor(QPalette::ButtonText, tone::kText);
  palette.setColor(QPalette::Highlight, tone::kAccent);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, tone::kAccent);
  palette.setColor(QPalette::ToolTipBase, Qt::white);
  palette.setColor(QPalette::ToolTipText, tone::kText);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, tone::kQuiet);
  }
  return palette;
}

QFont FontOf(int percent) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setStyleHint(QFont::SansSerif);
  font.setPointSizeF(kBasePoints * percent / 100);
  return font;
}

struct Watcher {
  QPointer<QObject> owner;
  std::function<void()> changed;
};

int percent_now = 100;
std::vector<Watcher>& Watchers() {
  static std::vector<Watcher> watchers;
  return watchers;
}

void CallWatchers() {
  std::erase_if(Watchers(), [](const Watcher& watcher) { return !watcher.owner; });
  const auto watchers = Watchers();
  for (const Watcher& watcher : watchers) {
    if (watcher.owner) watcher.changed();
  }
}

}  // namespace

void InstallLook() {
  QApplication::setStyle(new Style);
  QApplication::setPalette(Colours());
  QToolTip::setPalette(Colours());
  QApplication::setFont(FontOf(percent_now));
}

namespace zoom {

int Percent() { return percent_now; }

void Set(int percent) {
  percent_now = std::clamp(percent, *std::begin(kSteps), kMost);
  QApplication::setFont(FontOf(percent_now));
  QToolTip::setFont(FontOf(percent_now));
  // The widgets get their font by an event.
  QMetaObject::invokeMethod(qApp, CallWatchers, Qt::QueuedConnection);
}

void Larger() {
  const auto* step = std::ranges::upper_bound(kSteps, percent_now);
  Set(step == std::end(kSteps) ? kMost : *step);
}

void Smaller() {
  const auto* step = std::ranges::lower_bound(kSteps, percent_now);
  Set(step == std::begin(kSteps) ? *step : *std::prev(step));
}

void Watch(QObject* owner, std::function<void()> changed) { Watchers().push_back({owner, std::move(changed)}); }

}  // namespace zoom

int TextWidth(const QFontMetrics& metrics, int characters) {
  // Codes are digits; names are capitals, a little wider.
  const QChar sample = QLatin1Char(characters > 5 ? 'E' : '0');
  return metrics.horizontalAdvance(QString(characters, sample));
}

QColor ToQt(Color color) { return {color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF}; }

QColor FieldColor(Color color) { return color == kGrey ? tone::kResting : ToQt(color); }

}  // namespace zendara

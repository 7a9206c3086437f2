#include "adapters/qt/look.hpp"

#include <QApplication>
#include <QChildEvent>
#include <QFontInfo>
#include <QPalette>
#include <QPointer>
#include <QStyle>
#include <QToolTip>
#include <QWidget>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVariant>
#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

#include "adapters/qt/style.hpp"

namespace zendara {

class Dresser;

namespace {

constexpr double kBasePoints = 9;
constexpr int kPatienceWithDesktop = 500;  // milliseconds
constexpr int kSteps[] = {80, 90, 100, 110, 125, 150, 175, 200, 225, zoom::kMost};

// What InstallLook has set; nothing while the application's look is its own.
std::optional<Colours> installed;

// Of the application's palette, made anew when it has another one.
const Shades& ShadesOfApplication() {
  static Shades shades;
  static qint64 made_of = -1;
  const QPalette palette = QApplication::palette();
  if (made_of != palette.cacheKey()) {
    shades = ShadesOf(palette);
    made_of = palette.cacheKey();
  }
  return shades;
}

struct Use {
  QPalette::ColorRole place;
  Role role;
};
constexpr Use kUses[] = {
    {QPalette::Window, Role::kWindow},     {QPalette::WindowText, Role::kText},
    {QPalette::Base, Role::kInput},        {QPalette::AlternateBase, Role::kWindow},
    {QPalette::Text, Role::kText},         {QPalette::Button, Role::kButton},
    {QPalette::ButtonText, Role::kText},   {QPalette::PlaceholderText, Role::kQuiet},
    {QPalette::Highlight, Role::kAccent},  {QPalette::HighlightedText, Role::kOnAccent},
    {QPalette::Link, Role::kAccent},       {QPalette::LinkVisited, Role::kAccent},
    {QPalette::ToolTipBase, Role::kInput}, {QPalette::ToolTipText, Role::kText},
};

QPalette PaletteNow() {
  QPalette palette(ColourOf(Role::kButton), ColourOf(Role::kWindow));
  for (const Use& use : kUses) palette.setColor(use.place, ColourOf(use.role));
  // A value that can only be read is no less a value.
  palette.setColor(QPalette::Disabled, QPalette::WindowText, ColourOf(Role::kQuiet));
  palette.setColor(QPalette::Disabled, QPalette::ButtonText, ColourOf(Role::kQuiet));
  return palette;
}

// What a desktop says that hands no palette to its programs. Nothing where it says nothing.
std::optional<Colours> ColoursOfDesktopSettings() {
  const QString theme = qEnvironmentVariable("GTK_THEME");
  if (theme.contains(QLatin1String("HighContrast"))) return Colours::kContrast;
  if (theme.endsWith(QLatin1String("dark"), Qt::CaseInsensitive)) return Colours::kDark;
  // Otherwise the library would start a bus of its own.
  if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return std::nullopt;
  const auto setting = [](const QString& group, const QString& key) {
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
    question << group << key;
    const QDBusMessage answer = QDBusConnection::sessionBus().call(question, QDBus::Block, kPatienceWithDesktop);
    // A value in a value.
    QVariant value = answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0) : QVariant();
    while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    return value;
  };
  if (setting(QStringLiteral("org.gnome.desktop.a11y.interface"), QStringLiteral("high-contrast")).toBool()) {
    return Colours::kContrast;
  }
  const QString appearance = QStringLiteral("org.freedesktop.appearance");
  if (setting(appearance, QStringLiteral("contrast")).toUInt() == 1) return Colours::kContrast;
  const uint scheme = setting(appearance, QStringLiteral("color-scheme")).toUInt();
  if (scheme == 1) return Colours::kDark;
  if (scheme == 2) return Colours::kLight;
  return std::nullopt;
}

Colours FindDesktopColours() {
  if (const auto said = ColoursOfDesktopSettings()) return *said;
  return IsDark(QApplication::palette()) ? Colours::kDark : Colours::kLight;
}

std::vector<QPointer<Dresser>>& Dressers() {
  static std::vector<QPointer<Dresser>> dressers;
  return dressers;
}

struct Watcher {
  QPointer<QObject> owner;
  std::function<void()> changed;
};

int percent_now = 100;

// Of the text at 100 percent.
double BasePoints() { return installed ? kBasePoints : QFontInfo(QApplication::font()).pointSizeF(); }

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

Colours DesktopColours() {
  static const Colours found = FindDesktopColours();
  return found;
}

QColor ColourOf(Role role) { return installed ? ColourOf(role, *installed) : ColourOf(role, ShadesOfApplication()); }

QColor PaintedGround(QColor painted) {
  const Colours like = IsDark(QApplication::palette()) ? Colours::kDark : Colours::kLight;
  return PaintedGround(painted, installed.value_or(like));
}

QFont TextFont() {
  QFont font = installed ? QFont(QStringLiteral("DejaVu Sans")) : QApplication::font();
  if (installed) font.setStyleHint(QFont::SansSerif);
  font.setPointSizeF(BasePoints() * percent_now / 100);
  return font;
}

double TextScale() { return BasePoints() / kBasePoints * percent_now / 100; }

void InstallLook(Colours colours) {
  installed = colours;
  QApplication::setStyle(MakeStyle());
  QApplication::setPalette(PaletteNow());
  QToolTip::setPalette(PaletteNow());
  QApplication::setFont(TextFont());
}

bool LookInstalled() { return installed.has_value(); }

// One window and what stands in it.
class Dresser : public QObject {
 public:
  explicit Dresser(QWidget& window) : QObject(&window), window_(window) {
    static QPointer<QStyle> style;  // goes with the application
    if (!style) {
      style = MakeStyle();
      style->setParent(qApp);
    }
    style_ = style;
    window.setStyle(style_);
    Renew();
    Take(window);
  }

  void Renew() {
    window_.setPalette(PaletteNow());
    window_.setFont(TextFont());
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto& widget = static_cast<QWidget&>(*watched);
    switch (event->type()) {
      case QEvent::Polish:
        widget.setStyle(style_);
        if (widget.isWindow() && &widget != &window_) {  // a list that falls out, a menu
          widget.setPalette(window_.palette());
          widget.setFont(window_.font());
        }
        return false;
      case QEvent::ChildAdded:
        if (QObject* child = static_cast<QChildEvent*>(event)->child(); child->isWidgetType()) {
          Take(*static_cast<QWidget*>(child));
        }
        return false;
      case QEvent::ApplicationPaletteChange:
      case QEvent::ApplicationFontChange:
        if (&widget == &window_) zoom::Set(zoom::Percent());
        return false;
      default:
        return false;
    }
  }

 private:
  // Windows that stand before it see to themselves, or are somebody else's.
  void Take(QWidget& widget) {
    if (&widget != &window_ && widget.isWindow() && widget.windowType() != Qt::Popup) return;
    widget.installEventFilter(this);
    if (widget.testAttribute(Qt::WA_WState_Polished)) widget.setStyle(style_);
    for (QObject* child : widget.children()) {
      if (child->isWidgetType()) Take(*static_cast<QWidget*>(child));
    }
  }

  QWidget& window_;
  QStyle* style_;
};

void Dress(QWidget& window) {
  if (!installed) Dressers().emplace_back(new Dresser(window));
}

int RingWidth(const QFontMetrics& metrics) { return std::max(2, metrics.height() / 9); }

namespace zoom {

int Percent() { return percent_now; }

void Set(int percent) {
  percent_now = std::clamp(percent, *std::begin(kSteps), kMost);
  if (installed) {
    QApplication::setFont(TextFont());
    QToolTip::setFont(TextFont());
  }
  std::erase_if(Dressers(), [](const auto& dresser) { return !dresser; });
  for (const auto& dresser : Dressers()) dresser->Renew();
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

int RowHeight(const QFontMetrics& metrics) { return metrics.height() * 4 / 3; }

int TextWidth(const QFontMetrics& metrics, int characters) {
  // Codes are digits; names are capitals, a little wider.
  const QChar sample = QLatin1Char(characters > 5 ? 'E' : '0');
  return metrics.horizontalAdvance(QString(characters, sample));
}

}  // namespace zendara

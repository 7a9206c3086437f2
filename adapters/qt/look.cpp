#include "adapters/qt/look.hpp"

#include <QApplication>
#include <QPalette>
#include <QPointer>
#include <QToolTip>
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
namespace {

constexpr double kBasePoints = 9;
constexpr int kPatienceWithDesktop = 500;  // milliseconds
constexpr int kSteps[] = {80, 90, 100, 110, 125, 150, 175, 200, 225, zoom::kMost};

struct Shades {
  Role role;
  QRgb light;
  QRgb dark;
  QRgb contrast;
};
constexpr Shades kShades[kRoles] = {
    {Role::kWindow, 0xF4F5F8, 0x1E2228, 0x000000},  {Role::kInput, 0xFFFFFF, 0x14171B, 0x000000},
    {Role::kActive, 0xFFF7D6, 0x36321B, 0x000000},  {Role::kShown, 0xE8EBF0, 0x2A3038, 0x000000},
    {Role::kButton, 0xE8EBF0, 0x363D47, 0x000000},  {Role::kHeading, 0xDDE2EA, 0x2F353E, 0x262626},
    {Role::kText, 0x1B222C, 0xE8EBEF, 0xFFFFFF},    {Role::kQuiet, 0x4E5866, 0xB0B8C4, 0xD0D0D0},
    {Role::kBorder, 0x737D8B, 0x8E98A6, 0xFFFFFF},  {Role::kLine, 0xC3CAD4, 0x4A525D, 0x8C8C8C},
    {Role::kAccent, 0x1F5FA8, 0x6CB2F5, 0xFFFF00},  {Role::kOnAccent, 0xFFFFFF, 0x0B1016, 0x000000},
    {Role::kFound, 0xFFE28A, 0x65500F, 0x5A4A00},   {Role::kFoundSelected, 0x123F73, 0xB4DAFF, 0xFFFFFF},
    {Role::kWarning, 0xC2410C, 0xFF9E64, 0xFF9B9B}, {Role::kSeries1, 0x2166AC, 0x74B6F4, 0x6FB7FF},
    {Role::kSeries2, 0x7B3FA0, 0xCDA4F2, 0xDDA3FF}, {Role::kSeries3, 0xA61B4B, 0xFF8FB0, 0xFF7F50},
    {Role::kSeries4, 0x1B7340, 0x7FD6A0, 0x6FFF9F}, {Role::kSeries5, 0x7A5B00, 0xE3C464, 0xFFD84D},
};

Colours colours_now = Colours::kLight;

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
  const QPalette given = QApplication::palette();
  const bool dark = given.color(QPalette::Window).lightnessF() < given.color(QPalette::WindowText).lightnessF();
  return dark ? Colours::kDark : Colours::kLight;
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

Colours DesktopColours() {
  static const Colours found = FindDesktopColours();
  return found;
}

QColor ColourOf(Role role) { return ColourOf(role, colours_now); }

QColor ColourOf(Role role, Colours colours) {
  const Shades& shades = *std::ranges::find(kShades, role, &Shades::role);
  return QColor::fromRgb(colours == Colours::kLight  ? shades.light
                         : colours == Colours::kDark ? shades.dark
                                                     : shades.contrast);
}

QColor PaintedGround(QColor painted) { return PaintedGround(painted, colours_now); }

// As light as it was dark; no pattern stands behind words where contrast is asked for.
QColor PaintedGround(QColor painted, Colours colours) {
  if (colours == Colours::kLight) return painted;
  if (colours == Colours::kContrast) return ColourOf(Role::kWindow, colours);
  const QColor tone = painted.toHsl();
  return QColor::fromHslF(std::max(tone.hslHueF(), 0.0F), tone.hslSaturationF() / 2, 1 - tone.lightnessF());
}

void InstallLook(Colours colours) {
  colours_now = colours;
  QApplication::setStyle(MakeStyle());
  QApplication::setPalette(PaletteNow());
  QToolTip::setPalette(PaletteNow());
  QApplication::setFont(FontOf(percent_now));
}

int RingWidth(const QFontMetrics& metrics) { return std::max(2, metrics.height() / 9); }

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

int RowHeight(const QFontMetrics& metrics) { return metrics.height() * 4 / 3; }

int TextWidth(const QFontMetrics& metrics, int characters) {
  // Codes are digits; names are capitals, a little wider.
  const QChar sample = QLatin1Char(characters > 5 ? 'E' : '0');
  return metrics.horizontalAdvance(QString(characters, sample));
}

}  // namespace zendara

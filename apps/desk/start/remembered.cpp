#include "apps/desk/start/remembered.hpp"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <algorithm>
#include <cstdlib>

#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"
#include "adapters/stores/password.hpp"

namespace zendara {
namespace {

constexpr int kFarthest = 100'000;  // pixels

const QString kFolder = QStringLiteral("carpeta");
const QString kCompany = QStringLiteral("empresa");
const QString kYear = QStringLiteral("ejercicio");
const QString kZoom = QStringLiteral("letra");
const QString kWindows = QStringLiteral("ventanas");

bool AllDigits(const std::string& text, std::size_t count) {
  return text.size() == count && text.find_first_not_of("0123456789") == std::string::npos;
}

bool IsSensible(const QRect& place) {
  return std::abs(place.x()) < kFarthest && std::abs(place.y()) < kFarthest && place.width() >= 0 &&
         place.width() < kFarthest && place.height() >= 0 && place.height() < kFarthest;
}

}  // namespace

QString RememberedFile() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/zendara/desk.ini");
}

Remembered ReadRemembered(const QString& file) {
  QSettings settings(file, QSettings::IniFormat);
  Remembered read;
  read.folder = FromQt(settings.value(kFolder).toString());
  read.company = FromQt(settings.value(kCompany).toString());
  read.year = FromQt(settings.value(kYear).toString());
  if (!AllDigits(read.company, 5)) read.company.clear();
  if (!AllDigits(read.year, 2)) read.year.clear();
  const int percent = settings.value(kZoom).toInt();
  if (percent > 0) read.zoom = std::min(percent, zoom::kMost);
  settings.beginGroup(kWindows);
  for (const QString& name : settings.childKeys()) {
    const QVariant place = settings.value(name);
    if (place.typeId() == QMetaType::QRect && IsSensible(place.toRect())) read.windows.places[name] = place.toRect();
  }
  return read;
}

bool WriteRemembered(const QString& file, const Remembered& remembered) {
  // A file that is there keeps its permissions when it is written.
  QDir().mkpath(QFileInfo(file).path());
  QFile made(file);
  if (!made.open(QIODevice::ReadWrite)) return false;
  made.close();
  if (!made.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner)) return false;
  QSettings settings(file, QSettings::IniFormat);
  settings.clear();
  if (!HoldsPassword(remembered.folder)) settings.setValue(kFolder, ToQt(remembered.folder));
  settings.setValue(kCompany, ToQt(remembered.company));
  settings.setValue(kYear, ToQt(remembered.year));
  settings.setValue(kZoom, remembered.zoom);
  settings.beginGroup(kWindows);
  for (const auto& [name, place] : remembered.windows.places) settings.setValue(name, place);
  settings.endGroup();
  settings.sync();
  return settings.status() == QSettings::NoError;
}

}  // namespace zendara

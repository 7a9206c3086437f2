#include "adapters/qt/file_keeper.hpp"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QWidget>

#include "adapters/qt/text.hpp"
#include "runtime/failure.hpp"

namespace zendara {
namespace {

// In the user's documents, or the folder of the file that was chosen last. Signs that some file systems do not take in
// names are left out of the title.
std::string ProposedPath(const std::string& title, const std::string& suffix, const std::string& chosen_last) {
  QString name = ToQt(title);
  for (QChar& character : name) {
    if (!character.isPrint() || QStringLiteral("\\/:*?\"<>|").contains(character)) character = QLatin1Char(' ');
  }
  name = name.simplified();
  while (name.endsWith(QLatin1Char('.'))) name.chop(1);
  const QString folder = chosen_last.empty() ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                                             : QFileInfo(QFile::decodeName(chosen_last.c_str())).path();
  return FromQt(QDir(folder).filePath(name + QLatin1Char('.') + ToQt(suffix)));
}

}  // namespace

QString FileKeeper::Keep(const Begin& begin, std::span<const FileFormat> kinds, const Write& write, QWidget& over) {
  using enum print::DocumentWriter::Existing;
  ChosenFile file;
  QString said;
  try {
    file.path = ProposedPath(begin(), kinds.front().suffix, chosen_last_);
    bool there = false;
    do {
      const auto chosen = choose_(over, file.path, kinds);
      if (!chosen) return {};
      file = *chosen;
      there = QFileInfo::exists(QFile::decodeName(file.path.c_str()));
    } while (there && !MayReplace(file.path));
    if (!write(file.path, file.kind, there ? kReplace : kKeep)) return QStringLiteral("No se ha guardado.");
    chosen_last_ = file.path;
    said = QStringLiteral("Guardado en ") + ToQt(file.path);
  } catch (...) {
    ShowFailure("No se ha podido guardar:" + (file.path.empty() ? "" : "\n" + file.path));
  }
  over.activateWindow();
  return said;
}

void FileKeeper::ShowFailure(const std::string& words) {
  const RuntimeError error = CurrentError();
  LogDetail(error);
  dialogs_.Show({.text = words + "\n" + error.what(), .icon = BoxIcon::kCritical});
}

bool FileKeeper::MayReplace(const std::string& path) {
  return dialogs_.Show({.text = "Ya existe un archivo con ese nombre:\n" + path + "\n¿Quiere sustituirlo?",
                        .buttons = BoxButtons::kYesNo,
                        .icon = BoxIcon::kQuestion,
                        .default_button = 2}) == BoxAnswer::kYes;
}

}  // namespace zendara

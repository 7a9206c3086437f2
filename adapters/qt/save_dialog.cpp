#include "adapters/qt/save_dialog.hpp"

#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QStringList>
#include <QTranslator>
#include <algorithm>

#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {

namespace {

// All that the toolkit says by itself.
void SpeakSpanish() {
  static QTranslator translator;
  if (!translator.isEmpty()) return;
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (translator.load(QStringLiteral("qtbase_es"), folder)) QCoreApplication::installTranslator(&translator);
}

// What this dialog says, in an application whose language is its own.
void SpeakSpanish(QFileDialog& dialog) {
  dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("Buscar en:"));
  dialog.setLabelText(QFileDialog::FileName, QStringLiteral("&Nombre:"));
  dialog.setLabelText(QFileDialog::FileType, QStringLiteral("Tipo:"));
  dialog.setLabelText(QFileDialog::Accept, QStringLiteral("&Guardar"));
  dialog.setLabelText(QFileDialog::Reject, QStringLiteral("&Cancelar"));
}

}  // namespace

std::optional<ChosenFile> ChooseFileInDialog(QWidget& over, const std::string& path,
                                             std::span<const FileFormat> kinds) {
  if (LookInstalled()) SpeakSpanish();
  QStringList filters;
  for (const FileFormat& kind : kinds) filters << QStringLiteral("%1 (*.%2)").arg(ToQt(kind.words), ToQt(kind.suffix));
  const QFileInfo proposed(ToQt(path));
  QFileDialog dialog(&over, QStringLiteral("Guardar"), proposed.path());
  dialog.setNameFilters(filters);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  if (!LookInstalled()) SpeakSpanish(dialog);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  const auto kind_now = [&] {
    return static_cast<std::size_t>(std::max(filters.indexOf(dialog.selectedNameFilter()), qsizetype{0}));
  };
  const auto take_suffix = [&] { dialog.setDefaultSuffix(ToQt(kinds[kind_now()].suffix)); };
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, take_suffix);
  take_suffix();
  dialog.selectFile(proposed.fileName());
  const bool chosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
  over.activateWindow();
  if (!chosen) return std::nullopt;
  const QString file = dialog.selectedFiles().constFirst();
  const std::string suffix = FromQt(QFileInfo(file).suffix().toLower());
  std::size_t kind = kind_now();
  const auto meant = std::ranges::find(kinds, suffix, &FileFormat::suffix);
  if (kinds[kind].suffix != suffix && meant != kinds.end()) kind = static_cast<std::size_t>(meant - kinds.begin());
  return ChosenFile{QFile::encodeName(file).toStdString(), kind};
}

}  // namespace zendara

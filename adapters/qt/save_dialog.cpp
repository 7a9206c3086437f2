#include "adapters/qt/save_dialog.hpp"

#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTranslator>

#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

// The toolkit's words, of which only this dialog shows any.
void SpeakSpanish() {
  static QTranslator translator;
  if (!translator.isEmpty()) return;
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (translator.load(QStringLiteral("qtbase_es"), folder)) QCoreApplication::installTranslator(&translator);
}

}  // namespace

std::optional<std::string> ChooseFileInDialog(QWidget& over, const std::string& path) {
  SpeakSpanish();
  const QFileInfo proposed(ToQt(path));
  QFileDialog dialog(&over, QStringLiteral("Guardar como PDF"), proposed.path(),
                     QStringLiteral("Documentos PDF (*.pdf)"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setDefaultSuffix(QStringLiteral("pdf"));
  dialog.selectFile(proposed.fileName());
  const bool chosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
  over.activateWindow();
  if (!chosen) return std::nullopt;
  return QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
}

}  // namespace zendara

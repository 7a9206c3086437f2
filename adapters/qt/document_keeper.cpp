#include "adapters/qt/document_keeper.hpp"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "adapters/hosting/application.hpp"
#include "adapters/qt/form_window.hpp"
#include "adapters/qt/text.hpp"
#include "print/record_document.hpp"
#include "runtime/failure.hpp"

namespace zendara {
namespace {

// In the user's documents, or the folder of the file that was chosen last. Signs that some file systems do not take in
// names are left out of the title.
std::string ProposedPath(const std::string& title, const std::string& chosen_last) {
  QString name = ToQt(title);
  for (QChar& character : name) {
    if (!character.isPrint() || QStringLiteral("\\/:*?\"<>|").contains(character)) character = QLatin1Char(' ');
  }
  const QString folder = chosen_last.empty() ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                                             : QFileInfo(QFile::decodeName(chosen_last.c_str())).path();
  return FromQt(QDir(folder).filePath(name.simplified() + QStringLiteral(".pdf")));
}

}  // namespace

void DocumentKeeper::KeepRecord(FormWindow& window) {
  Form& form = window.Shown();
  const QString said =
      Keep([&] { return print::RecordDocument(form, documents_.Now(), documents_.Measure()); }, window);
  if (!said.isEmpty()) window.Pass([&] { form.SetStatus(FromQt(said)); });
}

QString DocumentKeeper::KeepDetail(const Box& box, const FormWindow* window, QWidget& over) {
  return Keep(
      [&] {
        print::Heading heading;
        if (window) heading = print::HeadingOf(window->Shown(), {});
        heading.created = documents_.Now();
        heading.title = box.title.empty() ? kApplicationTitle : box.title;
        return print::DetailDocument(heading, box.text, box.detail, documents_.Measure());
      },
      over);
}

QString DocumentKeeper::Keep(const std::function<print::Document()>& make, QWidget& over) {
  using enum print::DocumentWriter::Existing;
  std::string path;
  QString said;
  try {
    const print::Document document = make();
    path = ProposedPath(document.title, chosen_last_);
    bool there = false;
    do {
      const auto chosen = choose_(over, path);
      if (!chosen) return {};
      path = *chosen;
      there = QFileInfo::exists(QFile::decodeName(path.c_str()));
    } while (there && !MayReplace(path));
    documents_.WritePdf(document, path, there ? kReplace : kKeep);
    chosen_last_ = path;
    said = QStringLiteral("Guardado en ") + ToQt(path);
  } catch (...) {
    const RuntimeError error = CurrentError();
    LogDetail(error);
    dialogs_.Show({.text = "No se ha podido guardar:\n" + path + "\n" + error.what(), .icon = BoxIcon::kCritical});
  }
  over.activateWindow();
  return said;
}

bool DocumentKeeper::MayReplace(const std::string& path) {
  return dialogs_.Show({.text = "Ya existe un archivo con ese nombre:\n" + path + "\n¿Quiere sustituirlo?",
                        .buttons = BoxButtons::kYesNo,
                        .icon = BoxIcon::kQuestion,
                        .default_button = 2}) == BoxAnswer::kYes;
}

}  // namespace zendara

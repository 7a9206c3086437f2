#include "apps/desk/start/start_window.hpp"

#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QStackedLayout>
#include <utility>

#include "adapters/qt/keys.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"
#include "apps/desk/start/folder_page.hpp"

namespace zendara {
namespace {

bool CanBeWritten(const QString& folder) {
  QFileInfo there(folder);
  while (!there.exists() && there.filePath() != there.path()) there = QFileInfo(there.path());
  return there.isDir() && there.isWritable();
}

}  // namespace

StartWindow::StartWindow(StartActions actions, std::vector<ScreenChoice> screens)
    : actions_(std::move(actions)), screens_(std::move(screens)), maker_(actions_.write_demo) {
  setWindowTitle(QStringLiteral("Zendara"));
  setAttribute(Qt::WA_KeyboardFocusChange);  // so that the style marks what has the keyboard
  pages_ = new QStackedLayout(this);
  zoom::Watch(this, [this] { Rescale(); });
}

void StartWindow::Begin(const std::string& folder) {
  std::vector<Company> companies;
  if (!folder.empty()) companies = actions_.companies(folder);
  if (!companies.empty()) return ShowCompanies(folder, std::move(companies));
  folder_page_ = new FolderPage([this](const QString& demo) { MakeDemo(demo); }, [this] { AskForFolder(); }, this);
  folder_page_->Tell(folder.empty() ? QStringLiteral("Todavía no hay ninguna carpeta de trabajo elegida.")
                                    : QStringLiteral("En la carpeta %1 no hay ninguna empresa.").arg(ToQt(folder)));
  pages_->addWidget(folder_page_);
  Rescale();
}

void StartWindow::ShowCompanies(const std::string& folder, std::vector<Company> companies) {
  folder_ = folder;
  delete std::exchange(folder_page_, nullptr);
  delete std::exchange(chooser_, nullptr);
  chooser_ = new Chooser(
      ToQt(folder), std::move(companies), screens_,
      [this](const Company& company, const std::string& year, const std::string& screen) {
        actions_.open(folder_, company, year, screen);
      },
      [this] { AskForFolder(); }, this);
  pages_->addWidget(chooser_);
  pages_->setCurrentWidget(chooser_);
  Rescale();
}

void StartWindow::AskForFolder() {
  const QString start = folder_.empty() ? QDir::homePath() : ToQt(folder_);
  const QString chosen = AskFolder(this, QStringLiteral("Carpeta del programa de nóminas"), start);
  // Later, when the page that asked may go.
  if (!chosen.isEmpty())
    QMetaObject::invokeMethod(
        this, [this, chosen] { Use(chosen); }, Qt::QueuedConnection);
}

void StartWindow::Use(const QString& folder) {
  // Whoever goes into DATOS means the folder around it.
  const QDir given(folder);
  const QString name = given.dirName();
  std::string used = FromQt(folder);
  std::vector<Company> companies = actions_.companies(used);
  if (companies.empty() && name.compare(QLatin1String("DATOS"), Qt::CaseInsensitive) == 0) {
    used = FromQt(QFileInfo(given.absolutePath()).path());
    companies = actions_.companies(used);
  }
  if (companies.empty()) {
    return actions_.tell("En la carpeta " + FromQt(folder) + " no hay ninguna empresa.");
  }
  ShowCompanies(used, std::move(companies));
}

void StartWindow::MakeDemo(const QString& folder) {
  const std::string where = FromQt(folder);
  if (folder.isEmpty()) return folder_page_->Tell(QStringLiteral("Escriba la carpeta de la demostración."));
  if (!actions_.companies(where).empty()) {
    return folder_page_->Tell(
        QStringLiteral("En la carpeta %1 ya hay empresas. Puede elegirla con el botón de abajo.").arg(folder));
  }
  if (!CanBeWritten(folder)) {
    return folder_page_->Tell(QStringLiteral("En la carpeta %1 no se puede escribir.").arg(folder));
  }
  folder_page_->Tell(QStringLiteral("Creando la empresa de demostración..."));
  folder_page_->ShowProgress(0, 0);
  maker_.Start(
      where, [this](int done, int of) { folder_page_->ShowProgress(done, of); },
      [this, where](const std::string& why_not) {
        folder_page_->ShowIdle();
        if (!why_not.empty()) {
          folder_page_->Tell(QStringLiteral("No se ha podido crear la demostración: ") + ToQt(why_not));
        } else {
          Use(ToQt(where));
        }
      });
}

// Enter opens or begins what is marked.
void StartWindow::keyPressEvent(QKeyEvent* event) {
  if (HandleZoomKey(*event)) return;
  switch (event->key()) {
    case Qt::Key_Escape:
      close();
      break;
    case Qt::Key_F1:
      actions_.help();
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (chooser_) {
        chooser_->PressEnter();
      } else {
        folder_page_->PressEnter();
      }
      break;
    default:
      QWidget::keyPressEvent(event);
  }
}

void StartWindow::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  if (actions_.closed) actions_.closed();
}

void StartWindow::Rescale() {
  if (chooser_) chooser_->Rescale();
  pages_->activate();
  adjustSize();
}

}  // namespace zendara

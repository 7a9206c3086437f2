#include "apps/desk/start/start_window.hpp"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QStackedLayout>
#include <algorithm>
#include <utility>

#include "adapters/qt/keys.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"
#include "apps/desk/start/folder_page.hpp"
#include "apps/desk/start/places.hpp"
#include "apps/desk/start/server_dialog.hpp"
#include "runtime/failure.hpp"

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

std::optional<std::vector<Company>> StartWindow::Find(const std::string& place,
                                                      const std::function<void(const std::string&)>& tell) try {
  QApplication::setOverrideCursor(Qt::WaitCursor);  // a server may be long in answering
  auto companies = actions_.companies(place);
  QApplication::restoreOverrideCursor();
  return companies;
} catch (const RuntimeError& error) {
  QApplication::restoreOverrideCursor();
  std::string words = "No se puede abrir ";
  words += IsServer(place) ? "el servidor: " : "la carpeta " + place + ": ";
  words += OneLine(error);
  std::ranges::replace(words, '\t', ' ');  // the server's own words are for a terminal
  tell(words);
  return std::nullopt;
}

void StartWindow::Begin(const std::string& place) {
  if (place.empty()) return ShowOffer(place, QStringLiteral("Todavía no hay ninguna carpeta de trabajo elegida."));
  QString why_not;
  auto companies = Find(place, [&](const std::string& words) { why_not = ToQt(words); });
  if (!companies) return ShowOffer(place, why_not);
  if (!companies->empty()) return ShowCompanies(place, std::move(*companies));
  ShowOffer(place, ToQt("En " + PlaceWords(place) + " no hay ninguna empresa."));
}

void StartWindow::ShowOffer(const std::string& place, const QString& words) {
  asked_ = place;
  if (!folder_page_) {
    folder_page_ = new FolderPage([this](const QString& demo) { MakeDemo(demo); }, [this] { AskForFolder(); },
                                  [this] { AskForServer(); }, this);
    pages_->addWidget(folder_page_);
  }
  delete std::exchange(chooser_, nullptr);
  if (IsServer(place)) folder_page_->Propose(ToQt(place));
  folder_page_->Tell(words);
  pages_->setCurrentWidget(folder_page_);
  Rescale();
}

void StartWindow::ShowCompanies(const std::string& place, std::vector<Company> companies) {
  place_ = place;
  delete std::exchange(folder_page_, nullptr);
  delete std::exchange(chooser_, nullptr);
  chooser_ = new Chooser(
      ToQt(PlaceName(place)), std::move(companies), screens_,
      [this](const Company& company, const std::string& year, const std::string& screen) {
        actions_.open(place_, company, year, screen);
      },
      [this] { AskForFolder(); }, [this] { AskForServer(); }, this);
  pages_->addWidget(chooser_);
  pages_->setCurrentWidget(chooser_);
  Rescale();
}

void StartWindow::AskForFolder() {
  const QString start = place_.empty() || IsServer(place_) ? QDir::homePath() : ToQt(place_);
  const QString chosen = AskFolder(this, QStringLiteral("Carpeta del programa de nóminas"), start);
  // Later, when the page that asked may go.
  if (!chosen.isEmpty())
    QMetaObject::invokeMethod(
        this, [this, chosen] { Use(chosen); }, Qt::QueuedConnection);
}

void StartWindow::AskForServer() {
  QString chosen;
  const std::string known = IsServer(place_) ? place_ : asked_;
  ServerDialog dialog(
      IsServer(known) ? ToQt(known) : QString(),
      [&](const QString& connection) {
        if (!Connects(connection)) return false;
        chosen = connection;
        return true;
      },
      this);
  if (dialog.exec() == QDialog::Accepted)
    QMetaObject::invokeMethod(
        this, [this, chosen] { Use(chosen); }, Qt::QueuedConnection);
}

bool StartWindow::Connects(const QString& connection) {
  const std::string why_not = WhyNoConnection(FromQt(connection));
  if (!why_not.empty()) return actions_.tell(why_not), false;
  return Find(FromQt(connection), actions_.tell).has_value();
}

void StartWindow::Use(const QString& place) {
  std::string used = FromQt(place);
  auto companies = Find(used, actions_.tell);
  // Whoever goes into DATOS means the folder around it.
  const QDir given(place);
  if (companies && companies->empty() && !IsServer(used) &&
      given.dirName().compare(QLatin1String("DATOS"), Qt::CaseInsensitive) == 0) {
    used = FromQt(QFileInfo(given.absolutePath()).path());
    companies = Find(used, actions_.tell);
  }
  if (!companies) return;
  if (!companies->empty()) return ShowCompanies(used, std::move(*companies));
  const std::string words = "En " + PlaceWords(FromQt(place)) + " no hay ninguna empresa.";
  if (IsServer(used)) return ShowOffer(used, ToQt(words));
  actions_.tell(words);
}

void StartWindow::MakeDemo(const QString& place) {
  const std::string where = FromQt(place);
  const auto tell = [this](const std::string& words) { folder_page_->Tell(ToQt(words)); };
  if (place.isEmpty()) return tell("Escriba la carpeta de la demostración.");
  if (IsServer(where)) {
    const std::string why_not = WhyNoConnection(where);
    if (!why_not.empty()) return tell(why_not);
  }
  const auto companies = Find(where, tell);
  if (!companies) return;
  if (!companies->empty()) {
    return tell("En " + PlaceWords(where) + " ya hay empresas. Puede abrirlas con los botones de abajo.");
  }
  if (!IsServer(where) && !CanBeWritten(place)) return tell("En la carpeta " + where + " no se puede escribir.");
  tell("Creando la empresa de demostración...");
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

#include "apps/desk/start/folder_page.hpp"

#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStandardPaths>
#include <utility>

#include "adapters/qt/look.hpp"

namespace zendara {
namespace {

// Among the documents, where the user has a folder of them.
QString ProposedFolder() {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const QString parent = !documents.isEmpty() && QDir(documents).exists() ? documents : QDir::homePath();
  return QDir::toNativeSeparators(parent + QStringLiteral("/Zendara"));
}

}  // namespace

FolderPage::FolderPage(std::function<void(const QString&)> make, std::function<void()> choose,
                       std::function<void()> server, QWidget* parent)
    : QWidget(parent) {
  words_ = new QLabel(this);
  words_->setTextFormat(Qt::PlainText);
  words_->setWordWrap(true);
  place_ = new QLineEdit(ProposedFolder(), this);
  place_->setMinimumWidth(TextWidth(fontMetrics(), 40));
  auto* label = new QLabel(QStringLiteral("En la car&peta o el servidor:"), this);
  label->setBuddy(place_);
  browse_ = new QPushButton(QStringLiteral("E&xaminar..."), this);
  make_ = new QPushButton(QStringLiteral("&Crear empresa de demostración"), this);
  progress_ = new QProgressBar(this);
  progress_->setAccessibleName(QStringLiteral("Creando la empresa de demostración"));
  choose_ = new QPushButton(QStringLiteral("&Elegir carpeta..."), this);
  server_ = new QPushButton(QStringLiteral("Conectar con un servi&dor..."), this);

  auto* demo = new QGroupBox(QStringLiteral("Probar el programa"), this);
  auto* demo_column = new QVBoxLayout(demo);
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(place_, 1);
  row->addWidget(browse_);
  demo_column->addWidget(
      new QLabel(QStringLiteral("Crea una empresa inventada, con sus trabajadores, para probar sin riesgo."), demo));
  demo_column->addLayout(row);
  demo_column->addWidget(make_, 0, Qt::AlignLeft);
  demo_column->addWidget(progress_);
  auto* own = new QGroupBox(QStringLiteral("Trabajar con las empresas que ya tiene"), this);
  auto* own_column = new QVBoxLayout(own);
  own_column->addWidget(new QLabel(
      QStringLiteral("Elija la carpeta del programa de nóminas, la que contiene DATOS, o su servidor."), own));
  auto* own_buttons = new QHBoxLayout;
  own_buttons->addWidget(choose_);
  own_buttons->addWidget(server_);
  own_buttons->addStretch();
  own_column->addLayout(own_buttons);
  auto* column = new QVBoxLayout(this);
  column->addWidget(words_);
  column->addWidget(demo);
  column->addWidget(own);
  column->addStretch();
  column->addWidget(new QLabel(QStringLiteral("F1 ayuda. Esc sale."), this));

  connect(browse_, &QPushButton::clicked, this, [this] {
    const QString chosen = AskFolder(this, QStringLiteral("Carpeta para la demostración"), place_->text());
    if (!chosen.isEmpty()) place_->setText(chosen);
  });
  connect(make_, &QPushButton::clicked, this, [this, make = std::move(make)] { make(place_->text().trimmed()); });
  connect(choose_, &QPushButton::clicked, this, std::move(choose));
  connect(server_, &QPushButton::clicked, this, std::move(server));
  ShowIdle();
  make_->setFocus();
}

void FolderPage::Tell(const QString& words) { words_->setText(words); }

void FolderPage::Propose(const QString& place) {
  place_->setText(place);
  place_->setCursorPosition(0);
}

void FolderPage::Enable(bool enabled) {
  for (QWidget* widget : std::initializer_list<QWidget*>{place_, browse_, make_, choose_, server_}) {
    widget->setEnabled(enabled);
  }
}

void FolderPage::ShowProgress(int done, int of) {
  Enable(false);
  progress_->setRange(0, of);
  progress_->setValue(done);
  progress_->show();
}

void FolderPage::ShowIdle() {
  Enable(true);
  QSizePolicy keeps = progress_->sizePolicy();
  keeps.setRetainSizeWhenHidden(true);
  progress_->setSizePolicy(keeps);
  progress_->hide();
}

void FolderPage::PressEnter() {
  auto* focused = qobject_cast<QPushButton*>(window()->focusWidget());
  (focused ? focused : make_)->click();
}

QString AskFolder(QWidget* parent, const QString& title, const QString& start) {
  QString there = start;
  while (!there.isEmpty() && !QDir(there).exists() && there != QFileInfo(there).path()) there = QFileInfo(there).path();
  return QFileDialog::getExistingDirectory(parent, title, there);
}

}  // namespace zendara

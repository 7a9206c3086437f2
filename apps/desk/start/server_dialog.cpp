#include "apps/desk/start/server_dialog.hpp"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "adapters/qt/look.hpp"
#include "adapters/qt/own_window.hpp"

namespace zendara {

ServerDialog::ServerDialog(const QString& proposed, std::function<bool(const QString&)> use, QWidget* parent)
    : QDialog(parent) {
  BeginOwnWindow(*this);
  setWindowModality(Qt::ApplicationModal);
  setAttribute(Qt::WA_KeyboardFocusChange);  // so that the style marks what has the keyboard
  setWindowTitle(QStringLiteral("Conectar con un servidor"));
  connection_ = new QLineEdit(proposed, this);
  connection_->setMinimumWidth(TextWidth(fontMetrics(), 48));
  connection_->setPlaceholderText(QStringLiteral("postgresql://servidor/nominas"));
  connection_->setAccessibleName(QStringLiteral("Conexión"));
  auto* label = new QLabel(QStringLiteral("Co&nexión:"), this);
  label->setBuddy(connection_);
  auto* words = new QLabel(QStringLiteral("Escriba la conexión que le haya dado quien se ocupa de la instalación, sin "
                                          "contraseña: esa va en el fichero ~/.pgpass."),
                           this);
  words->setWordWrap(true);
  auto* connects = new QPushButton(QStringLiteral("C&onectar"), this);
  connects->setDefault(true);
  connects->setProperty(kMain, true);
  auto* leave = new QPushButton(QStringLiteral("&Cancelar"), this);
  leave->setAutoDefault(false);

  auto* column = new QVBoxLayout(this);
  column->addWidget(words);
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(connection_, 1);
  column->addLayout(row);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(connects);
  buttons->addWidget(leave);
  column->addLayout(buttons);
  connect(connects, &QPushButton::clicked, this, [this, use = std::move(use)] {
    if (use(connection_->text().trimmed())) return accept();
    connection_->setFocus();
    connection_->selectAll();
  });
  connect(leave, &QPushButton::clicked, this, &QDialog::reject);
  connection_->setFocus();
}

}  // namespace zendara

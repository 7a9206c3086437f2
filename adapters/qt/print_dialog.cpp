#include "adapters/qt/print_dialog.hpp"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>

#include "adapters/qt/look.hpp"
#include "adapters/qt/own_window.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

// Numbers from 1, the second of a range no less than the first.
const QRegularExpression& Ranges() {
  static const QRegularExpression ranges(QStringLiteral(
      "\\s*|\\s*[1-9]\\d{0,6}(\\s*-\\s*[1-9]\\d{0,6})?(\\s*,\\s*[1-9]\\d{0,6}(\\s*-\\s*[1-9]\\d{0,6})?)*"));
  return ranges;
}

bool AreInOrder(const QString& ranges) {
  for (const QString& range : ranges.split(QLatin1Char(','))) {
    const QStringList ends = range.split(QLatin1Char('-'));
    if (ends.front().toInt() > ends.back().toInt()) return false;
  }
  return true;
}

}  // namespace

PrintDialog::PrintDialog(const std::vector<Printer>& printers, QWidget* parent) : QDialog(parent) {
  BeginOwnWindow(*this);
  setWindowModality(Qt::ApplicationModal);
  setAttribute(Qt::WA_KeyboardFocusChange);  // so that the style marks what has the keyboard
  setWindowTitle(QStringLiteral("Imprimir"));
  printer_ = new QComboBox(this);
  for (const Printer& printer : printers) {
    const QString place = printer.place.empty() ? QString() : QStringLiteral(" (%1)").arg(ToQt(printer.place));
    printer_->addItem(ToQt(printer.name) + place, ToQt(printer.name));
    if (printer.usual) printer_->setCurrentIndex(printer_->count() - 1);
  }
  copies_ = new QLineEdit(QStringLiteral("1"), this);
  copies_->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[1-9]\\d{0,2}")), copies_));
  pages_ = new QLineEdit(this);
  pages_->setValidator(new QRegularExpressionValidator(Ranges(), pages_));
  pages_->setPlaceholderText(QStringLiteral("todas, o como 1-4,7"));
  pages_->setMinimumWidth(TextWidth(fontMetrics(), static_cast<int>(pages_->placeholderText().size()) + 2));
  print_ = new QPushButton(QStringLiteral("I&mprimir"), this);
  print_->setDefault(true);
  print_->setProperty(kMain, true);
  auto* leave = new QPushButton(QStringLiteral("&Cancelar"), this);
  leave->setAutoDefault(false);

  auto* grid = new QGridLayout(this);
  const struct {
    QString words;
    QWidget* field;
  } rows[] = {{QStringLiteral("&Impresora:"), printer_},
              {QStringLiteral("C&opias:"), copies_},
              {QStringLiteral("&Páginas:"), pages_}};
  for (const auto& [words, field] : rows) {
    auto* label = new QLabel(words, this);
    label->setBuddy(field);
    field->setAccessibleName(PlainCaption(words.toStdString()));
    const int row = grid->rowCount();
    grid->addWidget(label, row, 0);
    grid->addWidget(field, row, 1);
  }
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(print_);
  buttons->addWidget(leave);
  grid->addLayout(buttons, grid->rowCount(), 0, 1, 2);
  connect(print_, &QPushButton::clicked, this, &QDialog::accept);
  connect(leave, &QPushButton::clicked, this, &QDialog::reject);
  for (QLineEdit* field : {copies_, pages_}) connect(field, &QLineEdit::textChanged, this, [this] { Check(); });
}

void PrintDialog::Check() {
  print_->setEnabled(copies_->hasAcceptableInput() && pages_->hasAcceptableInput() && AreInOrder(pages_->text()));
}

PrintJob PrintDialog::Job() const {
  return {.printer = FromQt(printer_->currentData().toString()),
          .title = {},
          .copies = copies_->text().toInt(),
          .pages = FromQt(pages_->text().remove(QLatin1Char(' ')))};
}

}  // namespace zendara

#include "apps/desk/start/chooser.hpp"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"
#include "runtime/date.hpp"

namespace zendara {

Chooser::Chooser(const QString& place, std::vector<Company> companies, const std::vector<ScreenChoice>& screens,
                 std::function<void(const Company&, const std::string&, const std::string&)> open,
                 std::function<void()> other_folder, std::function<void()> server, QWidget* parent)
    : QWidget(parent), companies_(std::move(companies)), open_(std::move(open)) {
  list_ = new QListWidget(this);
  for (const Company& company : companies_) list_->addItem(ToQt(company.code + "  " + company.name));
  years_ = new QComboBox(this);
  auto* company_label = new QLabel(QStringLiteral("&Empresa:"), this);
  company_label->setBuddy(list_);
  auto* year_label = new QLabel(QStringLiteral("A&ño:"), this);
  year_label->setBuddy(years_);
  list_->setAccessibleName(QStringLiteral("Empresa"));
  years_->setAccessibleName(QStringLiteral("Año"));

  auto* column = new QVBoxLayout(this);
  column->addWidget(company_label);
  column->addWidget(list_);
  auto* year = new QHBoxLayout;
  year->addWidget(year_label);
  year->addWidget(years_);
  year->addStretch();
  column->addLayout(year);
  auto* group = new QGroupBox(QStringLiteral("Pantallas"), this);
  auto* buttons = new QVBoxLayout(group);
  for (const ScreenChoice& choice : screens) {
    auto* button = new QPushButton(choice.words, group);
    button->setEnabled(choice.why_not.isEmpty());
    button->setToolTip(choice.why_not);
    connect(button, &QPushButton::clicked, this, [this, screen = choice.screen, button] {
      const Company* company = ChosenCompany();
      if (!company || ChosenYear().empty()) return;
      open_(*company, ChosenYear(), screen);
      window()->activateWindow();
      button->setFocus();
    });
    buttons->addWidget(button);
    buttons_.push_back(button);
  }
  column->addWidget(group);
  auto* place_label = new QLabel(place, this);
  place_label->setTextFormat(Qt::PlainText);
  place_label->setWordWrap(true);
  column->addWidget(place_label);
  auto* others = new QHBoxLayout;
  others->addStretch();
  const std::pair<QString, std::function<void()>> ways[] = {
      {QStringLiteral("Otra &carpeta..."), std::move(other_folder)},
      {QStringLiteral("Conectar con un servi&dor..."), std::move(server)}};
  for (const auto& [words, way] : ways) {
    auto* button = new QPushButton(words, this);
    connect(button, &QPushButton::clicked, this, way);
    others->addWidget(button);
    buttons_.push_back(button);
  }
  column->addLayout(others);
  column->addWidget(new QLabel(QStringLiteral("Intro abre la pantalla marcada. F1 ayuda. Esc sale."), this));

  connect(list_, &QListWidget::currentRowChanged, this, [this] { ShowYears(); });
  Rescale();
  list_->setCurrentRow(0);
  list_->setFocus();
}

void Chooser::Select(const std::string& company, const std::string& year) {
  for (std::size_t i = 0; i < companies_.size(); ++i) {
    if (companies_[i].code == company) list_->setCurrentRow(static_cast<int>(i));
  }
  if (const int found = years_->findData(ToQt(year)); found >= 0) years_->setCurrentIndex(found);
}

const Company* Chooser::ChosenCompany() const {
  const int row = list_->currentRow();
  return row < 0 ? nullptr : &companies_[static_cast<std::size_t>(row)];
}

std::string Chooser::ChosenYear() const { return FromQt(years_->currentData().toString()); }

// The same year of another company, if it has it.
void Chooser::ShowYears() {
  const QVariant kept = years_->currentData();
  years_->clear();
  const Company* company = ChosenCompany();
  if (!company) return;
  for (const std::string& year : company->years) {
    years_->addItem(QString::number(FullWorkingYear(std::stoi(year))), ToQt(year));
  }
  if (const int same = years_->findData(kept); same >= 0) years_->setCurrentIndex(same);
}

void Chooser::PressEnter() {
  auto* focused = qobject_cast<QPushButton*>(window()->focusWidget());
  for (QPushButton* button : buttons_) {
    if (!focused && button->isEnabled()) focused = button;
  }
  if (focused) focused->click();
}

void Chooser::Rescale() {
  const QFontMetrics metrics(QApplication::font());
  list_->setMinimumSize(TextWidth(metrics, 44), metrics.height() * 8);
  for (int row = 0; row < list_->count(); ++row) list_->item(row)->setSizeHint({0, RowHeight(metrics)});
  layout()->setSpacing(metrics.height() / 2);
  const int margin = metrics.height();
  layout()->setContentsMargins(margin, margin, margin, margin);
}

}  // namespace zendara

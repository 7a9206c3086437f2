#include "apps/desk/chooser.hpp"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "adapters/qt/keys.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {

Chooser::Chooser(std::vector<Company> companies, const std::vector<ScreenChoice>& screens,
                 std::function<void(const Company&, const std::string&, const std::string&)> open)
    : companies_(std::move(companies)), open_(std::move(open)) {
  setWindowTitle(QStringLiteral("Zendara"));
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
      const int row = list_->currentRow();
      if (row < 0 || years_->currentIndex() < 0) return;
      const Company& company = companies_[static_cast<std::size_t>(row)];
      open_(company, company.years[static_cast<std::size_t>(years_->currentIndex())], screen);
      activateWindow();
      button->setFocus();
    });
    buttons->addWidget(button);
    buttons_.push_back(button);
  }
  column->addWidget(group);
  auto* hint = new QLabel(QStringLiteral("Intro abre la pantalla marcada. Esc sale."), this);
  column->addWidget(hint);

  connect(list_, &QListWidget::currentRowChanged, this, [this] { ShowYears(); });
  zoom::Watch(this, [this] { Rescale(); });
  Rescale();
  list_->setCurrentRow(0);
  list_->setFocus();
}

void Chooser::Select(const std::string& company, const std::string& year) {
  for (std::size_t i = 0; i < companies_.size(); ++i) {
    if (companies_[i].code == company) list_->setCurrentRow(static_cast<int>(i));
  }
  const int found = year.empty() ? -1 : years_->findText(ToQt(year));
  if (found >= 0) years_->setCurrentIndex(found);
}

void Chooser::ShowYears() {
  const QString kept = years_->currentText();
  years_->clear();
  const int row = list_->currentRow();
  if (row < 0) return;
  for (const std::string& year : companies_[static_cast<std::size_t>(row)].years) years_->addItem(ToQt(year));
  if (const int same = years_->findText(kept); same >= 0) years_->setCurrentIndex(same);
}

// Enter presses the first screen there is, or the one that has the keyboard.
void Chooser::keyPressEvent(QKeyEvent* event) {
  if (HandleZoomKey(*event)) return;
  if (event->key() == Qt::Key_Escape) {
    close();
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    for (QPushButton* button : buttons_) {
      if (!focused && button->isEnabled()) focused = button;
    }
    if (focused) focused->click();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void Chooser::Rescale() {
  const QFontMetrics metrics(QApplication::font());
  list_->setMinimumSize(TextWidth(metrics, 44), metrics.height() * 8);
  layout()->setSpacing(metrics.height() / 2);
  const int margin = metrics.height();
  layout()->setContentsMargins(margin, margin, margin, margin);
  adjustSize();
}

}  // namespace zendara

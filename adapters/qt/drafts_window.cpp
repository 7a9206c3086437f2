#include "adapters/qt/drafts_window.hpp"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "adapters/qt/keys.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/message_box.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

constexpr int kRowsShown = 12;
constexpr int kCharactersAcross = 100;

}  // namespace

DraftsWindow::DraftsWindow(Form& form, QWidget* parent) : QDialog(parent), form_(form) {
  setWindowModality(Qt::ApplicationModal);
  setWindowTitle(QStringLiteral("Borradores: ") + ToQt(form.Title().empty() ? form.Name() : form.Title()));
  table_ = new QTableWidget(0, 3, this);
  table_->setAccessibleName(windowTitle());
  table_->setHorizontalHeaderLabels(
      {QStringLiteral("Ficha"), QStringLiteral("Escrito el"), QStringLiteral("Sin grabar")});
  table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  table_->horizontalHeader()->setStretchLastSection(true);
  table_->verticalHeader()->hide();
  table_->setShowGrid(false);
  table_->setAlternatingRowColors(true);
  table_->setWordWrap(false);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setTabKeyNavigation(false);
  table_->installEventFilter(this);
  hint_ = new QLabel(this);
  auto* column = new QVBoxLayout(this);
  column->addWidget(table_);
  column->addWidget(hint_);
  connect(table_, &QTableWidget::cellDoubleClicked, this, [this] { Choose(); });
  zoom::Watch(this, [this] { Rescale(); });
  Fill();
  table_->setFocus();
}

void DraftsWindow::Fill() {
  const int row = std::max(table_->currentRow(), 0);
  drafts_ = form_.Drafts();
  table_->setRowCount(static_cast<int>(drafts_.size()));
  for (int i = 0; i < table_->rowCount(); ++i) {
    const KeptDraft& kept = drafts_[static_cast<std::size_t>(i)];
    int place = 0;
    for (const QString& text : {ToQt(kept.draft.title), ToQt(kept.when), Summary(kept.draft)}) {
      auto* item = new QTableWidgetItem(text);
      item->setToolTip(text);
      table_->setItem(i, place++, item);
    }
  }
  if (!drafts_.empty()) table_->setCurrentCell(std::min(row, table_->rowCount() - 1), 0);
  hint_->setText(drafts_.empty() ? QStringLiteral("No hay nada escrito sin grabar. Esc cierra.")
                                 : QStringLiteral("Intro recupera, Supr elimina, Esc cierra."));
  Rescale();
}

// "Apellido 1: Peña; Nombre: Begoña"
QString DraftsWindow::Summary(const Draft& draft) const {
  QStringList parts;
  for (const auto& [id, text] : draft.values) {
    if (text.empty()) continue;
    const Control* control = form_.Find(std::string_view(id).substr(0, id.find('[')));
    const QString name = control ? PlainCaption(control->Caption()) : QString();
    parts << (name.isEmpty() ? ToQt(text) : name + QStringLiteral(": ") + ToQt(text));
  }
  return parts.join(QStringLiteral("; "));
}

void DraftsWindow::Choose() {
  if (table_->currentRow() < 0) return;
  chosen_ = drafts_[static_cast<std::size_t>(table_->currentRow())].id;
  accept();
}

void DraftsWindow::Remove() {
  if (table_->currentRow() < 0) return;
  const KeptDraft& kept = drafts_[static_cast<std::size_t>(table_->currentRow())];
  const Box question{.text = "¿Desea eliminar lo que escribió en " + kept.draft.title + "? No se podrá recuperar.",
                     .buttons = BoxButtons::kYesNo,
                     .icon = BoxIcon::kQuestion,
                     .default_button = 2};
  const BoxAnswer answer = MessageBox(question, windowTitle(), {}, this).Ask();
  activateWindow();
  if (answer != BoxAnswer::kYes) return;
  form_.RemoveDraft(kept.id);
  Fill();
}

bool DraftsWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const auto& pressed = *static_cast<QKeyEvent*>(event);
  if (HandleZoomKey(pressed)) return true;
  switch (pressed.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Choose();
      return true;
    case Qt::Key_Delete:
      Remove();
      return true;
    default:
      return QDialog::eventFilter(watched, event);
  }
}

void DraftsWindow::Rescale() {
  const int height = RowHeight(table_->fontMetrics());
  table_->verticalHeader()->setMinimumSectionSize(height);
  table_->verticalHeader()->setDefaultSectionSize(height);
  for (const int column : {0, 1}) table_->resizeColumnToContents(column);
  const int rows = std::clamp(table_->rowCount(), 4, kRowsShown);
  table_->setMinimumHeight(rows * height + table_->horizontalHeader()->sizeHint().height() + 2 * table_->frameWidth());
  table_->setMinimumWidth(TextWidth(table_->fontMetrics(), kCharactersAcross));
  adjustSize();
}

}  // namespace zendara

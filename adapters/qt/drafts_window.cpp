#include "adapters/qt/drafts_window.hpp"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "adapters/qt/fit.hpp"
#include "adapters/qt/keys.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/own_window.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

constexpr int kRowsShown = 12;
constexpr int kCharactersAcross = 140;
constexpr int kWidestPlace = 34;  // characters of a column that is not the last

}  // namespace

DraftsWindow::DraftsWindow(Form& form, Dialogs& boxes, QWidget* parent) : QDialog(parent), form_(form), boxes_(boxes) {
  BeginOwnWindow(*this);
  setWindowModality(Qt::ApplicationModal);
  setWindowTitle(QStringLiteral("Borradores"));
  const QStringList headings = {QStringLiteral("Pantalla"), QStringLiteral("Empresa y año"), QStringLiteral("Ficha"),
                                QStringLiteral("Escrito el"), QStringLiteral("Sin grabar")};
  table_ = new QTableWidget(0, static_cast<int>(headings.size()), this);
  table_->setAccessibleName(windowTitle());
  table_->setHorizontalHeaderLabels(headings);
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
  hint_->setWordWrap(true);
  auto* column = new QVBoxLayout(this);
  column->addWidget(table_);
  column->addWidget(hint_);
  connect(table_, &QTableWidget::cellDoubleClicked, this, [this] { Choose(); });
  connect(table_, &QTableWidget::currentCellChanged, this, [this] { ShowHint(); });
  zoom::Watch(this, [this] { Rescale(); });
  Fill();
  table_->setFocus();
}

void DraftsWindow::Fill() {
  const int row = std::max(table_->currentRow(), 0);
  drafts_ = form_.Drafts();
  why_not_here_.clear();
  for (const KeptDraft& kept : drafts_) why_not_here_.push_back(form_.WhyNotHere(kept.draft));
  table_->setRowCount(static_cast<int>(drafts_.size()));
  for (int i = 0; i < table_->rowCount(); ++i) {
    const auto& [id, when, draft] = drafts_[static_cast<std::size_t>(i)];
    const bool here = why_not_here_[static_cast<std::size_t>(i)].empty();
    int place = 0;
    for (const QString& text :
         {ToQt(draft.screen_title.empty() ? draft.screen : draft.screen_title),
          ToQt(draft.place.empty() ? draft.scope : draft.place), ToQt(draft.title), ToQt(when), Summary(draft)}) {
      auto* item = new QTableWidgetItem(text);
      item->setToolTip(text);
      if (!here) item->setForeground(ColourOf(Role::kQuiet));
      table_->setItem(i, place++, item);
    }
  }
  if (!drafts_.empty()) table_->setCurrentCell(std::min(row, table_->rowCount() - 1), 0);
  ShowHint();
  Rescale();
}

const KeptDraft* DraftsWindow::Current() const {
  const auto row = static_cast<std::size_t>(table_->currentRow());  // without one it is none of them
  return row < drafts_.size() ? &drafts_[row] : nullptr;
}

void DraftsWindow::ShowHint() {
  const KeptDraft* current = Current();
  if (!current) return hint_->setText(QStringLiteral("No hay nada escrito sin grabar. Esc cierra."));
  const QString why = ToQt(why_not_here_[static_cast<std::size_t>(table_->currentRow())]);
  hint_->setText((why.isEmpty() ? QStringLiteral("Intro recupera,") : why) +
                 QStringLiteral(" Supr elimina, Esc cierra."));
}

// "Apellido 1: Peña; Nombre: Begoña"; the fields of other screens have no names here.
QString DraftsWindow::Summary(const Draft& draft) const {
  QStringList parts;
  for (const auto& [id, text] : draft.values) {
    if (text.empty()) continue;
    const bool known = draft.screen == form_.Name();
    const Control* control = known ? form_.Find(std::string_view(id).substr(0, id.find('['))) : nullptr;
    const QString name = control ? PlainCaption(control->Caption()) : QString();
    parts << (name.isEmpty() ? ToQt(text) : name + QStringLiteral(": ") + ToQt(text));
  }
  return parts.join(QStringLiteral("; "));
}

void DraftsWindow::Choose() {
  const KeptDraft* current = Current();
  if (!current || !why_not_here_[static_cast<std::size_t>(table_->currentRow())].empty()) return;
  chosen_ = current->id;
  accept();
}

void DraftsWindow::Remove() {
  const KeptDraft* current = Current();
  if (!current) return;
  const Box question{.text = "¿Desea eliminar lo que escribió en " + current->draft.title + "? No se podrá recuperar.",
                     .buttons = BoxButtons::kYesNo,
                     .icon = BoxIcon::kQuestion,
                     .title = FromQt(windowTitle()),
                     .default_button = 2};
  const BoxAnswer answer = boxes_.Show(question);
  activateWindow();
  if (answer != BoxAnswer::kYes) return;
  // Nothing may fly through the toolkit.
  form_.Run([&] {
    form_.RemoveDraft(current->id);
    Fill();
  });
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
  const int widest = TextWidth(table_->fontMetrics(), kWidestPlace);
  for (int column = 0; column + 1 < table_->columnCount(); ++column) {
    table_->resizeColumnToContents(column);
    table_->setColumnWidth(column, std::min(table_->columnWidth(column), widest));
  }
  const int rows = std::clamp(table_->rowCount(), 4, kRowsShown);
  table_->setMinimumHeight(rows * height + table_->horizontalHeader()->sizeHint().height() + 2 * table_->frameWidth());
  const QMargins margins = layout()->contentsMargins();
  const int room = RoomFor(*this).width() - margins.left() - margins.right();
  table_->setMinimumWidth(std::min(TextWidth(table_->fontMetrics(), kCharactersAcross), room));
  adjustSize();
}

}  // namespace zendara

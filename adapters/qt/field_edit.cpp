#include "adapters/qt/field_edit.hpp"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include "adapters/qt/text.hpp"
#include "runtime/text.hpp"

namespace zendara {

void FieldEdit::Press(int code, int shift) {
  window_.Pass([&] { window_.Shown().Press({.code = code, .shift = shift, .text = {}}); });
}

void FieldEdit::Copy() {
  if (box_.SelLength() > 0) QGuiApplication::clipboard()->setText(ToQt(box_.SelectedText()));
}

void FieldEdit::Cut() {
  Copy();
  if (box_.SelLength() > 0) Press(key::kDelete);
}

void FieldEdit::Paste() {
  const std::string text = FromQt(QGuiApplication::clipboard()->text());
  window_.Pass([&] { window_.Shown().Paste(text); });
}

void FieldEdit::SelectAll() {
  window_.Pass([&] { window_.Shown().PointTo(box_, 0, static_cast<int>(Len(box_.Text()))); });
}

bool FieldEdit::HandleKey(const QKeyEvent& event) {
  const bool menu_key =
      event.key() == Qt::Key_Menu || (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
  if (menu_key) {
    OpenMenu(edit_.mapToGlobal(edit_.rect().bottomLeft()));
  } else if (event.matches(QKeySequence::Paste)) {
    Paste();
  } else if (event.matches(QKeySequence::SelectAll)) {
    SelectAll();
  } else if (event.matches(QKeySequence::Cut)) {
    Cut();
  } else if (event.matches(QKeySequence::Copy)) {
    Copy();
  } else {
    return false;
  }
  return true;
}

void FieldEdit::OpenMenu(QPoint global) {
  Form& form = window_.Shown();
  if (!box_.HasFocus()) window_.Pass([&] { form.Click(box_); });
  if (!box_.TakesInput()) return;
  auto* menu = new QMenu(&edit_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const bool types = !box_.Locked();
  const bool selected = box_.SelLength() > 0;
  const bool pastes = types && !QGuiApplication::clipboard()->text().isEmpty();
  // The keys are the model's: here they are words.
  const auto add = [&](const char* words, bool enabled, auto deed) {
    menu->addAction(QString::fromUtf8(words), deed)->setEnabled(enabled);
  };
  add("&Deshacer\tCtrl+Z", box_.CanUndo(), [this] { Press('Z', key::kControl); });
  add("&Rehacer\tCtrl+Y", box_.CanRedo(), [this] { Press('Y', key::kControl); });
  menu->addSeparator();
  add("Cor&tar\tCtrl+X", types && selected, [this] { Cut(); });
  add("&Copiar\tCtrl+C", selected, [this] { Copy(); });
  add("&Pegar\tCtrl+V", pastes, [this] { Paste(); });
  add("&Eliminar\tSupr", types && selected, [this] { Press(key::kDelete); });
  menu->addSeparator();
  add("&Seleccionar todo\tCtrl+A", !box_.Text().empty(), [this] { SelectAll(); });
  if (form.Host().Drafts()) {
    menu->addSeparator();
    add("&Borradores...\tCtrl+Mayús+Z", true, [this] { Press('Z', key::kControl | key::kShift); });
  }
  menu->popup(global);
}

}  // namespace zendara

// What a desktop does to the text of a field besides typing: clipboard and context menu. All of it goes through the
// form.
#pragma once

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>

#include "adapters/qt/form_window.hpp"

namespace zendara {

class FieldEdit {
 public:
  // Nothing is owned.
  FieldEdit(FormWindow& window, TextBox& box, QLineEdit& edit) : window_(window), box_(box), edit_(edit) {}

  // The keys of the clipboard and of the menu. False for a key that has nothing to do with it.
  bool HandleKey(const QKeyEvent& event);
  // Of a right click: the field gets the focus first, and the menu opens only if it comes to rest there.
  void OpenMenu(QPoint global);

 private:
  void Press(int code, int shift = 0);
  void Copy();
  void Cut();
  void Paste();
  void SelectAll();

  FormWindow& window_;
  TextBox& box_;
  QLineEdit& edit_;
};

}  // namespace zendara

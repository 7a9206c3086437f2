// Which server: a window with one field.
#pragma once

#include <QDialog>
#include <functional>

class QLineEdit;

namespace zendara {

// Enter connects, Esc leaves.
class ServerDialog : public QDialog {
 public:
  // `use` is given what was typed, and says what is wrong with it; false: the window stays with it.
  ServerDialog(const QString& proposed, std::function<bool(const QString& connection)> use, QWidget* parent);

 private:
  QLineEdit* connection_;
};

}  // namespace zendara

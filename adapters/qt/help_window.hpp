// The help: pages in Markdown with links between them. Esc closes it.
#pragma once

#include <QDialog>

class QTextBrowser;

namespace zendara {

class HelpWindow : public QDialog {
 public:
  HelpWindow(int context, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Open(const QUrl& page);

  QTextBrowser* browser_;
};

}  // namespace zendara

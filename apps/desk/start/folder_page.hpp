// The page of the first window where there is no company: makes one to try things on, or asks for another place.
#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace zendara {

class FolderPage : public QWidget {
 public:
  // `make` is given the place of a demonstration to write, `choose` asks for a folder with companies, `server` for a
  // server.
  FolderPage(std::function<void(const QString& place)> make, std::function<void()> choose, std::function<void()> server,
             QWidget* parent);

  // Where the demonstration may go.
  void Propose(const QString& place);

  // Why the page is shown, or what did not work.
  void Tell(const QString& words);
  // While the demonstration is being written nothing else can be begun. `of` 0: it is not known yet how much there is.
  void ShowProgress(int done, int of);
  void ShowIdle();
  void PressEnter();

 private:
  QLabel* words_;
  void Enable(bool enabled);

  QLineEdit* place_;
  QProgressBar* progress_;
  QPushButton* browse_;
  QPushButton* make_;
  QPushButton* choose_;
  QPushButton* server_;
};

// Asks for a folder in a window of its own; empty if the user leaves it.
QString AskFolder(QWidget* parent, const QString& title, const QString& start);

}  // namespace zendara

// The help: pages in Markdown with links between them, and a line to search all of them. It stays open beside the
// screens, whatever window is modal.
#pragma once

#include <QPointer>
#include <QUrl>
#include <QWidget>
#include <vector>

#include "adapters/qt/help_pages.hpp"
#include "adapters/qt/window_places.hpp"
#include "zendara/forms/form.hpp"

class QLabel;
class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace zendara {

class HelpWindow : public QWidget {
 public:
  // `places` keeps where it stood, and outlives it.
  explicit HelpWindow(WindowPlaces& places);

  // Shows that place of the context's page, in front and with the keyboard.
  void Open(int context, const HelpPlace& place);
  // The same with what the pages say of a message: where most of its words stand, from the first one on. Numbers in it
  // do not count.
  void Explain(const QString& message);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void ShowBeside();
  void FollowModal();
  void GiveKeyboardBack();
  bool HandleOwnKey(const QKeyEvent& event);
  void SetTextSize(int percent);
  void Search();
  void GoToHit();
  // The words where they first stand in these paragraphs, brought to sight.
  void Mark(const QString& words, int first_block, int last_block);
  void ScrollTo(int block);

  WindowPlaces& places_;
  QTextBrowser* browser_ = nullptr;
  QLineEdit* search_;
  QListWidget* found_;
  QLabel* nothing_;
  std::vector<HelpHit> hits_;
  QMetaObject::Connection modal_closed_;
  QPointer<QWidget> before_;  // had the keyboard when the help was opened
  int percent_ = 100;         // of the text of the windows
};

}  // namespace zendara

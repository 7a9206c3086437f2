// The window of one form: shows the model, passes keys and mouse in, decides nothing.
#pragma once

#include <QEvent>
#include <QLabel>
#include <QMargins>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "zendara/forms/form.hpp"

class QScrollArea;

namespace zendara {

class FormWindow;
class FormHeading;
class StatusLine;

// One control and the widget that shows it.
class ControlView {
 public:
  ControlView(FormWindow& window, Control& control, QWidget* widget);
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  Control& Shown() const { return control_; }
  QWidget* Widget() const { return widget_; }
  // What has the keyboard when the control has the focus.
  virtual QWidget* FocusTarget() const { return widget_; }
  // Shown and hidden with the control.
  void SetLabel(QLabel* label);

  // Brings the widget in step with the model.
  virtual void Sync();
  // The font has another size.
  virtual void Rescale() {}
  // An event of the widget or of one that it watches. True: done, the widget does not see it.
  virtual bool Handle(QObject* watched, QEvent* event);
  // As the mouse would, for scripts. REQUIRES: the widget is to be seen.
  virtual void ClickOn(int row, int column);
  // A button: a click on the widget is no more than a click on the control.
  virtual bool IsButton() const { return false; }
  // Name of a control that stands behind a field and has no words of its own.
  virtual QString NameBehind(const QString& field) const { return field; }

 protected:
  // Events of this widget come to Handle as well.
  void Watch(QWidget* widget);

  FormWindow& window_;
  Control& control_;
  QWidget* widget_;

 private:
  QPointer<QLabel> label_;
};

class FormWindow : public QWidget, public FormView {
 public:
  explicit FormWindow(Form& form, QWidget* parent = nullptr);
  ~FormWindow() override;

  Form& Shown() const { return form_; }
  ControlView* ViewOf(const Control& control) const;

  // Runs what an event means to the form, then shows what became of it.
  void Pass(const std::function<void()>& call);
  // Shows at once what has changed. Otherwise it waits for the end of the event.
  void Flush();
  // True while the widgets are brought in step, when what they signal is no user's doing.
  bool Syncing() const { return syncing_; }
  // Called when the form was unloaded, as the last thing: it may end this window.
  void OnUnloaded(std::function<void()> unloaded) { unloaded_ = std::move(unloaded); }

  // Ctrl+P; without it the key is one for the form.
  void OnKeep(std::function<void()> keep) { keep_ = std::move(keep); }

  // Size of the content, within the screen and with its frame. Centred at first; once it is shown it stays where it is
  // as far as that goes.
  void Fit();
  // Where the control stands in the window, which need not be shown yet. REQUIRES: it has a view.
  QRect PlaceOf(const Control& control);

  // While the form answers an event: the control that its box is about, if it holds what the user enters. Otherwise
  // nullptr.
  const Control* EnteredField() const;
  // Shows that a box is about that control. Nothing if the window does not show it.
  void Mark(const Control& control, bool marked);
  // Where it is on the screen; empty while its page is not in front. REQUIRES: it has a view.
  QRect OnScreen(const Control& control) const;

  void ControlChanged(const Control& control) override;
  void FocusMoved() override;
  void FormChanged() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  friend class ControlView;

  // No exception may fly through the toolkit: one that escapes is shown as that of an event.
  void Guard(const std::function<void()>& call);
  void ShowChanges();
  void Build();
  void Rescale();
  void Grow();
  void HeedFrame();
  void ShowStatus();
  QSize SizeIn(QSize room) const;
  void Queue();
  bool PressKeys(const QKeyEvent& event);
  void ShowFocus();
  void Reveal(const QWidget& widget);
  void ShowTitle();

  Form& form_;
  QWidget* content_ = nullptr;
  QScrollArea* scroll_ = nullptr;   // around the content; none where parts of it scroll
  FormHeading* heading_ = nullptr;  // in the content, if the form has one
  StatusLine* status_ = nullptr;    // below the content, always there
  std::map<const Control*, std::unique_ptr<ControlView>> views_;
  std::map<QObject*, ControlView*> watched_;
  std::set<const Control*> changed_;
  QMargins frame_;                        // that Fit has reckoned with
  QSize wanted_;                          // by the content when the window was fitted
  const Control* shown_focus_ = nullptr;  // whose field was shown with the focus
  bool focus_moved_ = true;
  bool form_changed_ = true;
  bool queued_ = false;
  int passing_ = 0;  // events within events
  bool syncing_ = false;
  std::function<void()> unloaded_;
  std::function<void()> keep_;
};

}  // namespace zendara

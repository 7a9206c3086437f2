#include "adapters/qt/form_window.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QScrollArea>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "adapters/qt/fit.hpp"
#include "adapters/qt/form_layout.hpp"
#include "adapters/qt/heading.hpp"
#include "adapters/qt/input_events.hpp"
#include "adapters/qt/keys.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/names.hpp"
#include "adapters/qt/own_window.hpp"
#include "adapters/qt/status_line.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

// Room for the words before a field that is scrolled to, in heights of a line.
constexpr int kLinesOfLabel = 12;

}  // namespace

// Views.

ControlView::ControlView(FormWindow& window, Control& control, QWidget* widget)
    : window_(window), control_(control), widget_(widget) {
  // Reached by the model alone: neither a click nor Tab moves the focus by itself.
  widget->setFocusPolicy(control.TakesFocus() ? Qt::TabFocus : Qt::NoFocus);
  widget->setMouseTracking(true);
  widget->setObjectName(ToQt(control.Id()));
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
  Watch(widget);
}

void ControlView::SetLabel(QLabel* label) {
  label_ = label;
  label->setBuddy(FocusTarget());  // what it is the label of, for screen readers
}

void ControlView::Watch(QWidget* widget) {
  window_.watched_[widget] = this;
  widget->installEventFilter(&window_);
}

void ControlView::Sync() {
  widget_->setVisible(control_.Visible());
  widget_->setEnabled(control_.Enabled());
  if (label_) label_->setVisible(control_.Visible());
  QString hint = ToQt(control_.ToolTipText()).trimmed();
  if (control_.Required()) hint += (hint.isEmpty() ? QString() : QStringLiteral(". ")) + QStringLiteral("Obligatorio");
  if (widget_->toolTip() != hint) {
    widget_->setToolTip(hint);
    widget_->setAccessibleDescription(hint);
  }
  const bool by_place = control_.TakesFocus() && (control_.IsEntered() || !IsButton());
  const QString name = by_place ? NameOf(control_) : PlainCaption(control_.Caption());
  QWidget* spoken = FocusTarget();
  if (!name.isEmpty() && spoken->accessibleName() != name) spoken->setAccessibleName(name);
}

bool ControlView::Handle(QObject* /*watched*/, QEvent* event) {
  if (event->type() != QEvent::MouseMove) return false;
  const auto* mouse = static_cast<QMouseEvent*>(event);
  window_.Pass([&] { window_.Shown().MouseOver(control_, mouse->buttons() == Qt::RightButton); });
  return false;
}

void ControlView::ClickOn(int /*row*/, int /*column*/) { ClickWidget(*widget_, widget_->rect().center()); }

// Window.

FormWindow::FormWindow(Form& form, QWidget* parent) : QWidget(parent, Qt::Window), form_(form) {
  BeginOwnWindow(*this);
  setWindowModality(Qt::ApplicationModal);
  Build();
  form_.SetView(this);
  for (const auto& [control, view] : views_) changed_.insert(control);
  Flush();
  Rescale();
  zoom::Watch(this, [this] {
    Rescale();
    Fit();
  });
}

FormWindow::~FormWindow() {
  if (form_.View() == this) form_.SetView(nullptr);
}

void FormWindow::Build() {
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(0);
  content_ = new QWidget(this);
  BuildLayout(*this, form_.GetLayout(), *content_,
              [this](std::unique_ptr<ControlView> view, Control& control) { views_[&control] = std::move(view); });
  heading_ = static_cast<FormHeading*>(content_->findChild<QLabel*>(QLatin1String(kHeadingName)));
  if (HasScrolledPart(form_.GetLayout())) {
    outer->addWidget(content_, 1);
  } else {
    scroll_ = new QScrollArea(this);
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidget(content_);
    outer->addWidget(scroll_, 1);
  }
  status_ = new StatusLine(this);
  outer->addWidget(status_);
  content_->installEventFilter(this);
}

ControlView* FormWindow::ViewOf(const Control& control) const {
  const auto view = views_.find(&control);
  return view == views_.end() ? nullptr : view->second.get();
}

void FormWindow::Rescale() {
  for (const auto& [control, view] : views_) view->Rescale();
  RescaleSpacing(*content_);
}

// Of the content; lines that find no room go on further ones.
QSize FormWindow::SizeIn(QSize room) const {
  const QSize wanted = content_->sizeHint();
  if (scroll_ || wanted.width() <= room.width() || !content_->hasHeightForWidth()) return wanted;
  return {room.width(), content_->heightForWidth(room.width())};
}

void FormWindow::Fit() {
  frame_ = FrameOf(*this);
  const QRect room = RoomFor(*this);
  RenewSizes(*content_);
  wanted_ = content_->sizeHint();
  const QSize wanted = SizeIn(room.size());
  // Scrolled, never squeezed.
  if (scroll_) content_->setMinimumSize(wanted);
  if (isMaximized()) return;
  QSize size = wanted + QSize(0, status_->HeightFor(wanted.width()));
  // What does not fit on the screen is scrolled, and the bar needs its own place.
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 2;
  if (size.height() > room.height()) size.rwidth() += bar;
  if (wanted.width() > room.width()) size.rheight() += bar;
  size = size.boundedTo(room.size());
  setMinimumSize(size.boundedTo(QSize(320, 240)));
  resize(size);
  if (isVisible()) return KeepOnScreen(*this);
  const QSize left = (room.size() - size) / 2;
  move(room.topLeft() + QPoint(left.width() - frame_.left(), left.height() - frame_.top()));
}

// The window manager has put its frame around the window, which may be larger than was reckoned with. For a smaller one
// nothing is moved: a banner may already know its place.
void FormWindow::HeedFrame() {
  if (!isVisible() || isMaximized() || isMinimized() || (FrameOf(*this) | frame_) == frame_) return;
  frame_ = FrameOf(*this);
  QMetaObject::invokeMethod(
      this,
      [this] {
        // A size that the user gave it stays where there is room for it.
        if (size().boundedTo(RoomFor(*this).size()) != size()) return Fit();
        KeepOnScreen(*this);
      },
      Qt::QueuedConnection);
}

// Some say so only by giving it the keyboard.
void FormWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ActivationChange) HeedFrame();
}

void FormWindow::moveEvent(QMoveEvent* /*event*/) { HeedFrame(); }

void FormWindow::resizeEvent(QResizeEvent* /*event*/) { HeedFrame(); }

QRect FormWindow::PlaceOf(const Control& control) {
  Flush();
  const QWidget* widget = ViewOf(control)->Widget();
  if (isVisible()) return {widget->mapTo(this, QPoint(0, 0)), widget->size()};
  // Nothing is laid out by itself before it is shown; the content begins in the window's corner then.
  Fit();
  const QSize above_status = size() - QSize(0, status_->HeightFor(width()));
  content_->resize(above_status.expandedTo(content_->minimumSize()));
  content_->layout()->setGeometry(content_->rect());
  return {widget->mapTo(content_, QPoint(0, 0)), widget->size()};
}

void FormWindow::Grow() {
  const QSize needed = content_->sizeHint();
  if (needed.width() > wanted_.width() || needed.height() > wanted_.height()) Fit();
}

// In.

void FormWindow::Pass(const std::function<void()>& call) {
  ++passing_;
  Guard(call);
  --passing_;
  Flush();
}

void FormWindow::Guard(const std::function<void()>& call) {
  try {
    call();
  } catch (...) {
    form_.Run([] { throw; });
  }
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  // What the content needs more than it had, by a wider text in a grid for one.
  if (watched == content_) {
    if (event->type() == QEvent::LayoutRequest && isVisible() && !isMaximized()) Grow();
    return false;
  }
  const auto found = watched_.find(watched);
  if (found == watched_.end()) return false;
  ControlView* view = found->second;
  if (view->Handle(watched, event)) return true;
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      event->accept();
      return true;
    case QEvent::KeyPress:
      return PressKeys(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease:
      return true;
    case QEvent::Wheel:  // would change lists and pages on the way
      event->ignore();
      return true;
    case QEvent::FocusIn: {
      const auto reason = static_cast<QFocusEvent*>(event)->reason();
      const bool given_back = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
      if (syncing_ || given_back || &view->Shown() == form_.Focus()) return false;
      // Set from outside, by a screen reader for one: the model decides whether it stays there.
      focus_moved_ = true;
      QMetaObject::invokeMethod(
          this,
          [this, view] {
            focus_moved_ = true;
            Pass([&] {
              form_.Run([&] {
                if (view->Shown().CanFocus()) form_.SetFocus(view->Shown());
              });
            });
          },
          Qt::QueuedConnection);
      return false;
    }
    default:
      return false;
  }
}

void FormWindow::keyPressEvent(QKeyEvent* event) { PressKeys(*event); }

bool FormWindow::PressKeys(const QKeyEvent& event) {
  if (HandleZoomKey(event)) return true;
  if (keep_ && IsKeepKey(event)) {
    keep_();
    return true;
  }
  for (const Key& key : KeysOf(event)) {
    if (form_.Loaded()) Pass([&] { form_.Press(key); });
  }
  return true;
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form says whether it goes
  // Nobody but an application that ends asks this of a window behind others: these go first.
  for (QWidget* modal = QApplication::activeModalWidget(); modal && modal != this;
       modal = QApplication::activeModalWidget()) {
    if (!modal->close()) return;
  }
  Pass([&] { form_.Close(); });
  event->setAccepted(!form_.Loaded());
}

bool FormWindow::focusNextPrevChild(bool /*next*/) { return false; }

// Out.

void FormWindow::ControlChanged(const Control& control) {
  changed_.insert(&control);
  Queue();
}

void FormWindow::FocusMoved() {
  focus_moved_ = true;
  Queue();
}

void FormWindow::FormChanged() {
  form_changed_ = true;
  Queue();
  if (form_.Loaded() || !unloaded_) return;
  const auto unloaded = unloaded_;
  unloaded();
}

void FormWindow::Queue() {
  if (queued_) return;
  queued_ = true;
  QMetaObject::invokeMethod(
      this, [this] { Flush(); }, Qt::QueuedConnection);
}

void FormWindow::Flush() {
  queued_ = false;
  if (syncing_) return;
  syncing_ = true;
  Guard([this] { ShowChanges(); });
  syncing_ = false;
}

void FormWindow::ShowChanges() {
  if (std::exchange(form_changed_, false)) {
    ShowStatus();
    // The hourglass takes no input away.
    if (form_.Pointer() == MousePointer::kHourglass) {
      setCursor(Qt::WaitCursor);
    } else {
      unsetCursor();
    }
  }
  ShowTitle();
  status_->ShowPlace(ToQt(form_.Position()), ToQt(form_.Expected()));
  status_->ShowInsert(form_.Host().insert_on);
  status_->ShowUnsaved(form_.Unsaved());
  bool moved = false;  // what stands in pages and frames
  while (!changed_.empty()) {
    for (const Control* control : std::exchange(changed_, {})) {
      if (ControlView* view = ViewOf(*control)) view->Sync();
      moved = moved || control->HoldsControls();
    }
  }
  if (std::exchange(focus_moved_, false) || moved) ShowFocus();
}

void FormWindow::ShowStatus() {
  const int before = status_->HeightFor(width());
  status_->ShowMessage(ToQt(form_.Status()));
  // A status of several lines takes nothing from the fields.
  const int more = status_->HeightFor(width()) - before;
  if (more <= 0 || !isVisible() || isMaximized()) return;
  resize(width(), std::min(height() + more, RoomFor(*this).height()));
  KeepOnScreen(*this);
}

void FormWindow::ShowTitle() {
  QString title = ToQt(form_.Title().empty() ? form_.Name() : form_.Title());
  const QString subject = ToQt(form_.Subject());
  if (heading_) heading_->ShowText(subject.isEmpty() ? title : subject);
  if (!subject.isEmpty()) title = subject + QStringLiteral(" – ") + title;
  const bool unsaved = form_.Unsaved();
  const QString marked = unsaved ? QStringLiteral("• ") + title : title;
  if (windowTitle() == marked) return;
  setWindowTitle(marked);
  // A sign is not read.
  setAccessibleName(unsaved ? title + QStringLiteral(" (sin grabar)") : title);
}

void FormWindow::ShowFocus() {
  const Control* focus = form_.Focus();
  ControlView* view = focus ? ViewOf(*focus) : nullptr;
  QWidget* target = view ? view->FocusTarget() : this;
  setAttribute(Qt::WA_KeyboardFocusChange);  // so that the style always marks it
  if (focusWidget() != target || !target->hasFocus()) target->setFocus(Qt::OtherFocusReason);
  // The field that had it is at rest now.
  const Control* before = std::exchange(shown_focus_, focus);
  if (ControlView* left = before && before != focus ? ViewOf(*before) : nullptr) left->Sync();
  if (!view) return;
  view->Sync();
  const QString expected = ToQt(form_.Expected());
  if (!expected.isEmpty()) target->setAccessibleDescription(expected);
  Reveal(*view->Widget());
}

// With the words before it, in whatever scrolls around it.
void FormWindow::Reveal(const QWidget& widget) {
  const int label = fontMetrics().height() * kLinesOfLabel;
  for (QWidget* around = widget.parentWidget(); around && around != this; around = around->parentWidget()) {
    auto* area = qobject_cast<QScrollArea*>(around);
    if (!area) continue;
    const QPoint corner = widget.mapTo(area->widget(), QPoint(0, 0));
    area->ensureVisible(corner.x() + widget.width(), corner.y() + widget.height());
    area->ensureVisible(std::max(corner.x() - label, 0), corner.y());
  }
}

const Control* FormWindow::EnteredField() const {
  const Control* field = form_.Concerned();
  return passing_ > 0 && field && field->IsEntered() && field->Usable() ? field : nullptr;
}

QRect FormWindow::OnScreen(const Control& control) const {
  const QWidget* widget = ViewOf(control)->Widget();
  return widget->isVisible() ? QRect(widget->mapToGlobal(QPoint(0, 0)), widget->size()) : QRect();
}

void FormWindow::Mark(const Control& control, bool marked) {
  const ControlView* view = ViewOf(control);
  if (!view) return;
  view->Widget()->setProperty(kMarked, marked);
  const auto* scrolled = qobject_cast<QAbstractScrollArea*>(view->Widget());
  (scrolled ? scrolled->viewport() : view->Widget())->update();
  view->Widget()->update();
}

}  // namespace zendara

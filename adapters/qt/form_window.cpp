#include "adapters/qt/form_window.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "adapters/qt/form_layout.hpp"
#include "adapters/qt/heading.hpp"
#include "adapters/qt/input_events.hpp"
#include "adapters/qt/keys.hpp"
#include "adapters/qt/look.hpp"
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
  QString name = PlainCaption(control_.Caption());
  if (!row_.isEmpty()) name += QStringLiteral(", ") + row_;
  if (!name.isEmpty() && widget_->accessibleName() != name) widget_->setAccessibleName(name);
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
  const QRect area = screen()->availableGeometry();
  RenewSizes(*content_);
  wanted_ = content_->sizeHint();
  const QSize wanted = SizeIn(area.size());
  const int status = status_->HeightFor(wanted.width());
  // Scrolled, never squeezed.
  if (scroll_) content_->setMinimumSize(wanted);
  QSize size = wanted + QSize(0, status);
  // What does not fit on the screen is scrolled, and the bar needs its own place.
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 2;
  if (size.height() > area.height()) size.rwidth() += bar;
  if (wanted.width() > area.width()) size.rheight() += bar;
  size = size.boundedTo(area.size());
  setMinimumSize(size.boundedTo(QSize(320, 240)));
  resize(size);
  move(area.center() - QPoint(size.width() / 2, size.height() / 2));
}

QRect FormWindow::PlaceOf(const Control& control) {
  Flush();
  const QWidget* widget = ViewOf(control)->Widget();
  if (isVisible()) return {widget->mapTo(this, QPoint(0, 0)), widget->size()};
  // Nothing is laid out by itself before it is shown; the content begins in the window's corner then.
  Fit();
  content_->resize(size().expandedTo(content_->minimumSize()));
  content_->layout()->setGeometry(content_->rect());
  return {widget->mapTo(content_, QPoint(0, 0)), widget->size()};
}

void FormWindow::Grow() {
  const QSize needed = content_->sizeHint();
  if (needed.width() > wanted_.width() || needed.height() > wanted_.height()) Fit();
}

// In.

void FormWindow::Pass(const std::function<void()>& call) {
  call();
  Flush();
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
  Pass([&] { form_.Close(); });
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
  syncing_ = false;
}

void FormWindow::ShowStatus() {
  const int before = status_->HeightFor(width());
  status_->ShowMessage(ToQt(form_.Status()));
  // A status of several lines takes nothing from the fields.
  const int more = status_->HeightFor(width()) - before;
  if (more > 0) resize(width(), std::min(height() + more, screen()->availableGeometry().height()));
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
  for (QWidget* outer = view->Widget()->parentWidget(); outer; outer = outer->parentWidget()) {
    auto* area = qobject_cast<QScrollArea*>(outer);
    if (!area) continue;
    // With the words before it.
    const int label = fontMetrics().height() * kLinesOfLabel;
    const QPoint corner = view->Widget()->mapTo(area->widget(), QPoint(0, 0));
    const QSize size = view->Widget()->size();
    area->ensureVisible(corner.x() + size.width(), corner.y() + size.height());
    area->ensureVisible(std::max(corner.x() - label, 0), corner.y());
  }
}

}  // namespace zendara

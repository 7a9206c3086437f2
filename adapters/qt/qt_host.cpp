#include "adapters/qt/qt_host.hpp"

#include <QApplication>
#include <QEventLoop>
#include <QProcess>
#include <QStandardPaths>
#include <QtMath>
#include <algorithm>
#include <utility>

#include "adapters/hosting/application.hpp"
#include "adapters/hosting/row_pick_list.hpp"
#include "adapters/hosting/silent_banner.hpp"
#include "adapters/qt/drafts_window.hpp"
#include "adapters/qt/form_window.hpp"
#include "adapters/qt/help_window.hpp"
#include "adapters/qt/message_box.hpp"
#include "adapters/qt/pick_window.hpp"
#include "adapters/qt/text.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// What stands for the calculator that the screens name, in the order in which they are looked for.
constexpr std::string_view kCalculator = "calc.exe";
constexpr const char* kCalculators[] = {"calc",          "gnome-calculator",  "kcalc", "mate-calc", "galculator",
                                        "qalculate-gtk", "deepin-calculator", "xcalc"};

constexpr int kTwipsPerPixel = 15;

}  // namespace

QtHost::QtHost(const print::DocumentWriter& documents, DraftKeeper* drafts)
    : documents_(documents), keeper_(documents, *this), drafts_(drafts) {
  RegisterPickList(components_, [this](const std::string& title, RowList& rows) { return Choose(title, rows); });
  components_.Register(kBannerClass, []() -> std::unique_ptr<Banner> { return std::make_unique<SilentBanner>(); });
}

QtHost::~QtHost() = default;

FormWindow* QtHost::WindowOf(const Form& form) const {
  const auto shows = [&](const auto& window) { return &window->Shown() == &form; };
  const auto shown = std::ranges::find_if(windows_, shows);
  if (shown != windows_.end()) return *shown;
  const auto awaiting = std::ranges::find_if(awaiting_, shows);
  return awaiting == awaiting_.end() ? nullptr : awaiting->get();
}

QWidget* QtHost::Behind() const { return windows_.empty() ? QApplication::activeWindow() : windows_.back(); }

void QtHost::FlushAll() {
  for (FormWindow* window : windows_) window->Flush();
}

// Forms.

std::unique_ptr<FormWindow> QtHost::MakeWindow(Form& form, QWidget* behind) {
  auto window = std::make_unique<FormWindow>(form, behind);
  window->OnKeep([this, window = window.get()] { keeper_.KeepRecord(*window); });
  return window;
}

void QtHost::ShowModal(Form& form) {
  FlushAll();
  QWidget* behind = Behind();
  std::unique_ptr<FormWindow> window;
  const auto made = std::ranges::find_if(awaiting_, [&](const auto& w) { return &w->Shown() == &form; });
  if (made != awaiting_.end()) {
    window = std::move(*made);
    awaiting_.erase(made);
  } else {
    window = MakeWindow(form, behind);
  }
  windows_.push_back(window.get());
  window->Flush();
  window->Fit();
  window->show();
  window->activateWindow();
  if (form.Loaded()) {
    QEventLoop loop;
    window->OnUnloaded([&loop] { loop.quit(); });
    loop.exec();
  }
  std::erase(windows_, window.get());
  window->hide();
  // Otherwise nobody has the keyboard where no window manager passes it on.
  if (behind) behind->activateWindow();
}

void QtHost::DoEvents() {
  FlushAll();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtHost::ShowHelp(const std::string& /*file*/, int context) {
  FlushAll();
  QWidget* behind = Behind();
  HelpWindow(context, behind).exec();
  if (behind) behind->activateWindow();
}

// What is chosen is restored once the window is gone, since that may ask and complain.
void QtHost::ShowDrafts(Form& form) {
  if (!drafts_) return;
  FlushAll();
  QWidget* behind = Behind();
  std::string chosen;
  {
    DraftsWindow window(form, behind);
    window.exec();
    chosen = window.Chosen();
  }
  if (behind) behind->activateWindow();
  if (!chosen.empty()) form.RestoreDraft(chosen);
}

std::int32_t QtHost::WindowHandle(Form& form) {
  FormWindow* window = WindowOf(form);
  if (!window) {
    window = awaiting_.emplace_back(MakeWindow(form, Behind())).get();
    // A form that its load unloads again is never shown.
    window->OnUnloaded([this, window] {
      std::erase_if(awaiting_, [window](const auto& awaiting) { return awaiting.get() == window; });
    });
  }
  return static_cast<std::int32_t>(window->winId());
}

std::optional<ControlPlace> QtHost::PlaceOf(const Control& control) {
  FormWindow* window = WindowOf(control.Owner());
  if (!window || !window->ViewOf(control)) return std::nullopt;
  const QRect place = window->PlaceOf(control);
  const auto twips = [&](int pixels) { return qRound(pixels * window->devicePixelRatioF() * kTwipsPerPixel); };
  return ControlPlace{twips(place.x()), twips(place.y()), twips(place.width()), twips(place.height())};
}

// Boxes and lists.

BoxAnswer QtHost::Show(const Box& box) {
  FlushAll();
  QWidget* behind = Behind();
  MessageBox shown(box, ToQt(box.title.empty() ? kApplicationTitle : box.title), behind);
  shown.OnKeepDetail([&](QWidget& over) { return keeper_.KeepDetail(box, Top(), over); });
  const BoxAnswer answer = shown.Ask();
  if (behind) behind->activateWindow();
  return answer;
}

void QtHost::Beep() { QApplication::beep(); }

std::optional<std::size_t> QtHost::Choose(const std::string& title, RowList& rows) {
  FlushAll();
  QWidget* behind = Behind();
  PickWindow window(ToQt(title), rows, behind);
  window.exec();
  if (behind) behind->activateWindow();
  return window.Chosen();
}

// Programs beside. Windows of others are neither searched nor brought to the front: no desktop lets one do so.

int QtHost::FindWindow(std::string_view /*class_name*/, std::string_view /*title*/) { return 0; }

int QtHost::Start(std::string_view program) {
  QStringList candidates = {ToQt(program)};
  if (LCase(program) == kCalculator) {
    for (const char* calculator : kCalculators) candidates << QString::fromLatin1(calculator);
  }
  for (const QString& candidate : candidates) {
    const QString path = QStandardPaths::findExecutable(candidate);
    qint64 task = 0;
    if (!path.isEmpty() && QProcess::startDetached(path, {}, QString(), &task)) return static_cast<int>(task);
  }
  throw RuntimeError(kFileNotFound, {}, std::string(program));
}

void QtHost::Activate(int /*task*/) {}

void QtHost::Activate(std::string_view /*title*/) {}

}  // namespace zendara

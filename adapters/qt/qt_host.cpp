#include "adapters/qt/qt_host.hpp"

#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <QProcess>
#include <QStandardPaths>
#include <QtMath>
#include <algorithm>
#include <utility>

#include "adapters/hosting/application.hpp"
#include "adapters/hosting/current_session.hpp"
#include "adapters/hosting/row_pick_list.hpp"
#include "adapters/hosting/silent_banner.hpp"
#include "adapters/qt/drafts_window.hpp"
#include "adapters/qt/form_window.hpp"
#include "adapters/qt/help_window.hpp"
#include "adapters/qt/listing_window.hpp"
#include "adapters/qt/message_box.hpp"
#include "adapters/qt/names.hpp"
#include "adapters/qt/pick_window.hpp"
#include "adapters/qt/qt_listing_viewer.hpp"
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

const QString kListingPlace = QStringLiteral("Listado");

// Gives the keyboard back to it; otherwise nobody has it where no window manager passes it on.
void GoBackTo(const QPointer<QWidget>& window) {
  if (!window) return;
  if (window->isMinimized()) window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
  window->activateWindow();
}

}  // namespace

QtHost::QtHost(const print::DocumentWriter& documents, DraftKeeper* drafts) : documents_(documents), drafts_(drafts) {}

QtHost::~QtHost() {
  // Without the application no window can be taken down any more.
  if (!qApp) static_cast<void>(help_.release());
}

void QtHost::OfferNeighbours(Components& components) {
  components.Offer(kPickListClass,
                   PickListOver([this](const std::string& title, RowList& rows) { return Choose(title, rows); }));
  components.Offer(kBannerClass, []() -> std::unique_ptr<Banner> { return std::make_unique<SilentBanner>(); });
  components.Offer(kListingViewerClass,
                   [this]() -> std::unique_ptr<ListingViewer> { return std::make_unique<QtListingViewer>(*this); });
}

FormWindow* QtHost::WindowOf(const Form& form) const {
  const auto shows = [&](const auto& window) { return &window->Shown() == &form; };
  const auto shown = std::ranges::find_if(windows_, shows);
  if (shown != windows_.end()) return *shown;
  const auto awaiting = std::ranges::find_if(awaiting_, shows);
  return awaiting == awaiting_.end() ? nullptr : awaiting->get();
}

QWidget* QtHost::Behind() const {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (!windows_.empty()) return windows_.back();
  QWidget* active = QApplication::activeWindow();
  return active == help_.get() ? nullptr : active;
}

Dialogs& QtHost::BoxesOfScreens() { return Top() ? Top()->Shown().Boxes() : *this; }

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
  const QPointer<QWidget> behind = Behind();
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
  const QSize natural = window->size();
  places_.PutBack(*window, ToQt(form.Name()));
  window->show();
  window->activateWindow();
  if (form.Loaded()) {
    QEventLoop loop;
    window->OnUnloaded([&loop] { loop.quit(); });
    loop.exec();
    // The application ends: what was typed is in the drafts.
    if (form.Loaded()) form.Unload();
  }
  std::erase(windows_, window.get());
  places_.Keep(*window, ToQt(form.Name()), natural);
  window->hide();
  GoBackTo(behind);
}

void QtHost::DoEvents() {
  FlushAll();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtHost::ShowHelp(const std::string& /*file*/, int context, const HelpPlace& place) {
  FlushAll();
  Help().Open(context, place);
}

HelpWindow& QtHost::Help() {
  if (!help_) help_ = std::make_unique<HelpWindow>(places_);
  return *help_;
}

// What is chosen is restored once the window is gone, since that may ask and complain.
void QtHost::ShowDrafts(Form& form) {
  if (!drafts_) return;
  FlushAll();
  const QPointer<QWidget> behind = Behind();
  std::string chosen;
  {
    DraftsWindow window(form, boxes_, behind);
    window.exec();
    chosen = window.Chosen();
  }
  GoBackTo(behind);
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
  const QPointer<QWidget> behind = Behind();
  FormWindow* top = Top();
  const Control* field = top && top == behind ? top->EnteredField() : nullptr;
  if (field) top->Mark(*field, true);
  const QString title = ToQt(box.title.empty() ? kApplicationTitle : box.title);
  MessageBox shown(box, title, field ? NameAndPlace(*field) : QString(), behind);
  shown.OnHelp([&] { Help().Explain(ToQt(box.text)); });
  shown.OnKeepDetail([&](QWidget& over) { return keeper_.KeepDetail(box, Top(), over); });
  if (field) shown.StandClearOf(top->OnScreen(*field));
  const BoxAnswer answer = shown.Ask();
  // Nobody unloads a form behind a box, but a host may.
  if (field && std::ranges::find(windows_, top) != windows_.end()) top->Mark(*field, false);
  GoBackTo(behind);
  return answer;
}

void QtHost::Beep() { QApplication::beep(); }

std::optional<std::size_t> QtHost::Choose(const std::string& title, RowList& rows) {
  FlushAll();
  const QPointer<QWidget> behind = Behind();
  PickWindow window(ToQt(title), rows, behind);
  window.OnBeep([this] { boxes_.Beep(); });
  window.exec();
  GoBackTo(behind);
  return window.Chosen();
}

// Listings.

void QtHost::Preview(print::Listing listing, print::ListingHead head, std::unique_ptr<print::ListingRows> rows,
                     const Form* form) {
  FlushAll();
  const QPointer<QWidget> behind = Behind();
  FormWindow* asked = form ? WindowOf(*form) : nullptr;
  if (!measure_) measure_ = std::make_unique<PangoMeasure>();
  print::PagedListing pages(std::move(listing), std::move(head), std::move(rows), *measure_);
  const std::vector<ListingFile> kinds = ListingFiles(*measure_, YearsOfComponent());
  ListingKeeper keeper(kinds, *printers_, files_);
  ListingWindow window(pages, *measure_,
                       {.print = [&](QWidget& over) { return keeper.Print(pages, over); },
                        .save = [&](QWidget& over) { return keeper.Save(pages, over); },
                        .help = [this] { Help().Open(0, {.link = "visor.md", .words = {}}); }},
                       asked ? asked : behind.data());
  const QSize natural = window.size();
  places_.PutBack(window, kListingPlace);
  window.exec();
  places_.Keep(window, kListingPlace, natural);
  GoBackTo(behind);
  if (window.Failure()) std::rethrow_exception(window.Failure());
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

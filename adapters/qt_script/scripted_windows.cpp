#include "adapters/qt_script/scripted_windows.hpp"

#include <QApplication>
#include <QRegularExpression>
#include <QTableView>
#include <QTableWidget>
#include <QTimer>
#include <exception>
#include <memory>
#include <utility>

#include "adapters/hosting/company_host.hpp"
#include "adapters/hosting/row_pick_list.hpp"
#include "adapters/hosting/silent_banner.hpp"
#include "adapters/qt/drafts_window.hpp"
#include "adapters/qt/form_window.hpp"
#include "adapters/qt/help_window.hpp"
#include "adapters/qt/input_events.hpp"
#include "adapters/qt/listing_view.hpp"
#include "adapters/qt/listing_window.hpp"
#include "adapters/qt/message_box.hpp"
#include "adapters/qt/pick_window.hpp"
#include "adapters/qt/qt_listing_viewer.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

// What is done once the window that is opened next is there. Nothing if none comes while this object lives.
class OnceOpen {
 public:
  template <typename Act>
  explicit OnceOpen(Act act) {
    timer_.setSingleShot(true);
    timer_.callOnTimeout([act] {
      QApplication::processEvents();  // until it is active
      act();
    });
    timer_.start(0);
  }

 private:
  QTimer timer_;
};

// The dialog in front. REQUIRES: it is one of that class.
template <typename Window>
Window& Front() {
  return dynamic_cast<Window&>(*QApplication::activeModalWidget());
}

// The preview with the script before it: `before` once it is open, and then it is left.
class ScriptedViewer : public QtListingViewer {
 public:
  using Before = std::function<void(QWidget& window, const ListingDescription& description, const std::string& file,
                                    const std::string& table)>;
  ScriptedViewer(QtHost& host, Before before) : QtListingViewer(host), before_(std::move(before)) {}

  void Visualiza(ListingDescription& descripcion) override {
    std::exception_ptr failure;
    const OnceOpen user([&] {
      auto& window = Front<ListingWindow>();
      try {
        before_(window, descripcion, File(), Table());
      } catch (...) {
        failure = std::current_exception();
      }
      PressKey(window.View(), {.code = key::kEsc, .shift = 0, .text = {}});
    });
    QtListingViewer::Visualiza(descripcion);
    if (failure) std::rethrow_exception(failure);
  }

 private:
  Before before_;
};

}  // namespace

ScriptedWindows::ScriptedWindows(QtHost& windows, Script script, ScriptPlayer::Sink out, Photographer photographer)
    : windows_(windows),
      photographer_(std::move(photographer)),
      hands_(windows, [this] { PhotographTop(); }),
      player_(CommandsOf(std::move(script)), hands_, windows.Documents(), std::move(out)) {
  // Nobody is there to choose; the command `print` says where.
  windows_.OnChooseFile([](QWidget&, const std::string&, std::span<const FileFormat>) { return std::nullopt; });
  RegisterPickList(components_, [this](const std::string& title, RowList& rows) { return Choose(title, rows); });
  components_.Register(kListingViewerClass, [this] { return MakeViewer(); });
  OfferSilentBanner(components_);
}

ScriptResult ScriptedWindows::Play(Platform platform) {
  platform.dialogs = this;
  platform.forms = this;
  platform.shell = &player_;
  platform.components = components_;
  player_.ReadFrom(platform);
  CompanyHost company(std::move(platform));
  return player_.Run(company);
}

void ScriptedWindows::ShowModal(Form& form) {
  if (player_.Ended()) return player_.Modal(form);
  const OnceOpen user([&] {
    PhotographTop();
    player_.Modal(form);
  });
  windows_.ShowModal(form);
}

void ScriptedWindows::ShowHelp(const std::string& file, int context, const HelpPlace& place) {
  if (player_.Ended()) return;
  player_.Help(context);
  windows_.ShowHelp(file, context, place);
  QApplication::processEvents();
  HelpWindow& help = windows_.Help();
  Photograph(help, help.windowTitle());
  PressKey(help, {.code = key::kEsc, .shift = 0, .text = {}});
}

// For its picture; the command `drafts restore` chooses.
void ScriptedWindows::ShowDrafts(Form& form) {
  if (player_.Ended() || !player_.Drafts()) return;
  DraftsWindow window(form, *this, windows_.Top());
  const OnceOpen user([&] {
    Photograph(window, window.windowTitle());
    PressKey(window.Table(), {.code = key::kEsc, .shift = 0, .text = {}});
  });
  window.exec();
}

BoxAnswer ScriptedWindows::Show(const Box& box) {
  if (player_.Ended()) return player_.Answer(box);
  const OnceOpen user([&] {
    auto& shown = Front<MessageBox>();
    Photograph(shown, QStringLiteral("Aviso ") + ToQt(box.text).left(40));
    if (photographer_ && !box.detail.empty()) {
      DetailWindow& detail = shown.ShowDetail();
      QApplication::processEvents();
      Photograph(detail, detail.windowTitle());
      detail.close();
    }
    shown.Give(player_.Answer(box));
  });
  return windows_.Show(box);
}

std::optional<std::size_t> ScriptedWindows::Choose(const std::string& title, RowList& rows) {
  if (player_.Ended()) return std::nullopt;
  const OnceOpen user([&] {
    auto& window = Front<PickWindow>();
    Photograph(window, QStringLiteral("Lista ") + ToQt(title));
    const auto row = player_.Choose(title, rows);
    if (row) window.GoTo(*row);
    PressKey(window.Table(), {.code = row ? key::kEnter : key::kEsc, .shift = 0, .text = {}});
  });
  return windows_.Choose(title, rows);
}

std::unique_ptr<ListingViewer> ScriptedWindows::MakeViewer() {
  return std::make_unique<ScriptedViewer>(windows_, [this](QWidget& window, const ListingDescription& description,
                                                           const std::string& file, const std::string& table) {
    Photograph(window, QStringLiteral("Listado ") + window.windowTitle());
    player_.Listing(description, file, table);
  });
}

// Pictures.

void ScriptedWindows::Photograph(QWidget& window, const QString& name) const {
  if (!photographer_) return;
  static const QRegularExpression odd(QStringLiteral("[^\\p{L}\\p{N}]+"));
  photographer_(window, QString(name).replace(odd, QStringLiteral("_")).toStdString());
}

void ScriptedWindows::PhotographTop() const {
  FormWindow* window = windows_.Top();
  if (!photographer_ || !window || !window->Shown().Loaded()) return;
  window->Flush();
  // One picture for what stands in front of the pages, and of the pages in them.
  QString name = ToQt(window->Shown().Name());
  for (const Control* control : window->Shown().Controls()) {
    const auto* tabs = dynamic_cast<const Tabs*>(control);
    const ControlView* view = window->ViewOf(*control);
    if (!tabs || !view || !view->Widget()->isVisible() || tabs->Titles().empty()) continue;
    name += QStringLiteral(" ") + ToQt(tabs->Titles()[static_cast<std::size_t>(tabs->Tab())]);
  }
  Photograph(*window, name);
}

}  // namespace zendara

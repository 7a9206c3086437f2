#include "adapters/qt/qt_host.hpp"

#include <QApplication>
#include <QEventLoop>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTableView>
#include <algorithm>
#include <utility>

#include "adapters/headless/row_pick_list.hpp"
#include "adapters/headless/script_neighbours.hpp"
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

// Has no advertising to show.
class QuietBanner : public Banner {
 public:
  void PosicionBanner(std::int32_t /*handle*/, BannerPlace& /*lugar*/) override {}
  void AvisoCierre(std::int32_t /*handle*/) override {}
};

}  // namespace

// Lists.

class QtHost::List : public RowPickList {
 public:
  explicit List(QtHost& host) : host_(host) {}

 private:
  std::optional<std::size_t> Choose(const std::string& title, ListaFilas& rows) override {
    host_.FlushAll();
    QWidget* behind = host_.Behind();
    PickWindow window(ToQt(title), rows, behind);
    if (ScriptPlayer* player = host_.player_.get()) {
      if (!player->Ended()) {
        window.open();
        QApplication::processEvents();
        host_.Photograph(window, QStringLiteral("Lista ") + ToQt(title));
      }
      const auto row = player->Choose(title, rows);
      if (row) window.GoTo(*row);
      PressKey(window.Table(), {.code = row ? key::kEnter : key::kEsc, .shift = 0, .text = {}});
    } else {
      window.exec();
    }
    if (behind) behind->activateWindow();
    return window.Chosen();
  }

  QtHost& host_;
};

// The host.

QtHost::QtHost() { Register(); }

QtHost::~QtHost() = default;

void QtHost::Register() {
  if (player_) RegisterScriptNeighbours(components_, *player_);
  components_.Register(kPickListClass, [this]() -> std::unique_ptr<PickList> { return std::make_unique<List>(*this); });
  components_.Register(kBannerClass, []() -> std::unique_ptr<Banner> { return std::make_unique<QuietBanner>(); });
}

ScriptResult QtHost::Play(Script script, const Platform& platform, ScriptPlayer::Sink out) {
  hands_ =
      std::make_unique<ScriptHands>([this](const Form& form) { return WindowOf(form); }, [this] { PhotographTop(); });
  player_ = std::make_unique<ScriptPlayer>(std::move(script), *hands_, std::move(out));
  Register();
  Platform surroundings = platform;
  surroundings.components = &components_;
  surroundings.shell = player_.get();
  CompanyHost company(surroundings);
  return player_->Run(company);
}

FormWindow* QtHost::WindowOf(const Form& form) const {
  const auto window = std::ranges::find_if(windows_, [&](const FormWindow* w) { return &w->Shown() == &form; });
  return window == windows_.end() ? nullptr : *window;
}

QWidget* QtHost::Behind() const { return windows_.empty() ? QApplication::activeWindow() : windows_.back(); }

void QtHost::FlushAll() {
  for (FormWindow* window : windows_) window->Flush();
}

// Forms.

void QtHost::ShowModal(Form& form) {
  if (player_ && player_->Ended()) return player_->Modal(form);
  FlushAll();
  QWidget* behind = Behind();
  FormWindow window(form, behind);
  windows_.push_back(&window);
  window.Fit();
  window.show();
  window.activateWindow();
  if (player_) {
    QApplication::processEvents();
    PhotographTop();
    player_->Modal(form);
  } else if (form.Loaded()) {
    QEventLoop loop;
    window.OnUnloaded([&loop] { loop.quit(); });
    loop.exec();
  }
  std::erase(windows_, &window);
  window.hide();
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
  HelpWindow help(context, behind);
  if (player_) {
    player_->Help(context);
    help.open();
    QApplication::processEvents();
    Photograph(help, help.windowTitle());
    PressKey(help, {.code = key::kEsc, .shift = 0, .text = {}});
  } else {
    help.exec();
  }
  if (behind) behind->activateWindow();
}

void QtHost::Untrapped(int number, const std::string& text) {
  if (player_) player_->Error(number, text);
}

std::int32_t QtHost::WindowHandle(const Form& form) const {
  const FormWindow* window = WindowOf(form);
  return window ? static_cast<std::int32_t>(window->effectiveWinId()) : 0;
}

// Boxes.

BoxAnswer QtHost::Show(const Box& box) {
  FlushAll();
  QWidget* behind = Behind();
  MessageBox shown(box, ToQt(box.title.empty() ? kApplicationTitle : box.title), behind);
  BoxAnswer answer = BoxAnswer::kOk;
  if (!player_) {
    answer = shown.Ask();
  } else if (player_->Ended()) {
    return player_->Answer(box);
  } else {
    shown.open();
    QApplication::processEvents();
    Photograph(shown, QStringLiteral("Aviso ") + ToQt(box.text).left(40));
    if (photographer_ && !box.detail.empty()) {
      DetailWindow& detail = shown.ShowDetail();
      QApplication::processEvents();
      Photograph(detail, detail.windowTitle());
      detail.close();
    }
    answer = player_->Answer(box);
    shown.Give(answer);
  }
  if (behind) behind->activateWindow();
  return answer;
}

void QtHost::Beep() {
  if (player_) return player_->Beep();
  QApplication::beep();
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

// Pictures.

void QtHost::Photograph(QWidget& window, const QString& name) const {
  if (!photographer_) return;
  static const QRegularExpression odd(QStringLiteral("[^\\p{L}\\p{N}]+"));
  photographer_(window, QString(name).replace(odd, QStringLiteral("_")).toStdString());
}

void QtHost::PhotographTop() const {
  if (!photographer_ || windows_.empty() || !windows_.back()->Shown().Loaded()) return;
  FormWindow& window = *windows_.back();
  window.Flush();
  // One picture for what stands in front of the pages, and of the pages in them.
  QString name = ToQt(window.Shown().Name());
  for (const Control* control : window.Shown().Controls()) {
    if (control->Kind() != ControlKind::kTabs) continue;
    const ControlView* view = window.ViewOf(*control);
    const auto* tabs = static_cast<const Tabs*>(control);
    if (!view || !view->Widget()->isVisible() || tabs->Titles().empty()) continue;
    name += QStringLiteral(" ") + ToQt(tabs->Titles()[static_cast<std::size_t>(tabs->Tab())]);
  }
  Photograph(window, name);
}

}  // namespace zendara

// What happens to a host with windows open: its own objects fail, it calls again, it ends. The public headers, the
// library with windows, and nothing else.
#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <stdexcept>
#include <thread>

#include "sample_host.hpp"
#include "zendara/company.hpp"
#include "zendara/windows.hpp"

namespace {

[[noreturn]] void Fail() { throw std::runtime_error("the host fails"); }

struct FailingDialogs : zendara::Dialogs {
  zendara::BoxAnswer Show(const zendara::Box&) override { Fail(); }
  void Beep() override { Fail(); }
};
struct FailingFiles : zendara::Files {
  bool Exists(std::string_view) const override { Fail(); }
  std::string ReadRecord(std::string_view, std::size_t) const override { Fail(); }
};
struct FailingShell : zendara::Shell {
  int FindWindow(std::string_view, std::string_view) override { Fail(); }
  int Start(std::string_view) override { Fail(); }
  void Activate(int) override { Fail(); }
  void Activate(std::string_view) override { Fail(); }
};
struct FailingClock : zendara::Clock {
  zendara::Date Now() override { Fail(); }
};
struct FailingLog : zendara::Log {
  void Line(std::string_view) override { Fail(); }
};
struct FailingList : zendara::PickList {
  void ConsultaLista(const std::vector<std::string>&, const std::string&, const std::vector<zendara::RowPlace>&,
                     zendara::Engine&, const std::string&, const std::string&, std::int16_t, std::string&) override {
    Fail();
  }
  void ConsultaFija(const std::vector<std::string>&, const std::string&, std::int16_t, std::string&) override {
    Fail();
  }
};
struct FailingBanner : zendara::Banner {
  void PosicionBanner(std::int32_t, zendara::BannerPlace&) override { Fail(); }
  void AvisoCierre(std::int32_t) override { Fail(); }
};
struct CountingBanner : zendara::Banner {
  void PosicionBanner(std::int32_t, zendara::BannerPlace&) override {}
  void AvisoCierre(std::int32_t) override { ++closings; }
  static inline int closings = 0;
};
struct FailingViewer : zendara::ListingViewer {
  void Visualiza(zendara::ListingDescription&) override { Fail(); }
  void FicheroDatos(const std::string&) override {}
  void TablaDatos(const std::string&) override {}
  void FormularioPadre(zendara::Form*) override {}
};

struct HostLog : zendara::Log {
  void Line(std::string_view line) override { lines += std::string(line) + "\n"; }
  std::string lines;
};

bool Has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// The user's hands on the window in front.

void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {}) {
  QWidget* window = QApplication::activeModalWidget();
  QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(window->focusWidget() ? window->focusWidget() : window, &event);
}

void Type(const QString& text) {
  for (const QChar c : text) Key(c.toUpper().unicode(), Qt::NoModifier, c);
}

void Click(const char* button) { QApplication::activeModalWidget()->findChild<QPushButton*>(button)->click(); }

// Once the window that opens next is there.
void Next(std::function<void()> act) {
  QTimer::singleShot(20, qApp, [act = std::move(act)] { QApplication::activeModalWidget() ? act() : Next(act); });
}

void Check(const std::string& where, const char* what, bool good) { Expect((where + ": " + what).c_str(), good, true); }

void Close() { QApplication::activeModalWidget()->close(); }

bool DraftHas(const QByteArray& text) {
  QDirIterator files(qEnvironmentVariable("XDG_STATE_HOME"), QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    QFile file(files.next());
    if (file.open(QIODevice::ReadOnly) && file.readAll().contains(text)) return true;
  }
  return false;
}

}  // namespace

// The argument is the application's folder, which holds DATOS.
int main(int /*argc*/, char** argv) {
  int no_arguments = 1;
  QApplication application(no_arguments, argv);
  SampleHost host(argv[1]);
  const zendara::OpenedCompany open = zendara::OpenCompany(*host.platform.engine, argv[1], "00001", "01");
  // True when the session got its mark back.
  const auto show = [&] {
    zendara::InstallPlatform(host.platform);
    NotingSession session;
    zendara::ClsZendara().Carga_Formulario("Trabajadores", open.company, open.general, open.recordsets, session);
    return session.returned == "P";
  };
  auto windows = zendara::MakeWindows();
  HostLog log;
  host.platform.log = &log;
  windows->Install(host.platform);
  const zendara::Platform whole = host.platform;

  FailingDialogs dialogs;
  FailingFiles files;
  FailingShell shell;
  FailingClock clock;
  FailingLog failing_log;
  const auto keep_as_pdf = [] { Key(Qt::Key_P, Qt::ControlModifier); };
  const auto failing = [](auto* object, auto name) {
    return [name, object](zendara::Platform& platform) {
      using Object = std::remove_pointer_t<decltype(object)>;
      platform.components.Register(name, [] { return std::make_unique<Object>(); });
    };
  };
  const struct {
    const char* what;
    std::function<void(zendara::Platform&)> install;
    std::function<void()> act;
    std::size_t boxes;  // of the host's
    const char* said;   // in the log
  } ports[] = {
      {"dialogs", [&](auto& p) { p.dialogs = &dialogs; }, [] { Click("Grabar"); }, 0, "the host fails"},
      {"files", [&](auto& p) { p.files = &files; }, [] {}, 1, "the host fails"},
      {"shell", [&](auto& p) { p.shell = &shell; }, [] { Click("Calculadora"); }, 1, "the host fails"},
      {"clock", [&](auto& p) { p.clock = &clock; }, keep_as_pdf, 1, "the host fails"},
      {"clock and dialogs, about which the front end's own box tells",
       [&](auto& p) { p.clock = &clock, p.dialogs = &dialogs; },
       [&] {
         Next(Close);
         keep_as_pdf();
       },
       0, "a box is not shown: "},
      {"log", [&](auto& p) { p.log = &failing_log, p.shell = &shell; }, [] { Click("Calculadora"); }, 1, ""},
      {"pick list", failing(static_cast<FailingList*>(nullptr), zendara::kPickListClass),
       [] { Key(Qt::Key_F, Qt::ControlModifier); }, 1, "the host fails"},
      {"banner", failing(static_cast<FailingBanner*>(nullptr), zendara::kBannerClass), [] {}, 2, "the host fails"},
      {"listing viewer", failing(static_cast<FailingViewer*>(nullptr), zendara::kListingViewerClass),
       [] {
         Next([] {
           Click("Impresora");
           Close();
         });
         Click("Pendientes");
       },
       1, "the host fails"},
  };
  for (const auto& port : ports) {
    host.platform = whole;
    host.platform.dialogs = &host.boxes;
    port.install(host.platform);
    host.boxes.texts.clear();
    log.lines.clear();
    Next([&] {
      const QWidget* screen = QApplication::activeModalWidget();
      Type("777");
      port.act();
      Check(port.what, "the screen is still there", QApplication::activeModalWidget() == screen);
      Check(port.what, "so is what was typed", screen->findChild<QLineEdit*>("Text1(1)")->text().contains("777"));
      Close();
    });
    Check(port.what, "the mark was handed back", show());
    Check(port.what, "the call is done", zendara::LastCall().status == zendara::CallStatus::kDone);
    Expect(port.what, host.boxes.texts.size(), port.boxes);
    Check(port.what, "the log says it", Has(log.lines, port.said));
  }

  // Calls that come in between do nothing, and say so.
  host.platform = whole;
  host.platform.dialogs = &host.boxes;
  host.boxes.texts.clear();
  const auto call = [&] {
    show();  // installs, too
    return zendara::LastCall().status;
  };
  Next([&] {
    Expect("a call while a screen is shown", call() == zendara::CallStatus::kBusy, true);
    zendara::InstallPlatform({});
    Expect("an installation then", zendara::LastCall().status == zendara::CallStatus::kBusy, true);
    std::thread([&] {
      NotingSession session;
      zendara::ClsZendara().Carga_Formulario("Trabajadores", nullptr, nullptr, {}, session);
      Expect("another thread", zendara::LastCall().status == zendara::CallStatus::kWrongThread, true);
    }).join();
    Click("Grabar");  // the platform is what it was
    Close();
  });
  Expect("the screen around them", call() == zendara::CallStatus::kDone, true);
  Expect("boxes of the screen around them", host.boxes.texts.size(), 1U);

  // The application ends while a screen is open, and another one above it: what was typed is a draft.
  host.platform.components.Register(zendara::kBannerClass, [] { return std::make_unique<CountingBanner>(); });
  const struct {
    const char* what;
    void (*end)();
  } ends[] = {{"quit", QApplication::quit}, {"exit", [] { QApplication::exit(); }}};
  for (const auto& [what, end] : ends) {
    bool returned = false;
    CountingBanner::closings = 0;
    const QString word = QStringLiteral("%1%2").arg(what).arg(QCoreApplication::applicationPid());
    QTimer::singleShot(0, qApp, [&] { returned = show(); });
    Next([&, end = end] {
      Type("777");
      Key(Qt::Key_Return, Qt::NoModifier, "\r");
      Type(word);
      Next(end);
      Click("Pendientes");
    });
    QApplication::exec();
    Check(what, "the call has returned", returned);
    Check(what, "the call is done", zendara::LastCall().status == zendara::CallStatus::kDone);
    Check(what, "the screens have closed", CountingBanner::closings == 2);
    Check(what, "what was typed is a draft", DraftHas(word.toUtf8()));
  }

  // The front end goes while it shows a screen.
  log.lines.clear();
  Next([&] {
    windows.reset();
    Close();
  });
  Expect("the screen of a front end that went", call() == zendara::CallStatus::kDone, true);
  Expect("a line about it", Has(log.lines, "the windows end while a screen is shown"), true);
  return failed ? 1 : 0;
}

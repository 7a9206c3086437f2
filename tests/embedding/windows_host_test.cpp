// A host application with a desktop as its maker writes it: the public headers, the library with windows, boxes and a
// banner of its own, and nothing else.
#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QTimer>
#include <QToolTip>
#include <QWidget>
#include <tuple>

#include "sample_host.hpp"
#include "zendara/windows.hpp"

namespace {

struct HostBanner : zendara::Banner {
  void PosicionBanner(std::int32_t handle, zendara::BannerPlace& lugar) override {
    window = handle;
    place = lugar;
  }
  void AvisoCierre(std::int32_t handle) override { closed = handle; }

  static inline std::int32_t window = 0, closed = 0;
  static inline zendara::BannerPlace place;
};

// What an application has to itself.
auto LookOfApplication() {
  return std::tuple(QApplication::style(), QApplication::font(), QApplication::palette(), QToolTip::font(),
                    QToolTip::palette(), QApplication::quitOnLastWindowClosed(), QFileDialog::tr("Look in:"));
}

// Where the panel of the banner is seen: its inside, 4 pixels from its edges.
zendara::BannerPlace SeenPlace(QWidget& window) {
  const auto* panel = window.findChild<QWidget*>("SSPanel1(25)");
  if (!panel || !panel->isVisible()) return {};
  const QPoint corner = panel->mapTo(&window, QPoint(4, 4));
  return {corner.x() * 15, corner.y() * 15, (panel->width() - 8) * 15, (panel->height() - 8) * 15};
}

}  // namespace

// The argument is the application's folder, which holds DATOS.
int main(int /*argc*/, char** argv) {
  int no_arguments = 1;
  QApplication application(no_arguments, argv);
  QApplication::setStyle(QStringLiteral("Windows"));
  QApplication::setFont(QFont(QStringLiteral("Serif"), 8));
  QApplication::setPalette(QPalette(Qt::darkGreen, QColor(0xD5F0D5)));
  const auto look = LookOfApplication();
  SampleHost host(argv[1]);
  const auto windows = zendara::MakeWindows();
  windows->Install(host.platform);
  host.platform.dialogs = &host.boxes;
  host.platform.components.Register(zendara::kBannerClass,
                                    [] { return std::unique_ptr<zendara::Banner>(new HostBanner); });

  // The user makes the text larger, looks at the screen, saves nothing (Alt+G), and closes it.
  std::string title;
  WId window_id = 0;
  zendara::BannerPlace seen;
  QFont font;
  QColor ground;
  QTimer user;
  user.callOnTimeout([&] {
    QWidget* window = QApplication::activeWindow();
    if (!window) return;
    title = window->windowTitle().toStdString();
    window_id = window->winId();
    seen = SeenPlace(*window);
    QKeyEvent larger(QEvent::KeyPress, Qt::Key_Plus, Qt::ControlModifier, "+");
    QApplication::sendEvent(window->focusWidget(), &larger);
    font = window->focusWidget()->font();
    ground = window->grab().toImage().pixelColor(1, 1);
    QKeyEvent save(QEvent::KeyPress, Qt::Key_G, Qt::AltModifier, "g");
    QApplication::sendEvent(window->focusWidget(), &save);
    window->close();
  });
  user.start(50);

  Expect("the mark was handed back", host.ShowWorkers(), true);
  Expect("title", title, "Trabajadores");
  Expect("number of the host's boxes", host.boxes.texts.size(), 1U);
  Expect("window of the banner", HostBanner::window, static_cast<std::int32_t>(window_id));
  Expect("the banner has a window", HostBanner::window != 0, true);
  Expect("window at the closing", HostBanner::closed, HostBanner::window);
  Expect("the panel is to be seen", seen.width > 0, true);
  Expect("the banner is in its panel", HostBanner::place == seen, true);
  Expect("the application looks as before", LookOfApplication() == look, true);
  Expect("family of the window's font", font.family().toStdString(), "Serif");
  Expect("its size is the user's", font.pointSizeF() > 8, true);
  Expect("ground of the window", ground == QApplication::palette().color(QPalette::Window), true);
  return failed ? 1 : 0;
}

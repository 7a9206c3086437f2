// A host application with a desktop as its maker writes it: the public headers, the library with windows, boxes and a
// banner of its own, and nothing else.
#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>

#include "sample_host.hpp"
#include "zendara/windows.hpp"

namespace {

struct Painted {
  std::int32_t window = 0;
  std::int32_t closed = 0;
  zendara::BannerPlace place;
};

class HostBanner : public zendara::Banner {
 public:
  explicit HostBanner(Painted& painted) : painted_(painted) {}
  void PosicionBanner(std::int32_t handle, zendara::BannerPlace& place) override {
    painted_.window = handle;
    painted_.place = place;
  }
  void AvisoCierre(std::int32_t handle) override { painted_.closed = handle; }

 private:
  Painted& painted_;
};

std::string Text(const zendara::BannerPlace& place) {
  std::string text;
  for (const std::int32_t value : {place.left, place.top, place.width, place.height}) {
    text += std::to_string(value) + " ";
  }
  return text;
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
  SampleHost host(argv[1]);
  const auto windows = zendara::MakeWindows();
  windows->Install(host.platform);
  host.platform.dialogs = &host.boxes;
  Painted painted;
  zendara::Components components = *host.platform.components;
  components.Register(zendara::kBannerClass,
                      [&]() -> std::unique_ptr<zendara::Banner> { return std::make_unique<HostBanner>(painted); });
  host.platform.components = &components;

  // The user looks at the screen, saves nothing (Alt+G), and closes it.
  std::string title;
  WId window_id = 0;
  zendara::BannerPlace seen;
  QTimer user;
  user.callOnTimeout([&] {
    QWidget* window = QApplication::activeWindow();
    if (!window) return;
    title = window->windowTitle().toStdString();
    window_id = window->winId();
    seen = SeenPlace(*window);
    QKeyEvent save(QEvent::KeyPress, Qt::Key_G, Qt::AltModifier, "g");
    QApplication::sendEvent(window->focusWidget(), &save);
    window->close();
  });
  user.start(50);

  Findings findings;
  findings.Expect("the mark was handed back", host.ShowWorkers(), true);
  findings.Expect("title", title, "Trabajadores");
  findings.Expect("number of the host's boxes", host.boxes.texts.size(), 1U);
  findings.Expect("the banner has a window", painted.window != 0, true);
  findings.Expect("window of the banner", painted.window, static_cast<std::int32_t>(window_id));
  findings.Expect("window at the closing", painted.closed, painted.window);
  findings.Expect("the panel is to be seen", seen.width > 0, true);
  findings.Expect("place of the banner", Text(painted.place), Text(seen));
  return findings.Status();
}

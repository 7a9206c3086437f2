// The windows through the interface in plain C: without a display they are refused, and with one they show a screen.
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <cstdlib>
#include <iostream>
#include <string>

#include "zendara/windows.h"

namespace {

bool failed = false;

void Expect(bool holds, const char* what) {
  if (holds) return;
  std::cerr << what << "\n";
  failed = true;
}

// In a process of its own, as the toolkit would end it.
int RefusedWithoutDisplay() {
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(name);
  zendara_screens* screens = nullptr;
  const bool nowhere = zendara_windows(ZENDARA_LOOK_HOST, &screens) == ZENDARA_FAILED;
  setenv("DISPLAY", ":4711", 1);
  const bool nobody = zendara_windows(ZENDARA_LOOK_HOST, &screens) == ZENDARA_FAILED;
  return nowhere && nobody && !screens ? 0 : 1;
}

zendara_result Company(void* /*self*/, zendara_variant* value) { return zendara_variant_set_text(value, "00001"); }

}  // namespace

// The argument is the application's folder, which holds DATOS.
int main(int /*argc*/, char** argv) {
  const pid_t child = fork();
  if (child == 0) _exit(RefusedWithoutDisplay());
  int status = 1;
  waitpid(child, &status, 0);
  Expect(status == 0, "without a display there are windows, or no process");

  zendara_screens* screens = nullptr;
  Expect(zendara_windows(7, &screens) == ZENDARA_INVALID, "a look that there is not");
  Expect(zendara_windows(ZENDARA_LOOK_ZENDARA, &screens) == ZENDARA_OK, "no windows");
  // The same by name.
  const zendara_guid dispatch = ZENDARA_IID_DISPATCH;
  void* maker = nullptr;
  zendara_variant made{};
  Expect(zendara_create("Zendara.Screens", &dispatch, &maker) == ZENDARA_OK, "no class of screens");
  Expect(zendara_call(maker, "Windows", ZENDARA_METHOD, nullptr, 0, &made) == ZENDARA_OK, "no windows by name");
  Expect(made.type == ZENDARA_OBJECT && made.value.object, "windows by name are no object");
  zendara_variant_clear(&made);
  zendara_release(maker);
  zendara_engine* engine = nullptr;
  zendara_company* company = nullptr;
  Expect(zendara_engine_open(nullptr, ZENDARA_WRITE, &engine) == ZENDARA_OK, "no engine");
  zendara_platform platform{};
  platform.size = sizeof platform;
  platform.engine = engine;
  platform.application_folder = argv[1];
  platform.screens = screens;
  Expect(zendara_install(&platform) == ZENDARA_OK, "no platform");
  Expect(zendara_company_open(engine, argv[1], "00001", "01", &company) == ZENDARA_OK, "no company");

  std::string title;
  QTimer user;
  user.callOnTimeout([&] {
    QWidget* window = QApplication::activeWindow();
    if (!window) return;
    title = window->windowTitle().toStdString();
    window->close();
  });
  user.start(50);
  zendara_session session{};
  session.size = sizeof session;
  session.CodigoEmpresa = Company;
  Expect(zendara_show(company, "Trabajadores", &session) == ZENDARA_OK, "no screen");
  Expect(title.find("Trabajadores") != std::string::npos, "the screen has another title");
  zendara_release(company);
  zendara_release(screens);
  zendara_release(engine);
  Expect(zendara_install(nullptr) == ZENDARA_OK, "the platform stays");
  return failed ? 1 : 0;
}

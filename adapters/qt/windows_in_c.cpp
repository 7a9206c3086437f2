// The windows for hosts in plain C.
#include <dlfcn.h>

#include <QApplication>
#include <QByteArray>
#include <cstring>

#include "zendara/interop.hpp"
#include "zendara/runtime_error.hpp"
#include "zendara/windows.h"
#include "zendara/windows.hpp"

namespace zendara {
namespace {

// Whether a client library of the machine gets a connection to the display that the environment names.
bool Connects(const char* library, const char* connect_name, const char* error_name, const char* disconnect_name) {
  void* client = dlopen(library, RTLD_NOW);
  if (!client) return false;
  const auto connect = reinterpret_cast<void* (*)(const char*, int*)>(dlsym(client, connect_name));
  const auto error = reinterpret_cast<int (*)(void*)>(dlsym(client, error_name));
  const auto disconnect = reinterpret_cast<void (*)(void*)>(dlsym(client, disconnect_name));
  void* connection = connect && error && disconnect ? connect(nullptr, nullptr) : nullptr;
  const bool connected = connection && error(connection) == 0;
  if (connection) disconnect(connection);
  dlclose(client);
  return connected;
}

// Where there is none, the toolkit would end the process.
bool HasDisplay() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (!platform.isEmpty() && !platform.startsWith("xcb") && !platform.startsWith("wayland")) return true;
  if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") && !platform.startsWith("xcb") &&
      Connects("libwayland-client.so.0", "wl_display_connect", "wl_display_get_error", "wl_display_disconnect")) {
    return true;
  }
  return !qEnvironmentVariableIsEmpty("DISPLAY") && !platform.startsWith("wayland") &&
         Connects("libxcb.so.1", "xcb_connect", "xcb_connection_has_error", "xcb_disconnect");
}

// Lives to the end of the process, as do the libraries of the toolkit.
void MakeApplication() {
  if (QCoreApplication::instance()) {
    if (qobject_cast<QApplication*>(QCoreApplication::instance())) return;
    throw RuntimeError(kInternalError, {}, "the application object of the process has no windows");
  }
  if (!HasDisplay()) throw RuntimeError(kInternalError, {}, "there is no display");
  static int count = 1;
  static char name[] = "zendara";
  static char* arguments[] = {name, nullptr};
  new QApplication(count, arguments);
}

}  // namespace
}  // namespace zendara

extern "C" zendara_result zendara_windows(uint32_t look, zendara_screens** screens) {
  using namespace zendara;
  if (!screens) return ResultOfRefusal(ZENDARA_NULL_POINTER, "no place for the windows");
  *screens = nullptr;
  if (std::strcmp(zendara_version(), ZENDARA_VERSION) != 0) {
    return ResultOfRefusal(ZENDARA_WRONG_VERSION, "libzendara is not of the version " ZENDARA_VERSION);
  }
  if (look != ZENDARA_LOOK_HOST && look != ZENDARA_LOOK_ZENDARA) {
    return ResultOfRefusal(ZENDARA_INVALID, "no such look");
  }
  try {
    MakeApplication();
    *screens = ToC(MakeWindows(look == ZENDARA_LOOK_ZENDARA ? Look::kZendara : Look::kHost));
    return ZENDARA_OK;
  } catch (...) {
    return ResultOfException();
  }
}

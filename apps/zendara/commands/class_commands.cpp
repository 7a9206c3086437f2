// The class files of the machine: what they say, and the libraries that write and remove their own.
#include <dlfcn.h>

#include <filesystem>
#include <string>

#include "apps/zendara/commands/command_error.hpp"
#include "apps/zendara/commands/commands.hpp"
#include "loader/check.h"
#include "loader/own_function.h"
#include "zendara/loader.h"

namespace zendara {
namespace {

// A name without a folder is looked for as the system does, unless it is a file here.
std::string PathOf(const std::string& library) {
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::absolute(library, error);
  return !error && std::filesystem::is_regular_file(whole, error) ? whole.string() : library;
}

// A library loaded for the length of a call of it.
class Loaded {
 public:
  explicit Loaded(const std::string& library) : library_(library), handle_(dlopen(PathOf(library).c_str(), RTLD_NOW)) {
    if (!handle_) throw CommandError(dlerror());
  }
  ~Loaded() { dlclose(handle_); }
  Loaded(const Loaded&) = delete;
  Loaded& operator=(const Loaded&) = delete;

  void Call(const char* function) const {
    const auto change = reinterpret_cast<zendara_result (*)()>(OwnFunction(handle_, function));
    if (!change) throw CommandError(library_ + ": it has no " + function);
    if (change() < 0) throw CommandError(library_ + ": the class files were not changed" + Reason());
  }

 private:
  // As the library says it, or the component that it stands on.
  std::string Reason() const {
    const auto last = reinterpret_cast<decltype(&zendara_last_error)>(dlsym(handle_, "zendara_last_error"));
    zendara_error error{};
    error.size = sizeof error;
    return last && last(&error) >= 0 && *error.detail ? std::string(": ") + error.detail : std::string();
  }

  std::string library_;
  void* handle_;
};

struct ClassList {
  Console& console;
  int classes = 0;
  int faults = 0;
};

zendara_result PrintClass(void* context, const zendara_class_file* file, zendara_result result) noexcept try {
  auto& list = *static_cast<ClassList*>(context);
  ++list.classes;
  if (result == ZENDARA_OK) {
    const std::string version = *file->version ? file->version : "-";
    list.console.Out(std::string(file->name) + " " + version + " " + file->library + " " + file->file + "\n");
    result = CheckClass(file, ZENDARA_VERSION_MAJOR);
  }
  if (result == ZENDARA_OK) return ZENDARA_OK;
  ++list.faults;
  list.console.Out(std::string("fault: ") + zendara_loader_error() + "\n");
  return ZENDARA_OK;
} catch (...) {
  return ZENDARA_OUT_OF_MEMORY;
}

}  // namespace

int Register(const std::string& library, Console& console) {
  Loaded(library).Call("DllRegisterServer");
  console.Out(library + ": registered\n");
  return 0;
}

int Unregister(const std::string& library, Console& console) {
  Loaded(library).Call("DllUnregisterServer");
  console.Out(library + ": unregistered\n");
  return 0;
}

int Classes(Console& console) {
  ClassList list{console};
  if (zendara_loader_each(PrintClass, &list) < 0) throw CommandError(zendara_loader_error());
  if (list.classes == 0) console.Out("no classes are registered\n");
  return list.faults == 0 ? 0 : 1;
}

}  // namespace zendara

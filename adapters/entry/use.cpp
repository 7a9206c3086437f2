#include "adapters/entry/use.hpp"

#include <dlfcn.h>
#include <link.h>

#include <atomic>
#include <cstddef>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace zendara {
namespace {

std::mutex uses_mutex;
long uses = 0;
void* own_handle = nullptr;

std::atomic<std::thread::id> thread{};

// Libraries that keep for themselves what they have once worked out. Unloaded together with this one they would lose
// it, and its memory, each time: they stay.
constexpr std::string_view kCaching[] = {"/libicui18n.so", "/libcairo.so"};

void KeepCaches() try {
  std::vector<std::string> loaded;
  dl_iterate_phdr(
      [](dl_phdr_info* library, std::size_t /*size*/, void* names) {
        for (const std::string_view caching : kCaching) {
          if (std::string_view(library->dlpi_name).find(caching) == std::string_view::npos) continue;
          static_cast<std::vector<std::string>*>(names)->emplace_back(library->dlpi_name);
        }
        return 0;
      },
      &loaded);
  for (const std::string& name : loaded) dlopen(name.c_str(), RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
} catch (...) {
  // Without memory they go.
}

void* OpenOneself() {
  Dl_info self;
  if (dladdr(&own_handle, &self) == 0) return nullptr;
  // Part of a program, it is no library of that name, and needs no handle.
  void* handle = dlopen(self.dli_fname, RTLD_NOW | RTLD_NOLOAD);
  if (handle) KeepCaches();
  return handle;
}

}  // namespace

InUse::InUse() noexcept {
  const std::lock_guard lock(uses_mutex);
  if (uses++ == 0 && !own_handle) own_handle = OpenOneself();
}

InUse::~InUse() {
  const std::lock_guard lock(uses_mutex);
  --uses;
}

bool NothingInUse() noexcept {
  const std::lock_guard lock(uses_mutex);
  if (uses != 0) return false;
  if (own_handle) dlclose(own_handle);
  own_handle = nullptr;
  return true;
}

void TakeThread() noexcept { thread = std::this_thread::get_id(); }
void LeaveThread() noexcept { thread = std::thread::id(); }

bool InThread() noexcept {
  const std::thread::id owner = thread;
  return owner == std::thread::id() || owner == std::this_thread::get_id();
}

}  // namespace zendara

#include "adapters/entry/use.hpp"

#include <dlfcn.h>

#include <atomic>
#include <mutex>
#include <thread>

namespace zendara {
namespace {

std::mutex uses_mutex;
long uses = 0;
void* own_handle = nullptr;

std::atomic<std::thread::id> thread{};

void* OpenOneself() {
  Dl_info self;
  if (dladdr(&own_handle, &self) == 0) return nullptr;
  // Part of a program, it is no library of that name, and needs no handle.
  return dlopen(self.dli_fname, RTLD_NOW | RTLD_NOLOAD);
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

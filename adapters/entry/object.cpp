#include "adapters/entry/object.hpp"

namespace zendara {
namespace {

// Asked by the library itself: it answers as Object.
constexpr Guid kOwnId = {0x6C1B83DF, 0x52E7, 0x4F0A, {0x9B, 0x3D, 0x27, 0xE4, 0x5A, 0x90, 0xC8, 0x11}};

// Those that were left in another thread.
std::atomic<Object*> released = nullptr;

}  // namespace

Result Object::QueryInterface(const Guid* id, void** object) noexcept {
  if (!object) return Failed(ZENDARA_NULL_POINTER, "QueryInterface without a place for the object");
  *object = nullptr;
  if (!id) return Failed(ZENDARA_NULL_POINTER, "QueryInterface without an identifier");
  if (*id == kOwnId) {
    *object = this;
  } else if (*id == kUnknownId || *id == kDispatchId) {
    *object = static_cast<Dispatch*>(this);
  } else {
    *object = Interface(*id);
  }
  if (!*object) return Failed(ZENDARA_NO_INTERFACE, "the object has no interface of that identifier");
  AddRef();
  return ZENDARA_OK;
}

std::uint32_t Object::Release() noexcept {
  const std::uint32_t left = --references_;
  if (left != 0) return left;
  if (InThread()) {
    delete this;
  } else {
    next_released_ = released;
    while (!released.compare_exchange_weak(next_released_, this)) {
    }
  }
  return 0;
}

void Object::DeleteReleased() noexcept {
  for (Object* object = released.exchange(nullptr); object;) delete std::exchange(object, object->next_released_);
}

Object* OwnObject(const void* object) noexcept {
  if (!object) return nullptr;
  auto* unknown = static_cast<zendara_unknown*>(const_cast<void*>(object));
  void* own = nullptr;
  const auto& id = reinterpret_cast<const zendara_guid&>(kOwnId);
  if (unknown->table->QueryInterface(unknown, &id, &own) < 0 || !own) return nullptr;
  static_cast<Object*>(own)->Release();
  return static_cast<Object*>(own);
}

}  // namespace zendara

extern "C" {

void zendara_release(void* object) {
  if (!object) return;
  auto* unknown = static_cast<zendara_unknown*>(object);
  unknown->table->Release(unknown);
}
}

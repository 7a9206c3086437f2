// The objects as hosts have them: counted, each with the table of its functions in front. A class with virtual
// functions is laid out like that, so that the interfaces below are those of zendara/zendara.h, function by function.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <utility>

#include "adapters/entry/failure.hpp"
#include "adapters/entry/use.hpp"
#include "zendara/zendara.h"
#include "zendara/zendara.hpp"

namespace zendara {

static_assert(sizeof(Guid) == sizeof(zendara_guid));
inline const Guid& AsGuid(const zendara_guid& id) { return reinterpret_cast<const Guid&>(id); }

static constexpr Guid kDispatchId = ZENDARA_IID_DISPATCH;
static constexpr Guid kClassId = ZENDARA_IID_CLASS;

// zendara_dispatch_table.
class Dispatch : public Unknown {
 public:
  virtual zendara_result GetIDsOfNames(const char* const* names, std::uint32_t count, std::int32_t* ids) noexcept = 0;
  virtual zendara_result Invoke(std::int32_t id, std::uint32_t use, zendara_variant* arguments, std::uint32_t count,
                                zendara_variant* result) noexcept = 0;

 protected:
  ~Dispatch() = default;
};

// What all objects of the library are, but for class factories.
class Object : public Dispatch {
 public:
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  Result QueryInterface(const Guid* id, void** object) noexcept override;
  std::uint32_t AddRef() noexcept override { return ++references_; }
  // In any thread: what is left by its last user in another one than the component's is deleted there, later.
  std::uint32_t Release() noexcept override;

  static void DeleteReleased() noexcept;

 protected:
  Object() = default;
  virtual ~Object() = default;

 private:
  // Under another identifier than those of every object; null: there is none.
  virtual void* Interface(const Guid& /*id*/) noexcept { return nullptr; }

  InUse in_use_;
  std::atomic<std::uint32_t> references_ = 1;
  Object* next_released_ = nullptr;
};

// One count of an object.
template <typename T>
class Counted {
 public:
  Counted() = default;
  // Takes over the count that a new object has.
  explicit Counted(T* made) : object_(made) {}
  Counted(Counted&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Counted& operator=(Counted&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Counted() {
    if (object_) object_->Release();
  }
  static Counted OneMore(T& object) {
    object.AddRef();
    return Counted(&object);
  }

  T* get() const { return object_; }
  T* operator->() const { return object_; }
  T& operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }
  T* HandOver() { return std::exchange(object_, nullptr); }

 private:
  T* object_ = nullptr;
};

template <typename T, typename... Arguments>
Counted<T> Make(Arguments&&... arguments) {
  return Counted<T>(new T(std::forward<Arguments>(arguments)...));
}

// The object of the library's that stands behind any pointer to one of its interfaces; null when it is somebody else's.
Object* OwnObject(const void* object) noexcept;

// The object that a handle means; refused when it is null or another object of the library's.
template <typename T>
T& Handle(const void* handle) {
  auto* object = dynamic_cast<T*>(OwnObject(&Needed(static_cast<const char*>(handle), "an object is null")));
  if (!object) Refuse(ZENDARA_INVALID, "an object is of another class");
  return *object;
}
template <typename T>
T* HandleOrNull(const void* handle) {
  return handle ? &Handle<T>(handle) : nullptr;
}

// Hands a new object to the host.
template <typename T>
void GiveObject(T** place, Counted<T> object) {
  Needed(place) = object.HandOver();
}

}  // namespace zendara

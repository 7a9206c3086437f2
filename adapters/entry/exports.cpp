// The entry of the library: its classes by identifier and by name, its unloading.
#include <atomic>
#include <string_view>

#include "adapters/classes/class_registration.hpp"
#include "adapters/entry/class_object.hpp"
#include "adapters/entry/failure.hpp"
#include "adapters/entry/object.hpp"
#include "adapters/entry/records.hpp"
#include "adapters/entry/screens.hpp"
#include "adapters/entry/text.hpp"
#include "adapters/plain_c/own_classes.hpp"
#include "runtime/text.hpp"
#include "zendara/zendara.h"
#include "zendara/zendara.hpp"

namespace zendara {
namespace {

using MakeObject = Counted<Object> (*)();

template <typename T>
Counted<Object> AsObject(Counted<T> made) {
  return Counted<Object>(made.HandOver());
}

constexpr struct {
  zendara_guid id;
  MakeObject make;
} kMakers[] = {
    {ZENDARA_CLSID_ZENDARA, MakeClassObject},
    {ZENDARA_CLSID_ENGINE, [] { return AsObject(MakeEngineObject()); }},
    {ZENDARA_CLSID_SCREENS, [] { return AsObject(Make<zendara_screens>()); }},
};

MakeObject MakerOf(const Guid& id) {
  for (const auto& maker : kMakers) {
    if (AsGuid(maker.id) == id) return maker.make;
  }
  Refuse(ZENDARA_NO_CLASS, "the library has no class of that identifier");
}

// An object under one of its interfaces; what is asked for and not there goes again at once.
Result Give(MakeObject make, const Guid* id, void** object) {
  Needed(object) = nullptr;
  return make()->QueryInterface(id, object);
}

std::atomic<long> locks = 0;

// It gives out C++ objects and such in plain C alike: its table of functions is the same for both.
class Factory final : public ClassFactory {
 public:
  explicit Factory(MakeObject make) : make_(make) {}

  Result QueryInterface(const Guid* id, void** object) noexcept override {
    return Answer([&] {
      Needed(object) = nullptr;
      Needed(id);
      if (*id != kUnknownId && *id != kClassFactoryId) Refuse(ZENDARA_NO_INTERFACE, "a class factory has none such");
      AddRef();
      *object = static_cast<ClassFactory*>(this);
    });
  }
  std::uint32_t AddRef() noexcept override { return ++references_; }
  std::uint32_t Release() noexcept override {
    const std::uint32_t left = --references_;
    if (left == 0) delete this;
    return left;
  }

  Result CreateInstance(Unknown* outer, const Guid* id, void** object) noexcept override {
    return Answer([&] {
      Needed(object) = nullptr;
      if (outer) Refuse(ZENDARA_NO_AGGREGATION, "the class is no part of other objects");
      return Give(make_, id, object);
    });
  }
  Result LockServer(std::int32_t lock) noexcept override {
    if (lock) {
      ++locks;
      return ZENDARA_OK;
    }
    long held = locks;
    do {
      if (held == 0) return ZENDARA_FALSE;
    } while (!locks.compare_exchange_weak(held, held - 1));
    return ZENDARA_OK;
  }

 private:
  ~Factory() = default;

  InUse in_use_;
  MakeObject make_;
  std::atomic<std::uint32_t> references_ = 1;
};

const OwnClass& ClassOf(const char* name) {
  const std::string asked = UCase(TakeText(name));
  for (const OwnClass& own : kOwnClasses) {
    if (UCase(own.name) == asked) return own;
  }
  Refuse(ZENDARA_NOT_REGISTERED, "the library has no class of that name");
}

// How a change of the class files came out.
Result Written(void (*change)()) noexcept { return Answer(change) < 0 ? ZENDARA_NOT_WRITTEN : ZENDARA_OK; }

}  // namespace
}  // namespace zendara

using namespace zendara;

extern "C" {

Result DllGetClassObject(const Guid* class_id, const Guid* id, void** object) noexcept {
  return Answer([&] {
    Needed(object) = nullptr;
    const auto factory = Make<Factory>(MakerOf(Needed(class_id)));
    return factory->QueryInterface(id, object);
  });
}

Result DllCanUnloadNow() noexcept {
  if (InThread()) Object::DeleteReleased();
  return locks == 0 && NothingInUse() ? ZENDARA_OK : ZENDARA_FALSE;
}

Result DllRegisterServer() noexcept { return Written(RegisterClasses); }
Result DllUnregisterServer() noexcept { return Written(UnregisterClasses); }

zendara_result zendara_class_id(const char* name, zendara_guid* clsid) {
  return Answer([&] { Needed(clsid) = ClassOf(name).id; });
}

zendara_result zendara_create(const char* name, const zendara_guid* iid, void** object) {
  return Answer([&] {
    Needed(object) = nullptr;
    return Give(MakerOf(AsGuid(ClassOf(name).id)), &AsGuid(Needed(iid)), object);
  });
}
}

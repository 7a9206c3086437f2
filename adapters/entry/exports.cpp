#include <atomic>
#include <new>

#include "zendara/zendara.hpp"

namespace zendara {
namespace {

// The component stays in memory while there are any.
std::atomic<long> uses = 0;  // objects alive and locks held
std::atomic<long> locks = 0;

// The counting that every object has; it answers to `kId` and as Unknown.
template <typename Interface, const Guid& kId>
class Counted : public Interface {
 public:
  Counted() { ++uses; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  Result QueryInterface(const Guid* id, void** object) noexcept final {
    if (!object) return kNullPointer;
    *object = nullptr;
    if (!id) return kNullPointer;
    if (*id != kUnknownId && *id != kId) return kNoInterface;
    AddRef();
    *object = static_cast<Interface*>(this);
    return kResultOk;
  }
  std::uint32_t AddRef() noexcept final { return ++references_; }
  std::uint32_t Release() noexcept final {
    const std::uint32_t left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~Counted() { --uses; }

 private:
  std::atomic<std::uint32_t> references_ = 1;
};

class Instance final : public Counted<ZendaraObject, kZendaraId> {
 public:
  void Carga_Formulario(const std::string& NombreForm, const std::shared_ptr<Database>& MiBD,
                        const std::shared_ptr<Database>& MiBE, const RecordsetArray& MiT,
                        Morlane& ObjMorlane) noexcept override {
    zendara_.Carga_Formulario(NombreForm, MiBD, MiBE, MiT, ObjMorlane);
  }
  void NumBas(std::int16_t valor) noexcept override { zendara_.NumBas(valor); }
  std::int16_t fich2() const noexcept override { return zendara_.fich2(); }
  std::string Fch() const override { return zendara_.Fch(); }

 private:
  ClsZendara zendara_;
};

// Makes an object and hands it out under `id`; what is asked for and not there goes again at once.
template <typename Object>
Result Make(const Guid* id, void** object) noexcept {
  auto* made = new (std::nothrow) Object;
  if (!made) return kOutOfMemoryResult;
  const Result result = made->QueryInterface(id, object);
  made->Release();
  return result;
}

class Factory final : public Counted<ClassFactory, kClassFactoryId> {
 public:
  Result CreateInstance(Unknown* outer, const Guid* id, void** object) noexcept override {
    if (!object) return kNullPointer;
    *object = nullptr;
    if (outer) return kNoAggregation;
    return Make<Instance>(id, object);
  }
  Result LockServer(std::int32_t lock) noexcept override {
    if (lock) {
      ++locks;
      ++uses;
      return kResultOk;
    }
    long held = locks;
    do {
      if (held == 0) return kResultFalse;
    } while (!locks.compare_exchange_weak(held, held - 1));
    --uses;
    return kResultOk;
  }
};

}  // namespace
}  // namespace zendara

extern "C" {

zendara::Result DllGetClassObject(const zendara::Guid* class_id, const zendara::Guid* id, void** object) noexcept {
  if (!object) return zendara::kNullPointer;
  *object = nullptr;
  if (!class_id) return zendara::kNullPointer;
  if (*class_id != zendara::kZendaraClassId) return zendara::kClassNotAvailable;
  return zendara::Make<zendara::Factory>(id, object);
}

zendara::Result DllCanUnloadNow() noexcept { return zendara::uses == 0 ? zendara::kResultOk : zendara::kResultFalse; }

// A host loads the library by its path: there is no registry of classes to write to or to clear.
zendara::Result DllRegisterServer() noexcept { return zendara::kResultOk; }
zendara::Result DllUnregisterServer() noexcept { return zendara::kResultOk; }
}

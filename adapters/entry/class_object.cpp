#include "adapters/entry/class_object.hpp"

#include <atomic>

#include "adapters/entry/install.hpp"
#include "adapters/entry/records.hpp"
#include "adapters/entry/session.hpp"
#include "adapters/entry/structure.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// Calls that show a screen. What is shown may release the object that was called.
std::atomic<int> shows = 0;

class Show {
 public:
  Show() { ++shows; }
  ~Show() { --shows; }
  Show(const Show&) = delete;
  Show& operator=(const Show&) = delete;

 private:
  InUse in_use_;
};

std::shared_ptr<Database> DatabaseOf(zendara_database* database) {
  const auto* object = HandleOrNull<zendara_database>(database);
  return object ? object->database : nullptr;
}

RecordsetArray SlotsOf(const zendara_slots& given) {
  if (given.count != 0) Needed(given.items, "slots without their items");
  RecordsetArray slots{given.lower_bound, {}};
  for (std::uint32_t i = 0; i < given.count; ++i) {
    const auto* recordset = HandleOrNull<zendara_recordset>(given.items[i]);
    slots.items.push_back(recordset ? recordset->recordset : nullptr);
  }
  return slots;
}

std::shared_ptr<Database> DatabaseOf(const Arguments& given, std::uint32_t index) {
  return given.Lacks(index) ? nullptr : given.Own<zendara_database>(index).database;
}

RecordsetArray SlotsOf(const Arguments& given, std::uint32_t index) {
  if (given.Lacks(index)) return {};
  const zendara_variant& meant = Meant(given[index]);
  if (meant.type != ZENDARA_ARRAY || !meant.value.array) Refuse(ZENDARA_WRONG_TYPE, "the slots are no array");
  const zendara_array& array = *meant.value.array;
  RecordsetArray slots{array.lower_bound, {}};
  const Arguments items(array.items, array.count);
  for (std::uint32_t i = 0; i < items.Count(); ++i) {
    slots.items.push_back(items.Lacks(i) ? nullptr : items.Own<zendara_recordset>(i).recordset);
  }
  return slots;
}

// zendara_class_table.
class PlainClass : public Unknown {
 public:
  virtual zendara_result Carga_Formulario(const char* screen, zendara_database* company, zendara_database* second,
                                          const zendara_slots* slots, const zendara_session* session) noexcept = 0;
  virtual zendara_result NumBas(std::int16_t value) noexcept = 0;
  virtual zendara_result fich2(std::int16_t* value) noexcept = 0;
  virtual zendara_result Fch(char** text) noexcept = 0;

 protected:
  ~PlainClass() = default;
};

// The instance as hosts in C have it.
class PlainInstance final : public PlainClass {
 public:
  PlainInstance(Object& instance, ClsZendara& zendara) : instance_(instance), zendara_(zendara) {}

  Result QueryInterface(const Guid* id, void** object) noexcept override {
    return instance_.QueryInterface(id, object);
  }
  std::uint32_t AddRef() noexcept override { return instance_.AddRef(); }
  std::uint32_t Release() noexcept override { return instance_.Release(); }

  zendara_result Carga_Formulario(const char* screen, zendara_database* company, zendara_database* second,
                                  const zendara_slots* slots, const zendara_session* session) noexcept override {
    return AnswerInThread([&] {
      TableSession morlane(CopyOf(session));
      return ShowScreen(TakeText(screen), DatabaseOf(company), DatabaseOf(second), SlotsOf(CopyOf(slots)), morlane);
    });
  }
  zendara_result NumBas(std::int16_t value) noexcept override {
    return AnswerInThread([&] { zendara_.NumBas(value); });
  }
  zendara_result fich2(std::int16_t* value) noexcept override {
    return AnswerInThread([&] { Needed(value) = zendara_.fich2(); });
  }
  zendara_result Fch(char** text) noexcept override {
    return AnswerInThread([&] { GiveText(text, zendara_.Fch()); });
  }

 private:
  Object& instance_;
  ClsZendara& zendara_;
};

// By name, and in C++.
class Instance final : public Named<Instance>, public ZendaraObject {
 public:
  static std::span<const Member<Instance>> Members();

  Result QueryInterface(const Guid* id, void** object) noexcept override { return Object::QueryInterface(id, object); }
  std::uint32_t AddRef() noexcept override { return Object::AddRef(); }
  std::uint32_t Release() noexcept override { return Object::Release(); }

  void Carga_Formulario(const std::string& NombreForm, const std::shared_ptr<Database>& MiBD,
                        const std::shared_ptr<Database>& MiBE, const RecordsetArray& MiT,
                        Morlane& ObjMorlane) noexcept override {
    const Show show;
    ClsZendara().Carga_Formulario(NombreForm, MiBD, MiBE, MiT, ObjMorlane);
  }
  void NumBas(std::int16_t valor) noexcept override { zendara_.NumBas(valor); }
  std::int16_t fich2() const noexcept override { return zendara_.fich2(); }
  std::string Fch() const override { return zendara_.Fch(); }

 private:
  void* Interface(const Guid& id) noexcept override {
    if (id == kZendaraId) return static_cast<ZendaraObject*>(this);
    if (id == kClassId) return static_cast<PlainClass*>(&plain_);
    return nullptr;
  }

  ClsZendara zendara_;
  PlainInstance plain_{*this, zendara_};
};

std::span<const Member<Instance>> Instance::Members() {
  static constexpr Member<Instance> kMembers[] = {
      {"Carga_Formulario", ZENDARA_METHOD, 5, 5,
       [](auto&, auto& given, auto& result) {
         NamedSession morlane(given.AnyObject(4));
         PutLong(result,
                 ShowScreen(given.Text(0), DatabaseOf(given, 1), DatabaseOf(given, 2), SlotsOf(given, 3), morlane));
       }},
      {"NumBas", ZENDARA_PUT, 1, 1, [](auto& self, auto& given, auto&) { self.NumBas(ToInteger(given[0])); }},
      {"fich2", ZENDARA_GET, 0, 0,
       [](auto& self, auto&, auto& result) {
         zendara_variant_clear(&result);
         zendara_variant_set_i2(&result, self.fich2());
       }},
      {"Fch", ZENDARA_GET, 0, 0, [](auto& self, auto&, auto& result) { Put(result, self.Fch()); }},
  };
  return kMembers;
}

}  // namespace

zendara_result ShowScreen(const std::string& screen, const std::shared_ptr<Database>& company,
                          const std::shared_ptr<Database>& second, const RecordsetArray& slots, Morlane& session) {
  {
    const Show show;
    ClsZendara().Carga_Formulario(screen, company, second, slots, session);
  }
  const zendara_result result = LastCallResult();
  if (result != ZENDARA_BUSY && result != ZENDARA_WRONG_THREAD) RethrowOfUser();
  return result;
}

bool ScreenIsShown() { return shows != 0; }

zendara_result LastCallResult() {
  const CallReport report = LastCall();
  switch (report.status) {
    case CallStatus::kDone:
      return ZENDARA_OK;
    case CallStatus::kNoSuchScreen:
      return Failed(ZENDARA_NO_SCREEN, report.reason);
    case CallStatus::kBusy:
      return Failed(ZENDARA_BUSY, report.reason);
    case CallStatus::kWrongThread:
      return Failed(ZENDARA_WRONG_THREAD, report.reason);
    case CallStatus::kNotInstalled:
      return Failed(ZENDARA_NOT_INSTALLED, report.reason);
    case CallStatus::kFailed:
      break;
  }
  throw RuntimeError(report.number, {}, report.reason);
}

Counted<Object> MakeClassObject() { return Counted<Object>(new Instance); }

}  // namespace zendara

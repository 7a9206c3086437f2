#include "adapters/entry/class_object.hpp"

#include <utility>

#include "adapters/entry/install.hpp"
#include "adapters/entry/records.hpp"
#include "adapters/entry/session.hpp"
#include "adapters/entry/structure.hpp"

namespace zendara {
namespace {

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

class Instance final : public Named<Instance>, public ZendaraObject, public PlainClass {
 public:
  static std::span<const Member<Instance>> Members();

  Result QueryInterface(const Guid* id, void** object) noexcept override { return Object::QueryInterface(id, object); }
  std::uint32_t AddRef() noexcept override { return Object::AddRef(); }
  std::uint32_t Release() noexcept override { return Object::Release(); }

  // ZendaraObject
  void Carga_Formulario(const std::string& NombreForm, const std::shared_ptr<Database>& MiBD,
                        const std::shared_ptr<Database>& MiBE, const RecordsetArray& MiT,
                        Morlane& ObjMorlane) noexcept override {
    const InUse shown;
    zendara_.Carga_Formulario(NombreForm, MiBD, MiBE, MiT, ObjMorlane);
  }
  std::int16_t fich2() const noexcept override { return zendara_.fich2(); }
  std::string Fch() const override { return zendara_.Fch(); }

  // PlainClass
  zendara_result Carga_Formulario(const char* screen, zendara_database* company, zendara_database* second,
                                  const zendara_slots* slots, const zendara_session* session) noexcept override {
    return AnswerInThread([&] {
      TableSession morlane(CopyOf(session));
      return ShowScreen(TakeText(screen), DatabaseOf(company), DatabaseOf(second), SlotsOf(CopyOf(slots)), morlane);
    });
  }
  zendara_result fich2(std::int16_t* value) noexcept override {
    return AnswerInThread([&] { Needed(value) = zendara_.fich2(); });
  }
  zendara_result Fch(char** text) noexcept override {
    return AnswerInThread([&] { GiveText(text, zendara_.Fch()); });
  }

 private:
  void* Interface(const Guid& id) noexcept override {
    if (id == kZendaraId) return static_cast<ZendaraObject*>(this);
    if (id == kClassId) return static_cast<PlainClass*>(this);
    return nullptr;
  }

  ClsZendara zendara_;
};

}  // namespace

}  // namespace zendara

// Calls in plain C with everything that may be wrong about them, in any order: each answers, and at the end nothing is
// alive. What goes past memory is for the sanitizers to see.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "apps/demo/demo_company.hpp"
#include "entry/script_object.hpp"
#include "support/temp_folder.hpp"
#include "zendara/engines.hpp"
#include "zendara/zendara.hpp"

namespace zendara {
namespace {

// Members that would change what the next seed begins with are not among them.
constexpr const char* kMembers[] = {"OpenDatabase",
                                    "OpenCompany",
                                    "OpenRecordset",
                                    "Name",
                                    "Close",
                                    "Index",
                                    "Seek",
                                    "NoMatch",
                                    "MoveFirst",
                                    "MoveLast",
                                    "MoveNext",
                                    "MovePrevious",
                                    "Bof",
                                    "Eof",
                                    "RecordCount",
                                    "Fields",
                                    "Company",
                                    "General",
                                    "Slots",
                                    "Carga_Formulario",
                                    "NumBas",
                                    "fich2",
                                    "Fch",
                                    "Automation",
                                    "Install",
                                    "Uninstall",
                                    "",
                                    "no\xC3",
                                    "Nada"};
constexpr const char* kTexts[] = {"",
                                  "1",
                                  "12,5",
                                  "x",
                                  "\xFF\xFE",
                                  "a\xC3",
                                  "Trabajadores",
                                  "TrabajadoresFijo",
                                  "Icampo0",
                                  "SELECT * FROM TrabajadoresFijo",
                                  "00001",
                                  "01",
                                  "Campo0",
                                  "ñandú"};
constexpr std::uint16_t kTypes[] = {ZENDARA_EMPTY,  ZENDARA_NULL,  ZENDARA_I2,     ZENDARA_I4,
                                    ZENDARA_R8,     ZENDARA_DATE,  ZENDARA_TEXT,   ZENDARA_BOOL,
                                    ZENDARA_OBJECT, ZENDARA_ARRAY, ZENDARA_BY_REF, 99};

class Caller {
 public:
  Caller(unsigned seed, const std::string& folder) : random_(seed), folder_(folder) {
    session_.Add("CodigoEmpresa", [this](auto, auto, auto, zendara_variant* result) {
      Fill(*result, 2);
      return Chance(4) ? ZENDARA_EXCEPTION : ZENDARA_OK;
    });
    session_.Add("OnScreen", [this](auto, zendara_variant* given, auto, auto) {
      ++shown;
      Keep(given[0].value.object, true);
      for (int i = 0; i < 5; ++i) Call();
      return ZENDARA_OK;
    });
    const zendara_guid dispatch = ZENDARA_IID_DISPATCH;
    for (const char* name : {"Zendara.Engine", "Zendara.ClsZendara", "Zendara.Screens"}) {
      void* object = nullptr;
      EXPECT_EQ(zendara_create(name, &dispatch, &object), ZENDARA_OK);
      Keep(object, false);
    }
    // What random arguments would seldom come to.
    std::vector<Argument> given;
    for (const char* text : {folder_.c_str(), "00001", "01"}) given.emplace_back(text);
    const Argument company = CallByName(objects_[0], "OpenCompany", std::move(given));
    Keep(company.value.object, true);
    Keep(CallByName(objects_[3], "Company").value.object, true);
    given.clear();
    given.emplace_back(&session_);
    Keep(CallByName(objects_[2], "Automation", std::move(given)).value.object, true);
    given.clear();
    given.emplace_back(objects_[0]);
    given.emplace_back(folder_.c_str());
    CallByName(objects_.back(), "Install", std::move(given));
    company_ = objects_[3];
  }
  ~Caller() {
    while (!objects_.empty()) Drop();
    EXPECT_EQ(zendara_install(nullptr), ZENDARA_OK);
    EXPECT_EQ(session_.Count(), 1);
  }

  int shown = 0;  // screens

  void Act() {
    switch (Below(8)) {
      case 0:
        return Size() > 10 || Chance(10) ? Drop() : Call();
      case 1:
        return Chance(5) ? Screen() : Structures();
      case 2:
        return Handles();
      default:
        return Call();
    }
  }

 private:
  std::uint32_t Below(std::uint32_t end) { return static_cast<std::uint32_t>(random_() % end); }
  bool Chance(std::uint32_t one_in) { return Below(one_in) == 0; }
  void* Any() { return objects_.empty() || Chance(12) ? nullptr : objects_[Below(Size())]; }
  std::uint32_t Size() const { return static_cast<std::uint32_t>(objects_.size()); }

  void Keep(void* object, bool count) {
    if (!object) return;
    auto* unknown = static_cast<zendara_unknown*>(object);
    if (count) unknown->table->AddRef(unknown);
    objects_.push_back(object);
  }
  // Any of them, in any order.
  void Drop() {
    if (objects_.empty()) return;
    const auto place = objects_.begin() + Below(Size());
    zendara_release(*place);
    objects_.erase(place);
  }

  // A variant that is true to its type, but for what it holds.
  void Fill(zendara_variant& value, int depth) {
    zendara_variant_clear(&value);
    const std::uint16_t type = kTypes[Below(std::size(kTypes))];
    value.type = type;
    switch (type) {
      case ZENDARA_I2:
        value.value.i2 = static_cast<std::int16_t>(random_());
        break;
      case ZENDARA_I4:
        value.value.i4 = Chance(2) ? static_cast<std::int32_t>(random_()) : 2;
        break;
      case ZENDARA_R8:
      case ZENDARA_DATE:
        value.value.r8 = Chance(3) ? 0.0 / 0.0 : Chance(2) ? 1e300 : 36965.5;
        break;
      case ZENDARA_BOOL:
        value.value.boolean = static_cast<std::int16_t>(Below(3));
        break;
      case ZENDARA_TEXT:
        value.value.text =
            Chance(4) ? nullptr : zendara_text(Chance(3) ? folder_.c_str() : kTexts[Below(std::size(kTexts))]);
        break;
      case ZENDARA_OBJECT:
        value.type = ZENDARA_EMPTY;
        zendara_variant_set_object(&value, Chance(3) ? static_cast<void*>(&session_) : Any());
        break;
      case ZENDARA_ARRAY: {
        if (depth == 0 || Chance(6)) break;  // without its array
        zendara_array& array = PutArray(value, static_cast<std::int32_t>(Below(7)) - 3, Below(5));
        for (std::uint32_t i = 0; i < array.count; ++i) Fill(array.items[i], depth - 1);
        break;
      }
      case ZENDARA_BY_REF:
        value.value.by_ref = Chance(3) ? nullptr : &referred_;
        break;
      default:
        break;
    }
  }

  void Call() {
    void* object = Any();
    std::vector<Argument> arguments(Below(7));
    for (Argument& argument : arguments) Fill(argument, 2);
    std::vector<zendara_variant> given(arguments.begin(), arguments.end());
    const auto count = static_cast<std::uint32_t>(given.size());
    Argument result;
    if (Chance(3) && object) {
      // By any number.
      auto* dispatch = static_cast<zendara_dispatch*>(object);
      dispatch->table->Invoke(dispatch, static_cast<std::int32_t>(Below(25)) - 2, Below(9), given.data(), count,
                              Chance(5) ? nullptr : &result);
    } else {
      zendara_call(object, Chance(30) ? nullptr : kMembers[Below(std::size(kMembers))], Below(9),
                   Chance(20) ? nullptr : given.data(), count, &result);
    }
    if (result.type == ZENDARA_OBJECT && objects_.size() < 40) Keep(result.value.object, true);
    if (result.type == ZENDARA_ARRAY && objects_.size() < 40 && result.value.array->count > 402) {
      Keep(result.value.array->items[402].value.object, true);
    }
  }

  // The whole call, with one argument of another kind.
  void Screen() {
    if (std::ranges::find(objects_, company_) == objects_.end()) return;
    std::vector<Argument> given;
    given.emplace_back("Trabajadores");
    given.push_back(CallByName(company_, "Company"));
    given.emplace_back();
    given.push_back(CallByName(company_, "Slots"));
    given.emplace_back(&session_);
    const std::uint32_t changed = Below(6);
    if (changed < given.size()) Fill(given[changed], 2);
    const std::vector<void*> objects = objects_;  // which a screen adds to
    for (void* object : objects) CallByName(object, "Carga_Formulario", Copies(given), ZENDARA_METHOD);
  }
  static std::vector<Argument> Copies(std::vector<Argument>& given) {
    std::vector<Argument> references(given.size());
    for (std::size_t i = 0; i < given.size(); ++i) {
      references[i].type = ZENDARA_BY_REF;
      references[i].value.by_ref = &given[i];
    }
    return references;
  }

  void Structures() {
    // Every size at the end of memory of that size.
    const std::uint32_t size = Below(sizeof(zendara_platform) + 40);
    std::vector<char> bytes(std::max<std::size_t>(size, sizeof size));
    std::memcpy(bytes.data(), &size, sizeof size);
    switch (Below(4)) {
      case 0:
        zendara_last_error(reinterpret_cast<zendara_error*>(bytes.data()));
        break;
      case 1:
        zendara_install(reinterpret_cast<zendara_platform*>(bytes.data()));
        break;
      case 2: {
        zendara_screens* screens = nullptr;
        if (zendara_automation(reinterpret_cast<zendara_user*>(bytes.data()), &screens) >= 0) Keep(screens, false);
        break;
      }
      default:
        zendara_company_parts(static_cast<zendara_company*>(Any()), nullptr, nullptr,
                              reinterpret_cast<zendara_slots*>(bytes.data()));
    }
  }

  void Handles() {
    const char* text = Chance(5) ? nullptr : kTexts[Below(std::size(kTexts))];
    zendara_database* database = nullptr;
    zendara_recordset* rows = nullptr;
    switch (Below(5)) {
      case 0:
        zendara_database_open(static_cast<zendara_engine*>(Any()), text, &database);
        break;
      case 1:
        zendara_recordset_open(static_cast<zendara_database*>(Any()), text, Below(10), &rows);
        break;
      case 2:
        zendara_recordset_set_index(static_cast<zendara_recordset*>(Any()), text);
        break;
      case 3:
        zendara_show(static_cast<zendara_company*>(Any()), text, nullptr);
        break;
      default:
        zendara_set_error(static_cast<std::int32_t>(random_()), text);
    }
    Keep(database, false);
    Keep(rows, false);
  }

  std::mt19937 random_;
  std::string folder_;
  ScriptObject session_{{}};
  Argument referred_{"00001"};
  std::vector<void*> objects_;
  void* company_ = nullptr;
};

TEST(Fuzz, EveryCallAnswersAndEveryObjectGoes) {
  TempFolder folder;
  WriteDemoCompany(*MakeEngine(), {.folder = folder.path().string(), .workers = 2});
  int shown = 0;
  for (unsigned seed = 1; seed <= 40; ++seed) {
    {
      Caller caller(seed, folder.path().string());
      for (int i = 0; i < 250; ++i) caller.Act();
      shown += caller.shown;
    }
    EXPECT_EQ(DllCanUnloadNow(), kResultOk) << "seed " << seed;
  }
  EXPECT_GT(shown, 20) << "hardly a call comes through";
}

}  // namespace
}  // namespace zendara

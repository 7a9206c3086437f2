// A whole session by calls by name alone, as a script language makes them; the session and the user are its objects.
#include <gmock/gmock.h>

#include <map>
#include <thread>

#include "apps/demo/demo_company.hpp"
#include "entry/script_object.hpp"
#include "support/temp_folder.hpp"
#include "zendara/engines.hpp"
#include "zendara/zendara.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class LateBinding : public testing::Test {
 protected:
  LateBinding() {
    WriteDemoCompany(*MakeEngine(), {.folder = folder.path().string(), .workers = 3});
    for (const auto& [name, text] : std::map<std::string, const char*>{{"CodigoEmpresa", "00001"},
                                                                       {"NombreEmpresa", "Empresa"},
                                                                       {"Ejercicio", "2001"},
                                                                       {"Cambio", "166,386"},
                                                                       {"FechaTrabajo", "15/03/01"},
                                                                       {"Programa", "01"}}) {
      session.Add(name, [text = text](auto, auto, auto, zendara_variant* result) {
        return zendara_variant_set_text(result, text);
      });
    }
    session.Add("retorno", [this](std::uint32_t use, zendara_variant* given, auto, zendara_variant* result) {
      if ((use & ZENDARA_PUT) == 0) return zendara_variant_set_text(result, "P");
      marks.emplace_back(given[0].value.text);
      return ZENDARA_OK;
    });
    const zendara_guid dispatch = ZENDARA_IID_DISPATCH;
    zendara_create("Zendara.Engine", &dispatch, &engine);
    zendara_create("Zendara.Screens", &dispatch, &screens);
    zendara_create("Zendara.ClsZendara", &dispatch, &zendara);
    company = CallByName(engine, "OpenCompany", Arguments({folder.path().c_str(), "00001", "01"}));
  }
  ~LateBinding() override {
    zendara_result answer = ZENDARA_FALSE;
    CallByName(screens, "Uninstall", {}, ZENDARA_METHOD, &answer);
    EXPECT_EQ(answer, ZENDARA_OK) << LastError().detail;
    for (void* object : {engine, screens, zendara}) zendara_release(object);
    zendara_variant_clear(&company);
    EXPECT_EQ(user.Count(), 1);
    EXPECT_EQ(session.Count(), 1);
    EXPECT_EQ(DllCanUnloadNow(), kResultOk);
  }

  static std::vector<Argument> Arguments(std::initializer_list<const char*> texts) {
    std::vector<Argument> arguments;
    for (const char* text : texts) arguments.emplace_back(text);
    return arguments;
  }
  void Install() {
    std::vector<Argument> given;
    given.emplace_back(&user);
    const Argument automation = CallByName(screens, "Automation", std::move(given));
    ASSERT_EQ(automation.type, ZENDARA_OBJECT) << LastError().detail;
    given.clear();
    given.emplace_back(engine);
    given.emplace_back(folder.path().c_str());
    zendara_result answer = ZENDARA_FALSE;
    CallByName(automation.value.object, "Install", std::move(given), ZENDARA_METHOD, &answer);
    ASSERT_EQ(answer, ZENDARA_OK) << LastError().detail;
  }
  // Arguments by value, or by reference.
  Argument Show(const char* screen, zendara_result& answer, bool by_reference = false) {
    std::vector<Argument> given;
    given.emplace_back(screen);
    given.push_back(CallByName(company.value.object, "Company"));
    given.emplace_back();
    given.push_back(CallByName(company.value.object, "Slots"));
    given.emplace_back(&session);
    if (!by_reference) return CallByName(zendara, "Carga_Formulario", std::move(given), ZENDARA_METHOD, &answer);
    std::vector<Argument> references(given.size());
    for (std::size_t i = 0; i < given.size(); ++i) {
      references[i].type = ZENDARA_BY_REF;
      references[i].value.by_ref = &given[i];
    }
    return CallByName(zendara, "Carga_Formulario", std::move(references), ZENDARA_METHOD, &answer);
  }

  TempFolder folder;
  ScriptObject session{{}};
  ScriptObject user{{}};
  std::vector<std::string> marks, seen;
  void *engine = nullptr, *screens = nullptr, *zendara = nullptr;
  Argument company;
};

std::string TextOf(const zendara_variant& value) { return ToText(value); }

TEST_F(LateBinding, AScriptShowsAScreenAnswersItsBoxesTakesFromItsListsAndKeepsNothingOfIt) {
  void* kept = nullptr;
  user.Add("OnScreen", [&](auto, zendara_variant* given, auto, auto) {
    zendara_unknown* screen = given[0].value.object;
    const auto act = [&](const char* member, const char* text) {
      zendara_result answer = ZENDARA_FALSE;
      CallByName(screen, member, Arguments({text}), ZENDARA_METHOD, &answer);
      EXPECT_EQ(answer, ZENDARA_OK) << member << " " << text << ": " << LastError().detail;
    };
    act("Type", "2\n");
    seen.push_back(TextOf(CallByName(screen, "Subject")));
    act("Click", "CmdCalcular");
    act("Focus", "Text1(12)");
    act("Click", "Anterior");
    std::vector<Argument> row;
    row.emplace_back("Ninguno");
    zendara_result answer = ZENDARA_OK;
    CallByName(screen, "Read", std::move(row), ZENDARA_GET, &answer);
    EXPECT_EQ(answer, ZENDARA_EXCEPTION);
    EXPECT_EQ(LastError().number, 3265);
    const Argument controls = CallByName(screen, "Controls");
    EXPECT_GT(controls.value.array->count, 100U);
    // Nobody else gets the component meanwhile.
    Show("Trabajadores", answer);
    std::vector<Argument> again;
    again.emplace_back();
    again.emplace_back(folder.path().c_str());
    CallByName(screens, "Uninstall", {}, ZENDARA_METHOD, &answer);
    EXPECT_EQ(answer, ZENDARA_BUSY);
    screen->table->AddRef(screen);
    kept = screen;
    return ZENDARA_OK;
  });
  user.Add("OnBox", [&](auto, zendara_variant* given, std::uint32_t count, zendara_variant* result) {
    EXPECT_EQ(count, 5U);
    seen.push_back(TextOf(given[0]).substr(0, 4));
    PutLong(*result, ZENDARA_ANSWER_NO);
    return ZENDARA_OK;
  });
  Install();
  zendara_result answer = ZENDARA_FALSE;
  for (const bool by_reference : {false, true}) {
    seen.clear();
    const Argument came_out = Show("Trabajadores", answer, by_reference);
    EXPECT_EQ(answer, ZENDARA_OK) << LastError().detail;
    EXPECT_EQ(ToLong(came_out), ZENDARA_OK) << LastError().detail;
    EXPECT_THAT(seen, ElementsAre(HasSubstr("00002"), "El T"));
    CallByName(kept, "Close", {}, ZENDARA_METHOD, &answer);
    EXPECT_EQ(answer, ZENDARA_EXCEPTION);
    EXPECT_EQ(LastError().number, 3420) << "the call is over";
    zendara_release(kept);
  }
  EXPECT_EQ(ToLong(Show("trabajadores", answer)), ZENDARA_NO_SCREEN);
  EXPECT_EQ(answer, ZENDARA_OK) << "a name that no screen has is no error by name";
  EXPECT_THAT(marks, ElementsAre("P", "P", "P"));
}

TEST_F(LateBinding, WhatTheUserFailsWithComesBackWithItsNumber) {
  user.Add("OnScreen", [&](auto, auto, auto, auto) {
    zendara_set_error(70, "told by the script");
    return ZENDARA_EXCEPTION;
  });
  Install();
  zendara_result answer = ZENDARA_OK;
  Show("Trabajadores", answer);
  EXPECT_EQ(answer, ZENDARA_EXCEPTION);
  EXPECT_EQ(LastError().number, 70);
  EXPECT_STREQ(LastError().text, "Permiso denegado");
  EXPECT_THAT(LastError().detail, HasSubstr("told by the script"));
}

TEST_F(LateBinding, OneThreadHasTheComponentAndArgumentsAreCheckedBeforeAnythingIsDone) {
  Install();
  zendara_result answer = ZENDARA_OK;
  std::thread([&] {
    Show("Trabajadores", answer);
    EXPECT_EQ(answer, ZENDARA_WRONG_THREAD);
    // Its objects may be let go of anywhere.
    void* other = nullptr;
    const zendara_guid dispatch = ZENDARA_IID_DISPATCH;
    EXPECT_EQ(zendara_create("Zendara.Engine", &dispatch, &other), ZENDARA_OK);
    zendara_release(other);
  }).join();
  CallByName(zendara, "Carga_Formulario", Arguments({"Trabajadores"}), ZENDARA_METHOD, &answer);
  EXPECT_EQ(answer, ZENDARA_WRONG_COUNT);
  CallByName(zendara, "Carga_Formulario", Arguments({"Trabajadores", "a", "b", "c", "d"}), ZENDARA_METHOD, &answer);
  EXPECT_EQ(answer, ZENDARA_WRONG_TYPE);
  std::vector<Argument> swapped;
  swapped.emplace_back("Trabajadores");
  swapped.emplace_back(engine);
  for (int i = 0; i < 2; ++i) swapped.emplace_back();
  swapped.emplace_back(&session);
  CallByName(zendara, "Carga_Formulario", std::move(swapped), ZENDARA_METHOD, &answer);
  EXPECT_EQ(answer, ZENDARA_WRONG_TYPE) << "an engine is no database";
  EXPECT_THAT(marks, testing::IsEmpty());
}

TEST_F(LateBinding, StoredRowsAreReadByName) {
  const Argument database = CallByName(company.value.object, "Company");
  std::vector<Argument> given = Arguments({"SELECT Campo0, Campo44 FROM TrabajadoresFijo ORDER BY Campo0"});
  const Argument rows = CallByName(database.value.object, "OpenRecordset", std::move(given));
  ASSERT_EQ(rows.type, ZENDARA_OBJECT) << LastError().detail;
  std::vector<std::string> numbers;
  while (CallByName(rows.value.object, "EOF").value.boolean == 0) {
    numbers.push_back(TextOf(CallByName(rows.value.object, "Fields", Arguments({"Campo0"}))));
    CallByName(rows.value.object, "MoveNext");
  }
  EXPECT_THAT(numbers, ElementsAre("00001", "00002", "00003"));

  const Argument slots = CallByName(company.value.object, "Slots");
  ASSERT_EQ(slots.value.array->count, 501U);
  void* workers = slots.value.array->items[402].value.object;
  CallByName(workers, "Seek", Arguments({"00009"}));
  EXPECT_NE(CallByName(workers, "NoMatch").value.boolean, 0);
  zendara_result answer = ZENDARA_OK;
  CallByName(workers, "Index", Arguments({"No"}), ZENDARA_PUT, &answer);
  EXPECT_EQ(answer, ZENDARA_EXCEPTION);
  EXPECT_EQ(LastError().number, 3015);
}

}  // namespace
}  // namespace zendara

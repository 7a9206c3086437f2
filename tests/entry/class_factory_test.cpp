// The classes of the library, as loaders in C++ and in C have them.
#include <gtest/gtest.h>

#include "zendara/zendara.h"
#include "zendara/zendara.hpp"

namespace zendara {
namespace {

template <typename T>
T* As(void* object) {
  return static_cast<T*>(object);
}

struct NoSession : Morlane {
  std::string CodigoEmpresa() override { return {}; }
  Value NombreEmpresa() override { return {}; }
  std::string Retorno() override { return "E"; }
  Value Ejercicio() override { return {}; }
  void Retorno(const std::string& text) override { returned = text; }
  Value Valor8() override { return {}; }
  Value Valor1() override { return {}; }
  Value Cambio() override { return {}; }
  std::int16_t ValorEntero() override { return 0; }
  Value FechaTrabajo() override { return {}; }
  std::string Programa() override { return {}; }

  std::string returned;
};

TEST(ClassFactory, IsRefusedWhatItDoesNotHaveAndThenNothingIsAlive) {
  void* object = &object;
  const zendara_guid unknown = ZENDARA_IID_UNKNOWN;
  EXPECT_EQ(DllGetClassObject(&kZendaraId, &kClassFactoryId, &object), kClassNotAvailable);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(DllGetClassObject(&kZendaraClassId, &kZendaraId, &object), kNoInterface);
  EXPECT_EQ(DllGetClassObject(&kZendaraClassId, &kClassFactoryId, nullptr), kNullPointer);
  EXPECT_EQ(DllGetClassObject(nullptr, &kClassFactoryId, &object), kNullPointer);
  EXPECT_EQ(DllGetClassObject(&kZendaraClassId, nullptr, &object), kNullPointer);
  EXPECT_EQ(zendara_create("Zendara.Nothing", &unknown, &object), ZENDARA_NOT_REGISTERED);
  EXPECT_EQ(DllCanUnloadNow(), kResultOk);
}

TEST(ClassFactory, GivesOneObjectUnderAllItsInterfacesAndKeepsTheLibrary) {
  void* object = nullptr;
  ASSERT_EQ(DllGetClassObject(&kZendaraClassId, &kClassFactoryId, &object), kResultOk);
  auto* factory = As<ClassFactory>(object);
  EXPECT_EQ(factory->CreateInstance(factory, &kUnknownId, &object), kNoAggregation);
  EXPECT_EQ(factory->CreateInstance(nullptr, &kClassFactoryId, &object), kNoInterface);
  ASSERT_EQ(factory->CreateInstance(nullptr, &kZendaraId, &object), kResultOk);
  auto* instance = As<ZendaraObject>(object);
  EXPECT_EQ(factory->LockServer(false), kResultFalse) << "it is not locked";
  factory->LockServer(true);

  instance->NumBas(-5);
  NoSession session;
  instance->Carga_Formulario("", nullptr, nullptr, {}, session);
  EXPECT_EQ(session.returned, "E");
  EXPECT_EQ(instance->fich2(), -5);
  EXPECT_EQ(ClsZendara().fich2(), -5) << "any instance has it";
  EXPECT_EQ(instance->Fch(), "");

  // The same in C, and by name.
  const zendara_guid in_c = ZENDARA_IID_CLASS;
  EXPECT_EQ(instance->QueryInterface(reinterpret_cast<const Guid*>(&in_c), &object), kResultOk);
  auto* plain = As<zendara_class>(object);
  std::int16_t number = 0;
  EXPECT_EQ(plain->table->fich2(plain, &number), ZENDARA_OK);
  EXPECT_EQ(number, -5);
  char* text = nullptr;
  EXPECT_EQ(plain->table->Fch(plain, &text), ZENDARA_OK);
  EXPECT_STREQ(text, "");
  zendara_free(text);
  zendara_variant seven = {ZENDARA_I2, {}, {.i2 = 7}}, result = {};
  EXPECT_EQ(zendara_call(plain, "NUMBAS", ZENDARA_PUT, &seven, 1, nullptr), ZENDARA_OK);
  EXPECT_EQ(zendara_call(plain, "Fich2", ZENDARA_GET, nullptr, 0, &result), ZENDARA_OK);
  EXPECT_EQ(result.value.i2, 7);
  EXPECT_EQ(zendara_call(plain, "NumBas", ZENDARA_GET, nullptr, 0, &result), ZENDARA_NO_MEMBER);
  // It is one object, whatever it is asked under.
  void *first = nullptr, *second = nullptr;
  EXPECT_EQ(instance->QueryInterface(&kUnknownId, &first), kResultOk);
  const zendara_guid unknown = ZENDARA_IID_UNKNOWN;
  EXPECT_EQ(plain->table->QueryInterface(plain, &unknown, &second), ZENDARA_OK);
  EXPECT_EQ(first, second);
  zendara_release(first);
  zendara_release(second);

  EXPECT_EQ(plain->table->Release(plain), 1u);
  EXPECT_EQ(instance->Release(), 0u);
  EXPECT_EQ(DllCanUnloadNow(), kResultFalse) << "the factory lives";
  EXPECT_EQ(factory->Release(), 0u);
  EXPECT_EQ(DllCanUnloadNow(), kResultFalse) << "it is locked";

  ASSERT_EQ(DllGetClassObject(&kZendaraClassId, &kClassFactoryId, &object), kResultOk);
  auto* in_c_too = As<zendara_class_factory>(object);
  EXPECT_EQ(in_c_too->table->LockServer(in_c_too, 0), ZENDARA_OK);
  EXPECT_EQ(in_c_too->table->LockServer(in_c_too, 0), ZENDARA_FALSE);
  EXPECT_EQ(in_c_too->table->Release(in_c_too), 0u);
  EXPECT_EQ(DllCanUnloadNow(), kResultOk);
}

TEST(ClassFactory, MakesEachOfTheClassesByNameAndByIdentifier) {
  const zendara_guid dispatch = ZENDARA_IID_DISPATCH;
  for (const char* name : {"Zendara.ClsZendara", "ZENDARA.ENGINE", "zendara.screens"}) {
    zendara_guid id{};
    ASSERT_EQ(zendara_class_id(name, &id), ZENDARA_OK) << name;
    void *factory = nullptr, *made = nullptr, *named = nullptr;
    ASSERT_EQ(DllGetClassObject(reinterpret_cast<const Guid*>(&id), &kClassFactoryId, &factory), kResultOk);
    EXPECT_EQ(As<ClassFactory>(factory)->CreateInstance(nullptr, reinterpret_cast<const Guid*>(&dispatch), &made),
              kResultOk);
    EXPECT_EQ(zendara_create(name, &dispatch, &named), ZENDARA_OK);
    for (void* object : {factory, made, named}) zendara_release(object);
    EXPECT_EQ(DllCanUnloadNow(), kResultOk) << name;
  }
}

}  // namespace
}  // namespace zendara

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "component/componente.hpp"
#include "fakes.hpp"
#include "runtime/date.hpp"
#include "zendara/zendara.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;

struct FakeMorlane : Morlane {
  explicit FakeMorlane(Diary& d) : diary(d) {}

  std::string CodigoEmpresa() override { return Read("CodigoEmpresa", codigo); }
  Value NombreEmpresa() override { return Read("NombreEmpresa", nombre); }
  std::string Retorno() override { return Read("Retorno", retorno); }
  Value Ejercicio() override { return Read("Ejercicio", ejercicio); }
  void Retorno(const std::string& text) override { diary.Note("Retorno = " + text); }
  Value Valor8() override { return Read("Valor8", Value("ocho")); }
  Value Valor1() override { return Read("Valor1", Value("uno")); }
  Value Cambio() override { return Read("Cambio", cambio); }
  std::int16_t ValorEntero() override { return Read("ValorEntero", std::int16_t{7}); }
  Value FechaTrabajo() override { return Read("FechaTrabajo", fecha); }
  std::string Programa() override { return Read("Programa", std::string("01")); }

  template <typename T>
  T Read(const std::string& name, T value) {
    diary.Note(name);
    if (name == broken) throw std::runtime_error("not of the run-time library");
    return value;
  }

  Diary& diary;
  std::string codigo = "12";
  Value nombre = "  Ñandú";
  Value ejercicio = 2001;
  Value cambio = "166,386";
  Value fecha = "15/03/01";
  std::string retorno = "P";
  std::string broken;
};

struct FakePantalla : Pantalla {
  explicit FakePantalla(Diary& d) : diary(d) {}
  void Mostrar() override { diary.Note("Mostrar"); }
  Diary& diary;
};

class Component : public testing::Test {
 protected:
  Component() {
    ElComponente().sesion = Sesion{Platform{}};
    ElComponente().pantallas = {};
    InstallPlatform({engine.get(), &dialogs, &files, "C:\\nom"});
  }

  void Registra(const std::string& nombre) {
    ElComponente().pantallas.Registra(nombre, [this, nombre] {
      diary.Note("crea " + nombre);
      return std::make_shared<FakePantalla>(diary);
    });
  }
  void Carga(const std::string& nombre) { ClsZendara().Carga_Formulario(nombre, bd, be, tablas, morlane); }

  Diary diary;
  std::shared_ptr<FakeEngine> engine = std::make_shared<FakeEngine>(diary);
  FakeDialogs dialogs;
  FakeFiles files;
  FakeMorlane morlane{diary};
  std::shared_ptr<Database> bd = std::make_shared<FakeDatabase>(diary, "bd");
  std::shared_ptr<Database> be = std::make_shared<FakeDatabase>(diary, "be");
  RecordsetArray tablas{0, std::vector<std::shared_ptr<Recordset>>(kSlots + 1)};
  Sesion& sesion = ElComponente().sesion;
};

TEST_F(Component, TheSessionIsReadInOrderThenTheScreenIsShownThenTheMarkGoesBack) {
  morlane.nombre = "  Ñandú " + std::string(60, 'n');
  Registra("MIncidencias");
  Carga("MIncidencias");
  EXPECT_THAT(diary.lines,
              ElementsAre("CodigoEmpresa", "NombreEmpresa", "Ejercicio", "Cambio", "Valor8", "Valor1", "ValorEntero",
                          "Programa", "Retorno", "FechaTrabajo", "crea MIncidencias", "Mostrar", "Retorno = P"));
  EXPECT_EQ(sesion.BDEmpresa, bd);
  EXPECT_EQ(sesion.BDSegunda, be);
  EXPECT_EQ(sesion.CodEmpresa.str(), "12   ");
  EXPECT_EQ(sesion.NomEmpresa.str(), "Ñandú " + std::string(47, 'n'));
  EXPECT_EQ(sesion.AnoTrabajo.str(), "01");
  EXPECT_EQ(sesion.CambioEuro.str(), "166,386");
  EXPECT_EQ(sesion.ValorSesion8.str(), "ocho    ");
  EXPECT_EQ(sesion.ValorSesion1.str(), "u");
  EXPECT_EQ(sesion.ValorSesionEntero, 7);
  EXPECT_EQ(sesion.CodPrograma, "01");
  EXPECT_EQ(sesion.TextoRetorno, "P");
  EXPECT_EQ(PartsOf(sesion.FechaSesion), (DateParts{2001, 3, 15}));
}

TEST_F(Component, TheWorkingYearIsTheLastTwoCharactersAndMovesTheWindowOfTwoDigitYears) {
  struct Case {
    Value ejercicio;
    const char* ano;
    int year_of_45;
  };
  const Case cases[] = {
      {Value("2026"), "26", 2045},  // the window ends 19 years after the working year
      {Value("xx"), "xx", 2045},    // no number: the window stays
      {Value(5), "5 ", 1945},
      {Value(1999), "99", 1945},
  };
  for (const Case& c : cases) {
    morlane.ejercicio = c.ejercicio;
    morlane.fecha = "15/03/45";
    Carga("");
    EXPECT_EQ(sesion.AnoTrabajo.str(), c.ano);
    EXPECT_EQ(PartsOf(sesion.FechaSesion).year, c.year_of_45) << c.ano;
  }
}

TEST_F(Component, AFailedReadLeavesItsValueAndTheOthersAreRead) {
  Carga("");
  morlane.codigo = "00009";
  morlane.nombre = Null();
  morlane.ejercicio = "2002";
  morlane.cambio = "2";
  morlane.fecha = "no es fecha";
  morlane.broken = "Ejercicio";
  diary.failures["Cambio"] = kInvalidCall;
  Carga("");
  EXPECT_EQ(sesion.CodEmpresa.str(), "00009");
  EXPECT_EQ(sesion.NomEmpresa.str(), "Ñandú" + std::string(48, ' '));
  EXPECT_EQ(sesion.AnoTrabajo.str(), "01");
  EXPECT_EQ(sesion.CambioEuro.str(), "166,386");
  EXPECT_EQ(PartsOf(sesion.FechaSesion), (DateParts{2001, 3, 15}));
  EXPECT_EQ(diary.lines.back(), "Retorno = P");
}

TEST_F(Component, SlotsAreSharedFromTheLowerBoundAndMissingOnesStay) {
  const auto recordset = [&] { return std::make_shared<FakeRecordset>(diary, "t"); };
  tablas.items[0] = recordset();
  for (const std::size_t i : {1, 402, 500}) tablas.items[i] = recordset();
  Carga("");
  EXPECT_EQ(sesion.Tablas[0], nullptr);
  for (const std::size_t i : {1, 402, 500}) EXPECT_EQ(sesion.Tablas[i], tablas.items[i]) << i;

  // Slots 400 to 402 only: the others keep what they have, an empty handle empties its slot.
  const auto before = sesion.Tablas;
  tablas = {400, {recordset(), recordset(), nullptr}};
  Carga("");
  EXPECT_EQ(sesion.Tablas[400], tablas.items[0]);
  EXPECT_EQ(sesion.Tablas[402], nullptr);
  EXPECT_EQ(sesion.Tablas[1], before[1]);
  EXPECT_EQ(sesion.Tablas[500], before[500]);
}

TEST_F(Component, OnlyTheFourScreensOfTheHostAreShownByTheirExactNames) {
  const std::string names[] = {"Trabajadores", "MIncidencias",     "MIncidenciasESP", "MIncidenciasVAR",
                               "trabajadores", "Trabajadores ",    "MIncidenciasVar", "",
                               "Imprgast",     "ListadoTrabajador"};
  for (const std::string& name : names) Registra(name);
  std::vector<std::string> shown;
  for (const std::string& name : names) {
    diary.lines.clear();
    Carga(name);
    EXPECT_EQ(diary.lines.back(), "Retorno = P");
    if (std::ranges::find(diary.lines, "Mostrar") != diary.lines.end()) shown.push_back(name);
  }
  EXPECT_THAT(shown, ElementsAre("Trabajadores", "MIncidencias", "MIncidenciasESP", "MIncidenciasVAR"));
}

TEST(RegistroPantallas, AScreenLivesFromItsFirstUseUntilItUnloadsEvenWhileShown) {
  struct Unloading : Pantalla {
    Unloading(RegistroPantallas& r, int& a) : registro(r), alive(a) { ++alive; }
    ~Unloading() override { --alive; }
    void Mostrar() override {
      registro.Descarga("X");
      EXPECT_EQ(alive, 1);
    }
    RegistroPantallas& registro;
    int& alive;
  };
  RegistroPantallas registro;
  int alive = 0;
  registro.Registra("X", [&] { return std::make_shared<Unloading>(registro, alive); });
  EXPECT_EQ(alive, 0);
  EXPECT_EQ(registro.Objeto("X"), registro.Objeto("X"));
  EXPECT_EQ(alive, 1);
  EXPECT_TRUE(registro.Muestra("X"));
  EXPECT_EQ(alive, 0);
  EXPECT_FALSE(registro.Muestra("x"));
}

TEST_F(Component, AScreenThatFailsOrCannotBeMadeIsPassedOver) {
  Registra("Trabajadores");
  for (const std::string line : {"crea Trabajadores", "Mostrar"}) {
    diary = {};
    diary.failures[line] = kObjectNotSet;
    Carga("Trabajadores");
    EXPECT_EQ(diary.lines.back(), "Retorno = P") << line;
  }
  InstallPlatform({});
  diary = {};
  Carga("Trabajadores");
  EXPECT_EQ(std::ranges::count(diary.lines, "Mostrar"), 0) << "no surroundings, no screen";
}

TEST_F(Component, NumBasIsReadBackThroughFich2OfAnyInstance) {
  ClsZendara one;
  const ClsZendara other;
  one.NumBas(-5);
  Carga("");
  EXPECT_EQ(other.fich2(), -5);
  EXPECT_EQ(other.Fch(), "");
}

TEST_F(Component, IsLoadedThroughItsClassFactoryAndUnloadsWhenNothingIsInUse) {
  void* object = &diary;
  EXPECT_EQ(DllGetClassObject(&kZendaraId, &kClassFactoryId, &object), kClassNotAvailable);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(DllGetClassObject(&kZendaraClassId, &kZendaraId, &object), kNoInterface);
  EXPECT_EQ(DllGetClassObject(&kZendaraClassId, &kClassFactoryId, nullptr), kNullPointer);
  EXPECT_EQ(DllCanUnloadNow(), kResultOk) << "a refusal leaves nothing alive";

  ASSERT_EQ(DllGetClassObject(&kZendaraClassId, &kClassFactoryId, &object), kResultOk);
  auto* factory = static_cast<ClassFactory*>(object);
  EXPECT_EQ(factory->CreateInstance(factory, &kUnknownId, &object), kNoAggregation);
  EXPECT_EQ(factory->CreateInstance(nullptr, &kClassFactoryId, &object), kNoInterface);
  ASSERT_EQ(factory->CreateInstance(nullptr, &kZendaraId, &object), kResultOk);
  auto* instance = static_cast<ZendaraObject*>(object);
  factory->LockServer(true);

  instance->NumBas(12);
  EXPECT_EQ(instance->fich2(), 12);
  EXPECT_EQ(ClsZendara().fich2(), 12);
  EXPECT_EQ(instance->Fch(), "");
  instance->Carga_Formulario("", bd, be, tablas, morlane);
  EXPECT_EQ(sesion.BDEmpresa, bd);

  EXPECT_EQ(instance->QueryInterface(&kUnknownId, &object), kResultOk);
  EXPECT_EQ(instance->QueryInterface(&kClassFactoryId, &object), kNoInterface);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(instance->Release(), 1u);
  EXPECT_EQ(instance->Release(), 0u);
  EXPECT_EQ(DllCanUnloadNow(), kResultFalse) << "the factory lives";
  factory->LockServer(false);
  EXPECT_EQ(factory->Release(), 0u);
  EXPECT_EQ(DllCanUnloadNow(), kResultOk);
}

}  // namespace
}  // namespace zendara

#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <thread>

#include "component/componente.hpp"
#include "runtime/date.hpp"
#include "runtime/number.hpp"
#include "support/fake_form_host.hpp"
#include "support/temp_folder.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"
#include "zendara/zendara.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;

// What is asked and called, in order.
struct Diary {
  std::vector<std::string> lines;
  std::map<std::string, int> failures;  // line: number of the error that it raises

  void Note(const std::string& line) {
    lines.push_back(line);
    if (const auto failure = failures.find(line); failure != failures.end()) throw RuntimeError(failure->second);
  }
};

struct FakeMorlane : Morlane {
  explicit FakeMorlane(Diary& d) : diary(d) {}

  std::string CodigoEmpresa() override { return Read("CodigoEmpresa", "12").Text(); }
  Value NombreEmpresa() override { return Read("NombreEmpresa", "  Ñandú"); }
  std::string Retorno() override { return Read("Retorno", "P").Text(); }
  Value Ejercicio() override { return Read("Ejercicio", 2001); }
  void Retorno(const std::string& text) override { diary.Note("Retorno = " + text); }
  Value Valor8() override { return Read("Valor8", "ocho"); }
  Value Valor1() override { return Read("Valor1", "uno"); }
  Value Cambio() override { return Read("Cambio", "166,386"); }
  std::int16_t ValorEntero() override { return static_cast<std::int16_t>(Read("ValorEntero", 7).Number()); }
  Value FechaTrabajo() override { return Read("FechaTrabajo", "15/03/01"); }
  std::string Programa() override { return Read("Programa", "01").Text(); }

  Value Read(const std::string& name, const Value& usual) {
    diary.Note(name);
    return values.contains(name) ? values[name] : usual;
  }

  Diary& diary;
  std::map<std::string, Value> values;  // other than the usual ones
};

class Component : public testing::Test {
 protected:
  struct FakePantalla : Pantalla {
    explicit FakePantalla(Component& t) : test(t) {}
    void Mostrar() override { test.muestra(); }
    Component& test;
  };

  Component() {
    ElComponente().sesion = Sesion{Platform{}};
    ElComponente().pantallas = {};
    InstallPlatform({engine.get(), &host, files.get(), folder.path().string(), &host});
    bd->CreateTable({"T", {{"Campo0", ColumnType::kText, 1}}, {}});
  }

  void Registra(const std::string& nombre) {
    ElComponente().pantallas.Registra(nombre, [this, nombre] {
      diary.Note("crea " + nombre);
      return std::make_shared<FakePantalla>(*this);
    });
  }
  std::vector<std::string> Textos() const {
    return {sesion.CodEmpresa.str(), sesion.NomEmpresa.str(),   sesion.AnoTrabajo.str(),
            sesion.CambioEuro.str(), sesion.ValorSesion8.str(), sesion.ValorSesion1.str(),
            sesion.CodPrograma,      sesion.TextoRetorno,       CStr(Value(sesion.FechaSesion))};
  }
  void Carga(const std::string& nombre) { ClsZendara().Carga_Formulario(nombre, bd, be, tablas, morlane); }

  Diary diary;
  FakeFormHost host;
  FakeMorlane morlane{diary};
  TempFolder folder;
  std::unique_ptr<Engine> engine = MakeEngine();
  std::unique_ptr<Files> files = MakeHostFiles();
  std::shared_ptr<Database> bd = engine->Workspaces(0)->CreateDatabase(folder / "bd.mdb");
  std::shared_ptr<Database> be = engine->Workspaces(0)->CreateDatabase(folder / "be.mdb");
  RecordsetArray tablas{0, std::vector<std::shared_ptr<Recordset>>(kSlots + 1)};
  Sesion& sesion = ElComponente().sesion;
  std::function<void()> muestra = [this] { diary.Note("Mostrar"); };
};

TEST_F(Component, TheSessionIsReadInOrderThenTheScreenIsShownThenTheMarkGoesBack) {
  morlane.values["NombreEmpresa"] = "  Ñandú " + std::string(60, 'n');
  Registra("MIncidencias");
  Carga("MIncidencias");
  EXPECT_THAT(diary.lines,
              ElementsAre("CodigoEmpresa", "NombreEmpresa", "Ejercicio", "Cambio", "Valor8", "Valor1", "ValorEntero",
                          "Programa", "Retorno", "FechaTrabajo", "crea MIncidencias", "Mostrar", "Retorno = P"));
  EXPECT_EQ(sesion.BDEmpresa, bd);
  EXPECT_EQ(sesion.BDSegunda, be);
  EXPECT_EQ(sesion.ValorSesionEntero, 7);
  EXPECT_THAT(Textos(), ElementsAre("12   ", "Ñandú " + std::string(47, 'n'), "01", "166,386", "ocho    ", "u", "01",
                                    "P", "15/03/01"));
}

TEST_F(Component, TheWorkingYearIsTheLastTwoCharactersAndMovesTheWindowOfTwoDigitYears) {
  tablas.items[402] = bd->OpenRecordset("T", RecordsetType::kTable);
  // The window ends 19 years after the working year; what is no number leaves it.
  for (const auto& [ejercicio, ano, year_of_45] :
       {std::tuple(Value("2026"), "26", 2045), {"xx", "xx", 2045}, {5, "5 ", 1945}, {1999, "99", 1945}}) {
    morlane.values["Ejercicio"] = ejercicio;
    morlane.values["FechaTrabajo"] = "15/03/45";
    Carga("");
    EXPECT_EQ(sesion.AnoTrabajo.str(), ano);
    EXPECT_EQ(PartsOf(sesion.FechaSesion).year, year_of_45) << ano;
    // What the host hands over reads as the session does.
    for (const YearWindow window : {bd->Years(), be->Years(), tablas.items[402]->Years()}) {
      EXPECT_EQ(FullYear(45, window), year_of_45);
    }
  }
}

TEST_F(Component, AFailedReadLeavesItsValueAndTheOthersAreRead) {
  Carga("");
  morlane.values = {{"CodigoEmpresa", 9}, {"NombreEmpresa", Null()}, {"Cambio", "2"}, {"Programa", "05"}};
  morlane.values["FechaTrabajo"] = "no es fecha";
  // An error of the run-time library, as Null and the date are; that of the code is of another kind.
  diary.failures["Cambio"] = kInvalidCall;
  Carga("");
  EXPECT_THAT(Textos(), ElementsAre("12   ", "Ñandú" + std::string(48, ' '), "01", "166,386", "ocho    ", "u", "05",
                                    "P", "15/03/01"));
  EXPECT_EQ(diary.lines.back(), "Retorno = P");
}

TEST_F(Component, SlotsAreSharedFromTheLowerBoundAndMissingOnesStay) {
  const auto recordset = [&] { return bd->OpenRecordset("T", RecordsetType::kTable); };
  for (const std::size_t i : {0U, 1U, 402U, 500U}) tablas.items[i] = recordset();
  Carga("");
  EXPECT_EQ(sesion.Tablas[0], nullptr);
  for (const std::size_t i : {1U, 402U, 500U}) EXPECT_EQ(sesion.Tablas[i], tablas.items[i]) << i;

  // Slots 400 to 402 only: the others keep what they have, an empty handle empties its slot.
  auto expected = sesion.Tablas;
  expected[400] = recordset();
  expected[402] = nullptr;
  tablas = {400, {expected[400], nullptr, nullptr}};
  Carga("");
  EXPECT_EQ(sesion.Tablas, expected);
}

TEST_F(Component, OnlyTheFourScreensOfTheHostAreShownByTheirExactNames) {
  std::vector<std::string> shown;
  for (const char* name : {"Trabajadores", "MIncidencias", "MIncidenciasESP", "MIncidenciasVAR", "trabajadores",
                           "Trabajadores ", "", "ListadoTrabajador"}) {
    Registra(name);
    diary.lines.clear();
    Carga(name);
    EXPECT_EQ(diary.lines.back(), "Retorno = P");
    if (std::ranges::count(diary.lines, "Mostrar")) shown.emplace_back(name);
  }
  EXPECT_THAT(shown, ElementsAre("Trabajadores", "MIncidencias", "MIncidenciasESP", "MIncidenciasVAR"));
}

TEST_F(Component, AScreenLivesFromItsFirstUseUntilItUnloadsEvenWhileShown) {
  RegistroPantallas& registro = ElComponente().pantallas;
  Registra("X");
  EXPECT_THAT(diary.lines, testing::IsEmpty());
  EXPECT_EQ(registro.Objeto("X"), registro.Objeto("X"));
  EXPECT_THAT(diary.lines, ElementsAre("crea X"));
  const std::weak_ptr<Pantalla> pantalla = registro.Objeto("X");
  muestra = [&] {
    registro.Descarga("X");
    EXPECT_FALSE(pantalla.expired());
  };
  EXPECT_TRUE(registro.Muestra("X"));
  EXPECT_TRUE(pantalla.expired());
  EXPECT_FALSE(registro.Muestra("x"));
}

TEST_F(Component, OneThreadHasItForOneScreenAtATimeAndEachCallSaysHowItCameOut) {
  Registra("Trabajadores");
  std::vector<CallStatus> inside;
  muestra = [&] {
    diary.lines.clear();
    for (const char* name : {"Trabajadores", "MIncidencias"}) {
      Carga(name);
      inside.push_back(LastCall().status);
    }
    InstallPlatform({});
    inside.push_back(LastCall().status);
    std::thread([&] {
      Carga("Trabajadores");
      inside.push_back(LastCall().status);
    }).join();
    EXPECT_THAT(diary.lines, testing::IsEmpty());
  };
  Carga("Trabajadores");
  EXPECT_EQ(LastCall().status, CallStatus::kDone) << LastCall().reason;
  EXPECT_THAT(inside, ElementsAre(CallStatus::kBusy, CallStatus::kBusy, CallStatus::kBusy, CallStatus::kWrongThread));
  EXPECT_THAT(diary.lines, ElementsAre("Retorno = P"));
  Carga("trabajadores");
  EXPECT_EQ(LastCall().status, CallStatus::kNoSuchScreen);
}

TEST_F(Component, AScreenThatFailsOrCannotBeMadeIsPassedOver) {
  Registra("Trabajadores");
  for (const std::string line : {"crea Trabajadores", "Mostrar"}) {
    diary = {};
    diary.failures[line] = kObjectNotSet;
    Carga("Trabajadores");
    EXPECT_EQ(diary.lines.back(), "Retorno = P") << line;
    EXPECT_EQ(LastCall().status, CallStatus::kFailed);
  }
  InstallPlatform({});
  diary = {};
  Carga("Trabajadores");
  EXPECT_EQ(std::ranges::count(diary.lines, "Mostrar"), 0) << "no surroundings, no screen";
  EXPECT_EQ(LastCall().status, CallStatus::kNotInstalled);
}

}  // namespace
}  // namespace zendara

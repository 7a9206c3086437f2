// Rows of any content, listings that nobody asks for, and saves that the store does not take.
#include <gmock/gmock.h>
#include <sqlite3.h>

#include "incidents/incidencias_fixture.hpp"
#include "support/disk_faults.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

using enum CampoFechas;

class PantallasTest : public TestDisk, public IncidenciasTest {
 protected:
  static constexpr const char* kIT = "TincidenciasIT";
  static constexpr const char* kVar = "TIncidenciasVar";

  // The clerk's hands, up to Grabar.
  void Teclea(const std::string& trabajador, const std::string& inicio, const std::string& fin) {
    Escribe(trabajador + "\n1\n" + inicio + "\n" + fin + "\n");
  }
};

// A Null keeps what its field has and empties the end; in the road by the worker's number it ends the routine.
TEST_F(PantallasTest, NullInAnyColumnIsShownAsItIs) {
  Incidencia(kIT, "01/03/01", "05/03/01");
  Incidencia(kIT, "02/04/01", "06/04/01", Null(), "4");
  Incidencia(kIT, "03/05/01", "07/05/01", "Otro", Null());
  Incidencia(kIT, "04/06/01", "", "Abierta", "3");
  Abre<MIncidencias>();
  const auto en_pantalla = [&] {
    return Texto(kNombre) + "|" + El<ComboBox>("Combo1").Text() + "|" + El<TextBox>("Text2").Text() + "|" +
           Texto(kInicio) + "|" + Texto(kFin);
  };
  std::vector<std::string> visto;
  Pulsa("Inicio");
  for (int fila = 0; fila < 4; ++fila, Pulsa("Siguiente")) visto.push_back(en_pantalla());
  EXPECT_THAT(visto, ElementsAre("Díaz Suárez, Fermín|1|Enfermedad|01/03/01|05/03/01",
                                 "Díaz Suárez, Fermín|4|Recaida de Enfermedad|02/04/01|06/04/01",
                                 "Otro|4|Recaida de Enfermedad|03/05/01|07/05/01", "Abierta|3|Accidente|04/06/01|"));
  EXPECT_THAT(host.boxes, IsEmpty());

  // What is saved of a row that was shown keeps what nobody has changed, its Null too.
  Vacia(FileKind::kCompany, kIT);
  Incidencia(kIT, "02/04/01", "", Null());
  Pulsa("Cancela");
  Escribe("3\n");
  EXPECT_THAT(host.boxes, ElementsAre("94  Uso no válido de Null"));
  Pulsa("Inicio");
  Caja(kFin).SetFocus();
  Escribe("100401\n");
  Pulsa("Grabar");
  EXPECT_THAT(Filas(FileKind::kCompany, kIT), ElementsAre("00003||1|02/04/01|10/04/01"));
}

TEST_F(PantallasTest, NullInAVariableRowEmptiesTheName) {
  Add(FileKind::kYear, kVar, {{0, "01"}, {1, kTrabajadorUno}, {2, "Díaz"}, {3, "001"}, {4, "004"}, {6, "12"}});
  Abre<MIncidenciasVAR>();
  Caja(CampoVariable::kUnidades).SetText("7");
  Pulsa("Inicio");
  EXPECT_EQ(Texto(CampoVariable::kNombre), "");
  EXPECT_EQ(Texto(CampoVariable::kImporteConcepto), "12");
  EXPECT_EQ(Texto(CampoVariable::kUnidades), "7");
}

// What another program has put into a date column is told, and the screen goes on.
TEST_F(PantallasTest, WhatIsNoDateIsToldAndEndsNothing) {
  Incidencia(kIT, "01/03/01", "05/03/01");
  sqlite3* fichero = nullptr;
  ASSERT_EQ(sqlite3_open(PathOf(FileKind::kCompany).c_str(), &fichero), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(fichero, "UPDATE TincidenciasIT SET Campo4 = 'mañana'", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(fichero);
  Abre<MIncidencias>();
  Pulsa("Inicio");
  Pulsa("Cancela");
  Escribe("3\n");
  EXPECT_THAT(host.boxes, testing::Each(StartsWith("3421  ")));
  EXPECT_THAT(host.boxes, testing::SizeIs(2));
  EXPECT_TRUE(pantalla->Loaded());
}

// A second desk changes the row that stands on the screen: what each has changed stays.
TEST_F(PantallasTest, WhatOthersChangedMeanwhileStays) {
  Incidencia(kIT, "01/03/01", "");
  Abre<MIncidencias>();
  Escribe("3\n");
  Vacia(FileKind::kCompany, kIT);
  Incidencia(kIT, "01/03/01", "09/03/01", "Nombre de otro puesto", "2");
  Caja(kFin).SetFocus();
  Escribe("100301\n");
  Pulsa("Grabar");
  EXPECT_THAT(Filas(FileKind::kCompany, kIT), ElementsAre("00003|Nombre de otro puesto|2|01/03/01|10/03/01"));
  EXPECT_THAT(pantalla->Status(), HasSubstr("queda lo grabado aquí: Fecha de Fin"));

  // An empty field that nobody touched too.
  Vacia(FileKind::kCompany, kIT);
  Incidencia(kIT, "01/03/01", "");
  Escribe("3\n");
  Vacia(FileKind::kCompany, kIT);
  Incidencia(kIT, "01/03/01", "09/03/01");
  El<ComboBox>("Combo1").SetFocus();
  Escribe("3");
  Pulsa("Grabar");
  EXPECT_THAT(Filas(FileKind::kCompany, kIT), ElementsAre("00003|Díaz Suárez, Fermín|3|01/03/01|09/03/01"));
}

// No row is the current one then: the steps go on from the one that was saved.
TEST_F(PantallasTest, StepsAfterSavingStartFromWhatWasSaved) {
  for (const char* inicio : {"01/03/01", "02/04/01", "03/05/01"}) Incidencia(kIT, inicio, inicio);
  Abre<MIncidencias>();
  const std::pair<const char*, const char*> pasos[] = {{"Anterior", "02/04/01"}, {"Siguiente", "03/05/01"}};
  for (const auto& [boton, inicio] : pasos) {
    Teclea("3", "100401", "110401");
    Pulsa("Grabar");
    Pulsa(boton);
    EXPECT_EQ(Texto(kInicio), inicio);
    Pulsa("Cancela");
  }
  EXPECT_THAT(host.boxes, IsEmpty());
}

// A date in six digits is no text for the store.
TEST_F(PantallasTest, AStartFromItsListIsAtRestWhileAnotherFieldKeepsTheFocus) {
  Incidencia(kIT, "02/04/01", "06/04/01");
  Abre<MIncidencias>();
  Escribe("3\n");
  Caja(kFin).SetFocus();
  Escribe("99");
  pantalla->Click(El<Image>("Image1(4)"));
  EXPECT_TRUE(Caja(kFin).HasFocus());
  EXPECT_EQ(Texto(kInicio), "02/04/01");
}

// Whatever call of the system fails, the row is there as it was or as it is now; a box names it, and the next try
// stores it.
TEST_F(PantallasTest, NoFaultLosesTheRowThatIsReplaced) {
  Abre<MIncidencias>();
  bool grabado = false;
  for (int punto = 0; !grabado; ++punto) {
    SCOPED_TRACE(punto);
    Vacia(FileKind::kCompany, kIT);
    Incidencia(kIT, "01/03/01", "");
    Pulsa("Cancela");
    Escribe("3\n");
    ASSERT_EQ(Texto(kInicio), "01/03/01");
    Escribe("100301\n");
    host.boxes.clear();
    disk.fault_in = punto;
    Pulsa("Grabar");
    grabado = disk.fault_in >= 0;
    disk.fault_in = -1;
    const bool vacia = Texto(kTrabajador).empty();
    if (host.boxes.empty()) {
      EXPECT_THAT(Filas(FileKind::kCompany, kIT), ElementsAre("00003|Díaz Suárez, Fermín|1|01/03/01|10/03/01"));
      EXPECT_TRUE(vacia);
    } else {
      EXPECT_THAT(Filas(FileKind::kCompany, kIT), ElementsAre("00003|Díaz Suárez, Fermín|1|01/03/01|"));
      EXPECT_TRUE(!vacia || host.boxes.back().find("00003 Díaz Suárez, Fermín, Enfermedad del 01/03/01 al 10/03/01") !=
                                std::string::npos)
          << host.boxes.back();
    }
  }
}

TEST_F(PantallasTest, GeneraPendientesListsTheRowsOfASlot) {
  struct Visor : ListingViewer {
    explicit Visor(std::vector<std::string>& aqui) : oido(aqui) {}
    void Visualiza(ListingDescription& descripcion) override {
      oido.push_back(std::get<std::string>(descripcion[1]) + std::to_string(descripcion.size()) +
                     (std::get<bool>(descripcion.back()) ? " pendientes" : ""));
    }
    void FicheroDatos(const std::string& ruta) override { oido.push_back(ruta.substr(ruta.find("datos"))); }
    void TablaDatos(const std::string& tabla) override { oido.push_back(tabla); }
    void FormularioPadre(Form* formulario) override { oido.push_back(formulario->Name()); }
    std::vector<std::string>& oido;
  };
  std::vector<std::string> dicho;
  components.Register(kListingViewerClass, [&] { return std::make_unique<Visor>(dicho); });
  Incidencia("TincidenciasESP", "01/03/01", "05/03/01");
  Incidencia("TincidenciasESP", "01/08/01", "", Null(), "2");
  Add(FileKind::kCompany, "ListadosNOM", {{0, "de antes"}});
  auto& especiales = Abre<MIncidenciasESP>();
  especiales.GeneraPendientes(kTincidenciasESP);
  EXPECT_THAT(Filas(FileKind::kCompany, "ListadosNOM"),
              ElementsAre("Díaz Suárez, Fermín|00003|1|01/03/01|||||", "|00003|2|01/08/01|||||"));
  EXPECT_THAT(dicho, ElementsAre("datos\\Nom00001.mdb", "ListadosNOM", "MIncidenciasESP", "Descripción15 pendientes"));
}

}  // namespace
}  // namespace zendara

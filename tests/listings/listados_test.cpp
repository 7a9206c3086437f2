// What is staged of rows of any content, and of a listing that a failure ends.
#include <gmock/gmock.h>
#include <sqlite3.h>

#include "incidents/incidencias_fixture.hpp"
#include "listings/imprgast.hpp"
#include "listings/listado_trabajador.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class ListadosTest : public IncidenciasTest {
 protected:
  ListadosTest() {
    struct Visor : ListingViewer {
      explicit Visor(int& cuenta) : vistos(cuenta) {}
      void Visualiza(ListingDescription&) override { ++vistos; }
      void FicheroDatos(const std::string&) override {}
      void TablaDatos(const std::string&) override {}
      void FormularioPadre(Form*) override {}
      int& vistos;
    };
    components.Register(kListingViewerClass, [this] { return std::make_unique<Visor>(vistos); });
  }

  // The request screen over one of the incidents, for all workers.
  template <typename Pantalla>
  Imprgast& AbreListado() {
    quien = std::make_shared<Pantalla>(sesion, pantallas);
    sesion.FormActivo = quien.get();
    auto listado = std::make_shared<Imprgast>(sesion, pantallas);
    listado->Mostrar();
    formulario = listado;
    return *listado;
  }
  void PonTexto(int indice, const std::string& texto) {
    dynamic_cast<TextBox&>(*formulario->Find("Text1(" + std::to_string(indice) + ")")).SetText(texto);
  }
  void PulsaImpresora() { formulario->Click(*formulario->Find("Impresora")); }
  std::vector<std::string> Mesa() { return Filas(FileKind::kCompany, "ListadosNOM"); }
  void Sql(const std::string& sql) {
    sqlite3* fichero = nullptr;
    ASSERT_EQ(sqlite3_open(PathOf(FileKind::kCompany).c_str(), &fichero), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(fichero, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(fichero);
  }

  int vistos = 0;
  std::shared_ptr<Form> quien;
  std::shared_ptr<Form> formulario;
};

// A failure in the middle keeps the lines before it and shows no listing; the next one begins anew.
TEST_F(ListadosTest, WhatAFailureEndsStays) {
  Incidencia("TincidenciasIT", "01/03/01", "05/03/01");
  Incidencia("TincidenciasIT", "01/04/01", "", Null(), Null());
  Incidencia("TincidenciasIT", "01/05/01", "05/05/01", "Otro", "9");
  Sql("UPDATE TincidenciasIT SET Campo4 = 'nunca' WHERE rowid = 3");
  Imprgast& listado = AbreListado<MIncidencias>();
  PonTexto(1, kTrabajadorUno);
  PonTexto(3, kTrabajadorUno);
  EXPECT_FALSE(listado.GeneraTablaPen());
  EXPECT_THAT(host.boxes, ElementsAre(StartsWith("3421  ")));
  const std::string primera = "00003|Díaz Suárez, Fermín|1 Enfermedad|01/03/01|05/03/01||||";
  EXPECT_THAT(Mesa(), ElementsAre(primera, "|||01/04/01|||||"));

  Sql("UPDATE TincidenciasIT SET Campo4 = NULL WHERE rowid = 3");
  PulsaImpresora();
  EXPECT_THAT(Mesa(), ElementsAre(primera, "|||01/04/01|||||", "|||01/05/01|||||"));
  EXPECT_EQ(vistos, 1);
  EXPECT_EQ(formulario->Pointer(), MousePointer::kDefault);

  // Without its table, or by the wrong screen, there is a box and no listing.
  Sql("DROP TABLE ListadosNOM");
  host.boxes.clear();
  EXPECT_FALSE(listado.GeneraTablaPen());
  EXPECT_THAT(host.boxes, ElementsAre(StartsWith("30")));
  sesion.FormActivo = nullptr;
  PulsaImpresora();
  EXPECT_THAT(host.boxes.back(), StartsWith("91  "));
  EXPECT_EQ(vistos, 1);
}

TEST_F(ListadosTest, NullsOfVariableConceptsStayBlank) {
  Add(FileKind::kYear, "TIncidenciasVar", {{0, "01"}, {1, kTrabajadorUno}, {3, "001"}, {4, "004"}});
  Add(FileKind::kYear, "TIncidenciasVar", {{0, "01"}, {1, kTrabajadorUno}, {3, "001"}, {4, "005"}, {6, "12,5"}});
  Add(FileKind::kYear, "TIncidenciasVar", {{0, "01"}, {1, "00004"}, {3, "001"}, {4, "005"}, {7, "3"}});
  AbreListado<MIncidenciasVAR>();
  PonTexto(1, "01");
  PonTexto(3, "00001");
  PonTexto(5, "99999");
  PulsaImpresora();
  EXPECT_THAT(Mesa(), ElementsAre("01|00003||001|004||||", "||||005||12,5||", "|00004|||005|||3|"));
  EXPECT_NE(sesion.BDEmpresa->Name().find(FileName(FileKind::kYear, "00001", "01")), std::string::npos);
}

// Fixed data stand once, on the situación that began last; one whose start is Null is nobody's last.
TEST_F(ListadosTest, FixedDataStandOnTheLastSituacion) {
  const auto situacion = [this](const char* trabajador, const char* numero, const Value& inicio) {
    Add(FileKind::kCompany, "TrabajadoresVar",
        {{0, trabajador}, {1, numero}, {3, inicio}, {49, "001"}, {50, "Oficina"}, {51, Null()}});
  };
  Add(FileKind::kCompany, "TrabajadoresFijo", {{0, "00004"}});
  Add(FileKind::kCompany, "TrabajadoresFijo",
      {{0, "00005"}, {1, std::string(20, 'N')}, {2, std::string(20, 'M')}, {3, std::string(15, 'O')}});
  situacion(kTrabajadorUno, "001", "01/01/99");
  situacion(kTrabajadorUno, "002", "01/01/01");
  situacion("00004", "001", Null());
  situacion("00005", "001", "01/01/01");
  auto listado = std::make_shared<ListadoTrabajador>(sesion, pantallas);
  listado->Mostrar();
  formulario = listado;
  PulsaImpresora();
  EXPECT_THAT(host.boxes, IsEmpty());
  EXPECT_THAT(Mesa(), ElementsAre("00003|Díaz Suárez Fermín|  ||       ||||",
                                  "00005|" + std::string(20, 'N') + " " + std::string(20, 'M') + " " +
                                      std::string(11, 'O') + "|  ||       ||||"));
  EXPECT_EQ(vistos, 1);
}

}  // namespace
}  // namespace zendara

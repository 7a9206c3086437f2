#include "common/listas.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "common/consulta.hpp"
#include "frame/catalogo.hpp"
#include "lists_fixture.hpp"
#include "runtime/date.hpp"
#include "runtime/text.hpp"
#include "support/errors.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

const TableDef* TableOf(const Lista& lista) {
  std::istringstream words{std::string(lista.consulta)};
  std::string word;
  while (words >> word && LCase(word) != "from") {
  }
  words >> word;
  return StoredTable(lista.fichero.tipo, word);
}

TEST(Listas, ColumnsAgreeWithTheStoredTables) {
  constexpr int kNoScreenLimitsIt = 50;
  for (const Lista* lista : Listas()) {
    if (lista->Fija()) continue;
    SCOPED_TRACE(lista->consulta);
    EXPECT_EQ(LCase(lista->fichero.nombre), LCase(FileName(lista->fichero.tipo, "<code>", "<yy>")));
    const TableDef* table = TableOf(*lista);
    ASSERT_NE(table, nullptr);
    int next = 1;
    for (const ColumnaLista& columna : lista->columnas) {
      SCOPED_TRACE(columna.codigo);
      const ColumnDef& stored = table->columns.at(static_cast<std::size_t>(std::stoi(Left(columna.codigo, 2))));
      EXPECT_EQ(columna.lugar.start, next);
      next += columna.lugar.width;
      EXPECT_EQ(stored.type == ColumnType::kDate, columna.codigo[2] == '2');
      // A text may be cut only where no screen says how long it is; a code never.
      const bool cut_at_will = stored.width == kNoScreenLimitsIt;
      EXPECT_GE(columna.lugar.width, stored.type == ColumnType::kDate ? 8 : cut_at_will ? 1 : stored.width);
    }
  }
}

TEST(Listas, AreGuardedByTheirOwnTable) {
  for (const Lista* lista : Listas()) {
    if (lista->Fija() || lista->guarda == kSinGuarda || lista->guarda == kTiposVia) continue;
    const bool borrowed = lista == &kListaTrabajadoresESP;
    std::string guard;
    for (const GrupoCatalogo& grupo : Catalogo()) {
      for (const EntradaCatalogo& entrada : grupo.entradas) {
        if (entrada.ranura == lista->guarda) guard = entrada.tabla;
      }
    }
    EXPECT_EQ(guard, borrowed ? "TincidenciasIT" : TableOf(*lista)->name) << lista->consulta;
  }
}

class ListasTest : public ListsTest {
 protected:
  ListasTest() {
    const Date march = *MakeDate(2001, 3, 15);
    const Date september = *MakeDate(2001, 9, 1);
    Add(FileKind::kCompany, "TrabajadoresFijo", {{0, "00007"}, {1, "Núñez"}, {2, "García"}, {3, "Ana"}});
    Add(FileKind::kCompany, "TrabajadoresFijo", {{0, "00012"}, {1, "Pérez"}, {3, "Luis"}});
    Add(FileKind::kCompany, "TrabajadoresVar", {{0, "00007"}, {1, "001"}, {2, "Alta inicial"}, {3, march}});
    Add(FileKind::kCompany, "TrabajadoresVar", {{0, "00007"}, {1, "002"}, {2, "Reducción"}, {3, september}});
    for (const char* table : {"TincidenciasIT", "TincidenciasESP"}) {
      Add(FileKind::kCompany, table, {{0, "00007"}, {1, "Núñez García, Ana"}, {2, "1"}, {3, march}});
      Add(FileKind::kCompany, table, {{0, "00007"}, {1, "Núñez García, Ana"}, {2, "1"}, {3, september}});
    }
    Add(FileKind::kCompany, "FPago", {{0, "1"}, {1, "Transferencia"}});
    Add(FileKind::kCompany, "Secciones", {{0, "001"}, {1, std::string(50, 'T')}});
    for (const char* fourth : {"1", "2"}) {
      Add(FileKind::kCompany, "ConEmpresaConceptos",
          {{0, "2800055"}, {1, "Metal"}, {2, "01"}, {3, "Oficial"}, {4, fourth}});
    }
    for (const FileKind general : {FileKind::kEmpresa, FileKind::kEmpresas}) {
      Add(general, "Calles", {{0, "CL"}, {1, "Calle"}});
      Add(general, "Epigrafes", {{0, "102"}, {1, "Oficinas"}});
    }
    for (const FileKind kind : {FileKind::kEmpresa, FileKind::kOfficial}) {
      Add(kind, "Contratos",
          {{0, "401"},
           {1, "01"},
           {2, "Obra o servicio determinado, a tiempo completo"},
           {3, "Art. 15.1 del Estatuto"},
           {4, "50"}});
    }
    Add(FileKind::kYear, "Centros", {{0, "001"}, {1, "Central"}});
    Add(FileKind::kYear, "ConTrabajadorConceptos", {{0, "03"}, {1, "00007"}, {2, "001"}, {3, "012"}, {4, "Plus"}});
    Add(FileKind::kYear, "TIncidenciasVar",
        {{0, "03"}, {1, "00007"}, {2, "Núñez García, Ana"}, {3, "001"}, {4, "012"}});
  }
};

TEST_F(ListasTest, RowsAreLaidOutAndTheCutsGiveTheColumnsBack) {
  struct Case {
    const char* name;
    const Lista* lista;
    Texts parametros;
    std::size_t rows;
    std::string row;  // the first
    Texts pieces;
  };
  const std::string both_dates = "01/09/01002    " + Fit("Reducción", 30);
  const std::string code = "001" + Fit("Central", 30);
  const std::string with_incidents = Fit("Núñez García, Ana", 37) + "00007";
  const std::string section(30, 'T');
  const Texts number_name = {"00007", Fit("Núñez García, Ana", 37)};
  const std::vector<Case> cases = {
      {"ficha",
       &kListaFichaTrabajadores,
       {},
       2,
       Fit("García", 22) + Fit("Ana", 17) + Fit("Núñez", 22) + "00007",
       {"00007"}},
      {"calles", &kListaCalles, {}, 1, "CL " + Fit("Calle", 30), {"CL"}},
      {"formas de pago", &kListaFormasPago, {}, 1, "1 " + Fit("Transferencia", 30), {"1 ", Fit("Transferencia", 30)}},
      {"situaciones", &kListaSituaciones, {"00007"}, 2, both_dates, {"002", "Reducción", "01/09/01"}},
      {"convenios", &kListaConvenios, {}, 1, Fit("Metal", 25) + "2800055", {"2800055", Fit("Metal", 25)}},
      {"categorias", &kListaCategorias, {"2800055"}, 1, "01" + Fit("Oficial", 15), {"01", Fit("Oficial", 15)}},
      {"epigrafes", &kListaEpigrafes, {}, 1, "102" + Fit("Oficinas", 50), {"102", "Oficinas"}},
      {"contratos", &kListaContratos, {}, 1, "Obra o servicio determinado, a tie401  01  50        ", {"401", "01"}},
      {"tipos de contrato",
       &kListaTiposContrato,
       {"401"},
       1,
       "01Obra o servicio determinado, a tieArt. 15.1 del50        ",
       {"01O", "Obra o servicio determinado, a tie", "Art. 15.1 del", "50"}},
      {"centros", &kListaCentros, {}, 1, code, {"001", "Central"}},
      {"secciones", &kListaSecciones, {}, 1, "001" + section, {"001", section}},
      {"trabajadores",
       &kListaTrabajadores,
       {},
       2,
       "00007" + Fit("Núñez", 22) + Fit("García", 22) + Fit("Ana", 25),
       {"00007", "7" + Fit("Núñez", 22), Fit("García", 22), Fit("Ana", 25)}},
      {"fechas IT", &kListaFechasIT, {"00007"}, 2, "15/03/01", {"15/03/01"}},
      {"fechas ESP", &kListaFechasESP, {"00007"}, 2, "15/03/01", {"15/03/01"}},
      {"situaciones, incidencias",
       &kListaSituacionesTrabajador,
       {"00007"},
       2,
       Fit("Alta inicial", 32) + "001",
       {"001"}},
      {"conceptos", &kListaConceptosTrabajador, {"03", "00007", "001"}, 1, "Plus      012", {"012", "Plus      "}},
      {"listado IT", &kListaTrabajadoresIT, {}, 1, with_incidents, number_name},
      {"listado ESP", &kListaTrabajadoresESP, {}, 1, with_incidents, number_name},
      {"listado VAR", &kListaTrabajadoresVar, {"03"}, 1, with_incidents, number_name},
      {"centros, listado", &kListaCentrosListado, {}, 1, code, {"001", "Central"}},
      {"secciones, listado", &kListaSeccionesListado, {}, 1, "001" + section, {"001", section}},
      {"grupos de tarifa",
       &kListaGruposTarifa,
       {},
       11,
       "01 - Ingenieros y Licenciados ",
       {"01", "Ingenieros y Licenciados"}},
      {"tipos IT", &kListaTiposIT, {}, 5, "1 - Enfermedad", {"1", "Enfermedad"}},
      {"tipos ESP", &kListaTiposESP, {}, 2, "1 - Vacaciones", {"1", " Vacaciones"}},
      {"meses", &kListaMeses, {}, 12, "01   - Enero", {"01", " Enero"}},
      {"situación IRPF", &kListaSituacionesIRPF, {}, 3, "A   - Activo", {"A"}},
      {"clase de contrato", &kListaClasesContrato, {}, 3, "G   - General", {"G"}},
      {"identificación", &kListaIdentificaciones, {}, 6, "1 - N.I.F. ", {"1"}},
      {"minusvalía", &kListaMinusvalias, {}, 4, "0 - Sin grado de minusvalía ", {"0"}},
  };
  EXPECT_EQ(cases.size() + 1, Listas().size()) << "all but the family situations, whose lines are too long for a table";
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Consulta(sesion, *c.lista, c.parametros), c.row);
    EXPECT_EQ(asked.filas.size(), c.rows);
    EXPECT_EQ(CortaFila(*c.lista, c.row), c.pieces);
    EXPECT_EQ(CortaFila(*c.lista, ""), Texts(c.pieces.size())) << "what a listing screen does with no choice";
  }
  elegida = 1;
  EXPECT_EQ(Consulta(sesion, kListaTrabajadores), "00012" + Fit("Pérez", 22) + Fit("", 22) + Fit("Luis", 25));
}

TEST_F(ListasTest, TheCallPassesFileTitleMarkAndQuotedParameters) {
  sesion.MarcaBoton = 1;
  elegida = -1;
  EXPECT_EQ(Consulta(sesion, kListaConceptosTrabajador, {"03", "O'H", "001"}), "");
  EXPECT_EQ(asked.sql,
            "SELECT CAMPO4,CAMPO3 From contrabajadorconceptos where campo0='03' AND campo1='O''H'AND campo2='001'");
  EXPECT_EQ(asked.base, sesion.DirDatos + "N0000101.mdb");
  EXPECT_EQ(asked.titulo, "conceptos de Trabajador");
  EXPECT_EQ(asked.marca, 1);
  EXPECT_TRUE(asked.filas.empty());
  EXPECT_EQ(Consulta(sesion, kListaContratos), "");
  EXPECT_EQ(asked.base, sesion.DirDatos + "Nom00a01.mdb");
  EXPECT_EQ(Consulta(sesion, kListaMeses), "");
  EXPECT_EQ(asked.titulo, "Mes");
}

using EmptyListsTest = ListsTest;

TEST_F(EmptyListsTest, AnEmptyGuardKeepsTheListClosed) {
  for (const Lista* lista : Listas()) {
    asked = {};
    elegida = -1;
    const bool opens = lista->guarda == kSinGuarda;
    EXPECT_EQ(Consulta(sesion, *lista).has_value(), opens) << lista->titulo;
    EXPECT_EQ(asked.titulo, opens ? lista->titulo : "");
  }
  Add(FileKind::kCompany, "TincidenciasESP", {{0, "00007"}, {3, *MakeDate(2001, 3, 15)}});
  EXPECT_FALSE(Consulta(sesion, kListaTrabajadoresESP));
  EXPECT_TRUE(Consulta(sesion, kListaFechasESP, {"00007"}));

  sesion.Tablas[kTiposVia] = nullptr;
  EXPECT_EQ(ErrorOf([&] { Consulta(sesion, kListaCalles); }), kObjectNotSet);
  sesion.platform.components = nullptr;
  EXPECT_EQ(ErrorOf([&] { Consulta(sesion, kListaFormasPago); }), kCannotCreateObject);
}

TEST(ComponentsTest, ClassesAreFoundByNameInAnyCaseAndByTheirKind) {
  struct TestBanner : Banner {
    void PosicionBanner(std::int32_t, BannerPlace&) override {}
    void AvisoCierre(std::int32_t) override {}
  };
  Components components;
  components.Register("RAVELIN.clsravelin", [] { return std::make_unique<TestBanner>(); });
  EXPECT_NE(CreateBanner(&components), nullptr);
  EXPECT_EQ(ErrorOf([&] { CreatePickList(&components, kBannerClass); }), kCannotCreateObject);
  EXPECT_EQ(ErrorOf([&] { CreateListingViewer(&components); }), kCannotCreateObject);
  components.Register(kBannerClass, Components::Factory<Banner>());
  EXPECT_EQ(ErrorOf([&] { CreateBanner(&components); }), kCannotCreateObject);
  EXPECT_EQ(ErrorOf([&] { CreateBanner(nullptr); }), kCannotCreateObject);
}

}  // namespace
}  // namespace zendara

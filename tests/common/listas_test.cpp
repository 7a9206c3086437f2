#include "common/listas.hpp"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "common/consulta.hpp"
#include "frame/catalogo.hpp"
#include "lists_fixture.hpp"
#include "runtime/date.hpp"
#include "runtime/text.hpp"
#include "support/errors.hpp"

namespace zendara {
namespace {

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
  std::map<int, std::string> tables;  // by slot
  for (const GrupoCatalogo& grupo : Catalogo()) {
    for (const EntradaCatalogo& entrada : grupo.entradas) tables.emplace(entrada.ranura, entrada.tabla);
  }
  for (const Lista* lista : Listas()) {
    if (lista->Fija() || lista->guarda == kSinGuarda || lista->guarda == kTiposVia) continue;
    const bool borrowed = lista == &kListaTrabajadoresESP;
    EXPECT_EQ(tables[lista->guarda], borrowed ? "TincidenciasIT" : TableOf(*lista)->name) << lista->consulta;
  }
}

class ListasTest : public ListsTest {
 protected:
  ListasTest() {
    const Date march = *MakeDate(2001, 3, 15);
    const Date september = *MakeDate(2001, 9, 1);
    const std::string ana = "Núñez García, Ana";
    Add(FileKind::kCompany, "TrabajadoresFijo", {{0, "00007"}, {1, "Núñez"}, {2, "García"}, {3, "Ana"}});
    Add(FileKind::kCompany, "TrabajadoresFijo", {{0, "00012"}, {1, "Pérez"}, {3, "Luis"}});
    Add(FileKind::kCompany, "TrabajadoresVar", {{0, "00007"}, {1, "001"}, {2, "Alta inicial"}, {3, march}});
    Add(FileKind::kCompany, "TrabajadoresVar", {{0, "00007"}, {1, "002"}, {2, "Reducción"}, {3, september}});
    for (const char* table : {"TincidenciasIT", "TincidenciasESP"}) {
      for (const Date& date : {march, september}) {
        Add(FileKind::kCompany, table, {{0, "00007"}, {1, ana}, {2, "1"}, {3, date}});
      }
    }
    Add(FileKind::kCompany, "Secciones", {{0, "001"}, {1, std::string(50, 'T')}});
    Add(FileKind::kOfficial, "Contratos",
        {{0, "401"}, {1, "01"}, {2, "Obra"}, {3, "Art. 15.1 del Estatuto"}, {4, "50"}});
    Add(FileKind::kEmpresa, "Contratos", {{0, "401"}, {1, "01"}});
    Add(FileKind::kYear, "Centros", {{0, "001"}, {1, "Central"}});
    Add(FileKind::kYear, "ConTrabajadorConceptos", {{0, "03"}, {1, "00007"}, {2, "001"}, {3, "012"}, {4, "Plus"}});
    Add(FileKind::kYear, "TIncidenciasVar", {{0, "03"}, {1, "00007"}, {2, ana}, {3, "001"}, {4, "012"}});
  }
};

// The others of the worker screen are played in the scenarios.
TEST_F(ListasTest, TheCutsGiveTheColumnsOfTheFirstRowBack) {
  const std::string name = Fit("Núñez García, Ana", 37);
  const struct {
    const Lista* lista;
    Texts parametros;
    std::size_t rows;
    Texts pieces;
  } cases[] = {
      {&kListaTiposContrato, {"401"}, 1, {"01O", "Obra", "Art. 15.1 del", "50"}},
      {&kListaTrabajadores, {}, 2, {"00007", "7" + Fit("Núñez", 22), Fit("García", 22), Fit("Ana", 25)}},
      {&kListaFechasIT, {"00007"}, 2, {"15/03/01"}},
      {&kListaFechasESP, {"00007"}, 2, {"15/03/01"}},
      {&kListaSituacionesTrabajador, {"00007"}, 2, {"001"}},
      {&kListaConceptosTrabajador, {"03", "00007", "001"}, 1, {"012", "Plus      "}},
      {&kListaTrabajadoresIT, {}, 1, {"00007", name}},
      {&kListaTrabajadoresESP, {}, 1, {"00007", name}},
      {&kListaTrabajadoresVar, {"03"}, 1, {"00007", name}},
      {&kListaCentrosListado, {}, 1, {"001", "Central"}},
      {&kListaSeccionesListado, {}, 1, {"001", std::string(30, 'T')}},
      {&kListaTiposIT, {}, 5, {"1", "Enfermedad"}},
      {&kListaTiposESP, {}, 2, {"1", " Vacaciones"}},
      {&kListaMeses, {}, 12, {"01", " Enero"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.lista->titulo);
    EXPECT_EQ(CortaFila(*c.lista, Consulta(sesion, *c.lista, c.parametros).value()), c.pieces);
    EXPECT_EQ(picking.filas, c.rows);
    Consulta(sesion, *c.lista, c.parametros, c.pieces);
    EXPECT_EQ(picking.presentes > 0, c.lista != &kListaTiposContrato) << "the field holds less than the piece";
    EXPECT_EQ(CortaFila(*c.lista, ""), Texts(c.pieces.size())) << "what a listing screen does with no choice";
  }
  EXPECT_EQ(Consulta(sesion, kListaConceptosTrabajador, {"03", "O'H", "001"}), "");
}

TEST_F(ListsTest, AnEmptyGuardKeepsTheListClosed) {
  picking.elegida.reset();
  for (const Lista* lista : Listas()) {
    picking.titulo.clear();
    const bool opens = lista->guarda == kSinGuarda;
    EXPECT_EQ(Consulta(sesion, *lista).has_value(), opens) << lista->titulo;
    EXPECT_EQ(picking.titulo, opens ? lista->titulo : "");
  }
  sesion.Tablas[kTiposVia] = nullptr;
  EXPECT_EQ(ErrorOf([&] { Consulta(sesion, kListaCalles); }), kObjectNotSet);
}

// A host's own list hears which button of the mouse opened it.
TEST_F(ListsTest, NeighboursAreFoundByNameInAnyCaseAndByTheirKind) {
  struct MarkedList : RowPickList {
    using RowPickList::RowPickList;
    void ConsultaFija(const Texts&, const std::string&, std::int16_t mark, std::string& result) override {
      result = std::to_string(mark);
    }
  };
  components.Register(LCase(kPickListClass), [this] { return std::make_unique<MarkedList>(picking.Choice()); });
  sesion.MarcaBoton = 1;
  EXPECT_EQ(Consulta(sesion, kListaMinusvalias), "1");
  EXPECT_EQ(ErrorOf([&] { CreateBanner(components, kPickListClass); }), kCannotCreateObject);
  EXPECT_EQ(ErrorOf([&] { CreateListingViewer(components); }), kCannotCreateObject);
  components.Register(kBannerClass, Components::Factory<Banner>());
  EXPECT_EQ(ErrorOf([&] { CreateBanner(components); }), kCannotCreateObject);
  sesion.platform.components = {};
  EXPECT_EQ(ErrorOf([&] { Consulta(sesion, kListaMinusvalias); }), kCannotCreateObject);
}

}  // namespace
}  // namespace zendara

#include "incidents/tira_calendario.hpp"

#include "common/lists_fixture.hpp"
#include "frame/catalogo.hpp"
#include "runtime/date.hpp"
#include "support/fake_form_host.hpp"

namespace zendara {
namespace {

using enum TablaIncidencias;

struct TiraCalendarioTest : ListsTest {
  TiraCalendarioTest() {
    for (const char* table : {"TincidenciasIT", "TincidenciasESP"}) {
      for (const char* worker : {"00001", "00002"}) Put(table, worker, 5);
    }
  }
  void Put(const char* table, const char* worker, int month) {
    Add(FileKind::kCompany, table, {{0, worker}, {2, "1"}, {3, *MakeDate(2001, month, 2)}});
  }

  FakeFormHost host;
  Form form{host, host, "MIncidencias"};
  TiraCalendario strip{form, sesion};
};

TEST_F(TiraCalendarioTest, ReadsWhenTheWorkerChangesAndWhenItIsTold) {
  EXPECT_TRUE(strip.Mostrado().filas.empty());
  const auto* company = sesion.BDEmpresa.get();
  Recordset& slot = sesion.Tabla(kTincidenciasIT);
  slot.Seek({"00002"});
  strip.PonTrabajador("00001");
  EXPECT_EQ(strip.Mostrado().filas.size(), 2U);
  EXPECT_EQ(strip.Mostrado().filas.back().tabla, kESP);
  EXPECT_EQ(strip.Mostrado().ano, 2001);
  Put("TincidenciasIT", "00001", 1);
  strip.PonTrabajador("00001 ");
  EXPECT_EQ(strip.Mostrado().filas.size(), 2U) << "the same worker";
  strip.Relee();
  EXPECT_EQ(strip.Mostrado().filas.size(), 3U);
  EXPECT_EQ(strip.Mostrado().filas.front().inicio, MakeDate(2001, 1, 2));
  EXPECT_EQ(sesion.BDEmpresa.get(), company);
  EXPECT_EQ(slot.Fields(0).Get(), Value("00002"));

  std::filesystem::rename(PathOf(FileKind::kCompany), PathOf(FileKind::kCompany) + ".old");
  strip.PonTrabajador("00002");
  EXPECT_TRUE(strip.Mostrado().filas.empty());
  EXPECT_EQ(strip.Mostrado().aviso, "No se han podido leer las incidencias.");
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(TiraCalendarioTest, TheTypedIntervalIsThatOfWholeDates) {
  const Date second = *MakeDate(2001, 5, 2);
  const Date tenth = *MakeDate(2001, 5, 10);
  const struct {
    const char* start;
    const char* end;
    std::optional<IntervaloTecleado> typed;
  } cases[] = {
      {"020501", "", IntervaloTecleado{kESP, second, {}}},
      {"02/05/01", "10/05/01", IntervaloTecleado{kESP, second, tenth}},
      {"02/05/01", "1005", IntervaloTecleado{kESP, second, {}}},
      {"02050", "100501", std::nullopt},
      {"310201", "", std::nullopt},
      {"05/31/01", "", std::nullopt},
      {"", "100501", std::nullopt},
  };
  for (const auto& [start, end, typed] : cases) {
    strip.PonTecleado(kESP, start, end);
    EXPECT_EQ(strip.Mostrado().tecleado, typed) << start << ' ' << end;
  }
}

}  // namespace
}  // namespace zendara

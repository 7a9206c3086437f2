// Steps that start from a key, when no row is the current one.
#include "common/navegacion.hpp"

#include "common/busqueda.hpp"
#include "common/lists_fixture.hpp"
#include "frame/catalogo.hpp"
#include "runtime/date.hpp"

namespace zendara {
namespace {

TEST_F(ListsTest, StepsWithoutARowStartFromTheKeysRemembered) {
  using Clave = std::vector<Value>;
  const auto el = [](int mes, int dia) { return Value(*MakeDate(2001, mes, dia)); };
  Navegacion navegacion(sesion, kTincidenciasIT);
  EXPECT_FALSE(navegacion.AlSiguiente()) << "no rows";
  const Clave filas[] = {{"00001", el(2, 11)}, {"00001", el(11, 2)}, {"00003", el(1, 5)}};
  for (const Clave& fila : filas) Add(FileKind::kCompany, "TincidenciasIT", {{0, fila[0]}, {3, fila[1]}});
  const struct {
    Clave clave;
    int anterior;
    int siguiente;
  } casos[] = {{{"00001", el(3, 1)}, 0, 1}, {{"00001", el(11, 2)}, 0, 2}, {{"00002", el(1, 1)}, 1, 2},
               {{"00000", el(1, 1)}, 0, 0}, {{"00003", el(1, 6)}, 2, 2},  {{"9", el(1, 1)}, 2, 2}};
  for (const auto& [clave, anterior, siguiente] : casos) {
    for (const bool atras : {true, false}) {
      SCOPED_TRACE(clave[0].Text() + (atras ? " back" : " on"));
      EXPECT_FALSE(Busca(sesion, kTincidenciasIT, "Icampo0_3", {"nadie"}));
      navegacion.Recuerda(clave);
      EXPECT_TRUE(atras ? navegacion.AlAnterior() : navegacion.AlSiguiente());
      Recordset& tabla = sesion.Tabla(kTincidenciasIT);
      EXPECT_EQ((Clave{tabla.Fields(0).Get(), tabla.Fields(3).Get()}), filas[atras ? anterior : siguiente]);
    }
  }
}

}  // namespace
}  // namespace zendara

// Steps that start from a key, when no row is the current one.
#include "common/navegacion.hpp"

#include "common/busqueda.hpp"
#include "common/lists_fixture.hpp"
#include "frame/catalogo.hpp"
#include "runtime/date.hpp"

namespace zendara {
namespace {

TEST_F(ListsTest, StepsWithoutARowStartFromTheKeysRemembered) {
  struct Clave {
    const char* trabajador;
    int mes;
    int dia;
  };
  const auto claves = [](const Clave& c) { return std::vector<Value>{c.trabajador, *MakeDate(2001, c.mes, c.dia)}; };
  Navegacion navegacion(sesion, kTincidenciasIT);
  EXPECT_FALSE(navegacion.AlSiguiente()) << "no rows";
  constexpr Clave kFilas[] = {{"00001", 2, 11}, {"00001", 11, 2}, {"00003", 1, 5}};
  for (const Clave& fila : kFilas) {
    Add(FileKind::kCompany, "TincidenciasIT", {{0, fila.trabajador}, {3, *MakeDate(2001, fila.mes, fila.dia)}});
  }
  const struct {
    Clave clave;
    int anterior;
    int siguiente;
  } casos[] = {{{"00001", 3, 1}, 0, 1}, {{"00001", 11, 2}, 0, 2}, {{"00002", 1, 1}, 1, 2},
               {{"00000", 1, 1}, 0, 0}, {{"00003", 1, 6}, 2, 2},  {{"9", 1, 1}, 2, 2}};
  for (const auto& [clave, anterior, siguiente] : casos) {
    for (const bool atras : {true, false}) {
      SCOPED_TRACE(std::string(clave.trabajador) + (atras ? " back" : " on"));
      EXPECT_FALSE(Busca(sesion, kTincidenciasIT, "Icampo0_3", {"nadie"}));
      navegacion.Recuerda(claves(clave));
      EXPECT_TRUE(atras ? navegacion.AlAnterior() : navegacion.AlSiguiente());
      Recordset& tabla = sesion.Tabla(kTincidenciasIT);
      const auto esperado = claves(kFilas[atras ? anterior : siguiente]);
      EXPECT_EQ((std::vector<Value>{tabla.Fields(0).Get(), tabla.Fields(3).Get()}), esperado);
    }
  }
}

}  // namespace
}  // namespace zendara

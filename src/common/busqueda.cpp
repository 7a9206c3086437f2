#include "common/busqueda.hpp"

namespace zendara {

bool Busca(const Sesion& sesion, int ranura, std::string_view indice, const std::vector<Value>& claves) {
  Recordset& tabla = sesion.Tabla(ranura);
  tabla.SetIndex(indice);
  tabla.Seek(claves);
  sesion.platform.engine->Idle(1);
  return !tabla.NoMatch();
}

}  // namespace zendara

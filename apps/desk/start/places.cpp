#include "apps/desk/start/places.hpp"

#include "adapters/stores/password.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

bool IsServer(const std::string& place) { return place.find("://") != std::string::npos; }

std::string PlaceName(const std::string& place) { return OpenStore(place).folder; }

std::string PlaceWords(const std::string& place) {
  return (IsServer(place) ? "el servidor " : "la carpeta ") + PlaceName(place);
}

std::string WhyNoConnection(const std::string& text) {
  if (text.empty()) return "Escriba la conexión.";
  if (HoldsPassword(text)) {
    return "La contraseña no se escribe en la conexión, donde quedaría guardada y a la vista. Póngala en el fichero "
           "~/.pgpass, en un fichero de servicio o en la variable PGPASSWORD.";
  }
  try {
    if (IsServer(text)) return OpenStore(text), "";
  } catch (const RuntimeError&) {
    // What it says is for who reads libraries' manuals.
  }
  return "Esto no es una conexión. Se escribe, por ejemplo: postgresql://servidor/nominas";
}

}  // namespace zendara

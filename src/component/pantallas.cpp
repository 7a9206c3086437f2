// Which screens exist.
#include <memory>
#include <string>

#include "component/componente.hpp"
#include "incidents/incidencias_fechas.hpp"
#include "incidents/incidencias_variables.hpp"
#include "listings/imprgast.hpp"
#include "listings/listado_trabajador.hpp"
#include "workers/trabajadores.hpp"

namespace zendara {
namespace {

template <typename T>
void Registra(Componente& componente, std::string_view nombre) {
  componente.pantallas.Registra(std::string(nombre), [&componente]() -> std::shared_ptr<Pantalla> {
    return std::make_shared<T>(componente.sesion, componente.pantallas);
  });
}

}  // namespace

Componente::Componente() {
  Registra<Trabajadores>(*this, kPantallaTrabajadores);
  Registra<MIncidencias>(*this, "MIncidencias");
  Registra<MIncidenciasESP>(*this, "MIncidenciasESP");
  Registra<MIncidenciasVAR>(*this, "MIncidenciasVAR");
  Registra<Imprgast>(*this, "Imprgast");
  Registra<ListadoTrabajador>(*this, "ListadoTrabajador");
}

}  // namespace zendara

// What the worker screen hands to an incident screen that it opens.
#pragma once

#include <string>

namespace zendara {

// The screen registered as "Trabajadores" is one. Incident screens read it at load, through the register; opened by the
// host they find the worker empty.
class SeleccionTrabajador {
 public:
  virtual ~SeleccionTrabajador() = default;

  std::string TrabajadorElegido;
  std::string SituacionElegida;
};

}  // namespace zendara

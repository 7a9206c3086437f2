// From row to row of a slot's table, in the order of its index. The ends hold: a step beyond the last row stays on it.
#pragma once

#include <utility>
#include <vector>

#include "frame/sesion.hpp"

namespace zendara {

// Each step answers false, and does nothing, when the table has no rows; otherwise the slot stands on a row. Errors of
// the store go to the caller.
class Navegacion {
 public:
  Navegacion(Sesion& sesion, int ranura) : sesion_(sesion), ranura_(ranura) {}

  bool AlInicio();
  bool AlAnterior() { return Da(true); }
  bool AlSiguiente() { return Da(false); }
  bool AlFin();

  // The keys, in the order of the index, that were saved or asked for last: where a step starts when no row is the
  // current one, as after a row was added, or after a key that no row has.
  void Recuerda(std::vector<Value> clave) { clave_ = std::move(clave); }

 private:
  bool Da(bool atras);
  bool TieneRegistro() const;
  bool VaAlVecino(bool atras);

  Sesion& sesion_;
  int ranura_;
  std::vector<Value> clave_;
};

}  // namespace zendara

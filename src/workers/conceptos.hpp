// The concepts and pay data that a new situación takes over from the one before it.
#pragma once

#include <string>

#include "frame/sesion.hpp"

namespace zendara {

struct NuevaSituacion {
  std::string trabajador;  // five characters
  std::string numero;      // three; the one before it in number is copied
  std::string inicio;      // dd/mm/yy

  bool operator==(const NuevaSituacion&) const = default;
};

// A transfer that may have been cut short.
struct CopiaPendiente {
  NuevaSituacion nueva;
  bool empezada = false;  // its concepts, so that those which the new situación has may be copies
};

// Copies the rows of the previous situación, of the month in which it ended, to the new one in the month in which it
// begins: all its concepts, and the first row of its pay data. A table in which the new one has rows for that month
// already is left alone.
//
// Where a date lies in another year, the slots and BDEmpresa change to that year's files if there are any. They come
// back to the year of the previous situación, not to the working year, and not at all when that year has no file: so
// they can stay in another year.
//
// Errors go to the caller; rows copied until then stay, and another call with the same `copia` copies those that are
// missing.
void TransfiereConceptos(Sesion& sesion, CopiaPendiente& copia);

}  // namespace zendara

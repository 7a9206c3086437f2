// A look-up of a screen: the call of the pick list. Pointer, focus and what follows a choice are the screen's.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "common/listas.hpp"
#include "frame/sesion.hpp"

namespace zendara {

// The chosen row, the empty text if nothing was chosen, nothing if the list did not open because the table that guards
// it has no rows. Error 91 when the host left that table's slot empty, 429 when there is no pick list; those of the
// list and of the store go to the caller too. `parametros` as in ConsultaDe; `actuales` are what the
// fields of the pieces hold, one for each, and the list begins on the row that has them.
std::optional<std::string> Consulta(const Sesion& sesion, const Lista& lista,
                                    const std::vector<std::string>& parametros = {},
                                    const std::vector<std::string>& actuales = {});

}  // namespace zendara

// A row of a slot by its keys.
#pragma once

#include <string_view>
#include <vector>

#include "frame/sesion.hpp"

namespace zendara {

// Stands the slot on the first row under these keys of that index; false, and no current row, when there is none.
// Errors go to the caller.
bool Busca(const Sesion& sesion, int ranura, std::string_view indice, const std::vector<Value>& claves);

}  // namespace zendara

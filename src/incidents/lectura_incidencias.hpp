// Reads the incidents of one worker.
#pragma once

#include <string>
#include <vector>

#include "frame/sesion.hpp"
#include "incidents/calendario.hpp"

namespace zendara {

// Those of both tables, IT first, each by start. The company's file of the working year is read by a handle of its own,
// so nothing of the session moves: not BDEmpresa, not the slots, not their positions. Errors of the store go to the
// caller.
std::vector<IncidenciaVista> LeeIncidencias(const Sesion& sesion, const std::string& trabajador);

}  // namespace zendara

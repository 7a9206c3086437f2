// The host's part: a session with a company's files open and its slots filled, for programs that run the component
// themselves. Unlike AbreTablas this shows nothing: errors go to the caller, 3024 and 3044 with the
// name of the file or folder, 3011 with that of the table; the session is then half filled.
#pragma once

#include <string_view>

#include "frame/sesion.hpp"

namespace zendara {

// Sets CodEmpresa, AnoTrabajo and the folders, and fills every slot of the catalogue and the street types' slot 2: the
// slots 406 and 414 as the general tables have them, 404 as the official ones. BDEmpresa is the company file, BDSegunda
// the general one. `ano` has two or four digits.
void AbreEmpresa(Sesion& sesion, std::string_view codigo, std::string_view ano);

}  // namespace zendara

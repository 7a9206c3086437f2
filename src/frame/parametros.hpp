// The folders and the host's parameter files, read at every screen load.
#pragma once

#include "frame/sesion.hpp"

namespace zendara {

// DirPrograma and DirDatos from the application's folder.
void PonCarpetas(Sesion& sesion);

// The folders, then the first records of the three parameter files. Errors of the files go to the caller, 53 for one
// that is missing; the records read before it are the new ones.
void CargaParametros(Sesion& sesion);

}  // namespace zendara

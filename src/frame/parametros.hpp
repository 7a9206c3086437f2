// The folders and the host's parameter files, read at every screen load.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "frame/sesion.hpp"

namespace zendara {

struct ParameterFile {
  std::string_view name;
  std::size_t length;  // bytes of its record
  std::string Sesion::*record;
};
inline constexpr std::array<ParameterFile, 3> kParameterFiles = {{{"IMPM1600.DAT", 256, &Sesion::ParametrosListado},
                                                                  {"IMPM0999.DAT", 300, &Sesion::ParametrosImpresion},
                                                                  {"NOM00997.DAT", 256, &Sesion::ParametrosNomina}}};

// DirPrograma and DirDatos from the application's folder.
void PonCarpetas(Sesion& sesion);

// The folders, then the first records of the three parameter files. Errors of the files go to the caller, 53 for one
// that is missing; the records read before it are the new ones.
void CargaParametros(Sesion& sesion);

}  // namespace zendara

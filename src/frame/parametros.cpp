#include "frame/parametros.hpp"

namespace zendara {

void PonCarpetas(Sesion& sesion) {
  sesion.DirPrograma = sesion.platform.application_folder + "\\";
  sesion.DirDatos = sesion.DirPrograma + "DATOS\\";
}

void CargaParametros(Sesion& sesion) {
  PonCarpetas(sesion);
  const Files& files = *sesion.platform.files;
  for (const ParameterFile& file : kParameterFiles) {
    sesion.*file.record = files.ReadRecord(sesion.DirDatos + std::string(file.name), file.length);
  }
}

}  // namespace zendara

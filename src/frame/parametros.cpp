#include "frame/parametros.hpp"

namespace zendara {

void PonCarpetas(Sesion& sesion) {
  sesion.DirPrograma = sesion.platform.application_folder + "\\";
  sesion.DirDatos = sesion.DirPrograma + "DATOS\\";
}

void CargaParametros(Sesion& sesion) {
  PonCarpetas(sesion);
  const Files& files = *sesion.platform.files;
  sesion.ParametrosListado = files.ReadRecord(sesion.DirDatos + "IMPM1600.DAT", 256);
  sesion.ParametrosImpresion = files.ReadRecord(sesion.DirDatos + "IMPM0999.DAT", 300);
  sesion.ParametrosNomina = files.ReadRecord(sesion.DirDatos + "NOM00997.DAT", 256);
}

}  // namespace zendara

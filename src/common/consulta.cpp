#include "common/consulta.hpp"

#include <memory>

namespace zendara {

std::optional<std::string> Consulta(const Sesion& sesion, const Lista& lista,
                                    const std::vector<std::string>& parametros,
                                    const std::vector<std::string>& actuales) {
  if (lista.guarda != kSinGuarda && sesion.Tabla(lista.guarda).IsEmpty()) return std::nullopt;

  const std::unique_ptr<PickList> lista_abierta = CreatePickList(sesion.platform.components);
  const std::string titulo(lista.titulo);
  lista_abierta->Presenta(VistaDe(lista, actuales, sesion.VentanaFechas));
  std::string resultado;
  if (lista.Fija()) {
    lista_abierta->ConsultaFija({lista.lineas.begin(), lista.lineas.end()}, titulo, sesion.MarcaBoton, resultado);
    return resultado;
  }
  std::vector<std::string> columnas;
  std::vector<RowPlace> lugares;
  for (const ColumnaLista& columna : lista.columnas) {
    columnas.emplace_back(columna.codigo);
    lugares.push_back(columna.lugar);
  }
  const std::string base =
      sesion.DirDatos + FillFileName(lista.fichero.nombre, sesion.CodEmpresa.str(), sesion.AnoTrabajo.str());
  lista_abierta->ConsultaLista(columnas, ConsultaDe(lista, parametros), lugares, *sesion.platform.engine, base, titulo,
                               sesion.MarcaBoton, resultado);
  return resultado;
}

}  // namespace zendara

#include "common/ayuda.hpp"

#include <algorithm>

namespace zendara {
namespace {

constexpr PaginaAyuda kPaginas[] = {
    {0, "index.md", "Ayuda"},
    {20004, "trabajadores.md", "Trabajadores"},
    {30001, "incidencias_it.md", "Incidencias de I.T."},
    {300022, "incidencias_esp.md", "Incidencias de E.S.P."},
    {30003, "incidencias_var.md", "Incidencias Conceptos Variables"},
    {0, "listado_incidencias.md", "Listados de incidencias"},
    {0, "listado_trabajador.md", "Listado Trabajadores"},
    {0, "tipo_retencion.md", "El tipo de retención y la regularización"},
    {0, "primeros_pasos.md", "Primeros pasos"},
    {0, "teclas.md", "Teclas"},
    {0, "borradores.md", "Lo que escribe y no graba"},
    {0, "buscar.md", "Buscar"},
    {0, "visor.md", "Ver, imprimir y guardar un listado"},
};

}  // namespace

std::span<const PaginaAyuda> PaginasAyuda() { return kPaginas; }

const PaginaAyuda& PaginaDeContexto(int contexto) {
  const auto* pagina = std::ranges::find(kPaginas, contexto, &PaginaAyuda::contexto);
  return pagina == std::end(kPaginas) ? kPaginas[0] : *pagina;
}

std::string PalabrasDe(const Control& control) {
  std::string rotulo = control.Caption();
  std::erase(rotulo, '&');
  return rotulo.substr(0, rotulo.find_last_not_of(" .:") + 1);
}

}  // namespace zendara

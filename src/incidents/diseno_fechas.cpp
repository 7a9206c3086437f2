#include "incidents/diseno_fechas.hpp"

#include "frame/catalogo.hpp"

namespace zendara {
namespace {

using enum CampoFechas;

constexpr Campo kCampos[] = {
    {kTrabajador, TipoCampo::kTexto, "Nº de Trabajador............:", 5, kClave | kNumerico},
    {kNombre, TipoCampo::kTexto, "Nombre", 25, kVista},
    {kTipo, TipoCampo::kLista, "Tipo Incidencia................:", 1, kSinRegla},
    {kInicio, TipoCampo::kTexto, "Fecha de Inicio................:", 8, kFecha},
    {kFin, TipoCampo::kTexto, "Fecha de Fin...................:", 8, kFecha},
};
constexpr IndiceCampo kCamposClave[] = {kTrabajador, kInicio};

constexpr DisenoIncidencias Comun(std::string_view pantalla, std::string_view leyenda, int contexto_ayuda,
                                  std::string_view pista_grabar, int ranura, bool lista_sin_filas) {
  return {.pantalla = pantalla,
          .leyenda = leyenda,
          .contexto_ayuda = contexto_ayuda,
          .pista_grabar = pista_grabar,
          .pista_borrar = " Borra Incidencia ",
          .ranura = ranura,
          .fichero = FileKind::kCompany,
          .indice = "ICampo0_3",
          .clave = kCamposClave,
          .campos = kCampos,
          .trabajador = kTrabajador,
          .nombre = kNombre,
          .lista_sin_filas = lista_sin_filas};
}

constexpr DisenoFechas kDisenos[] = {
    {.comun = Comun("MIncidencias", "Incidencias de I.T.", 30001, " Graba Incidencia ", kTincidenciasIT, false),
     .tabla = TablaIncidencias::kIT,
     .nombre_tabla = "TincidenciasIT",
     .tipos = &kListaTiposIT,
     .fechas = &kListaFechasIT,
     .falta_inicio = "Es preciso la fecha de inicio",
     .hay_abierta = "trabajador si existe alguna anterior sin su fecha  final",
     .reabre_al_grabar = false,
     .al_salir = TratoFechas::kTexto,
     .de_lista = TratoFechas::kFormato},
    {.comun = Comun("MIncidenciasESP", "Incidencias de E.S.P.", 300022, " Graba Incidencia", kTincidenciasESP, true),
     .tabla = TablaIncidencias::kESP,
     .nombre_tabla = "TincidenciasESP",
     .tipos = &kListaTiposESP,
     .fechas = &kListaFechasESP,
     .falta_inicio = "Es preciso introducir la fecha de inicio",
     .hay_abierta = "trabajador si existe alguna incidencia de I.T. o E.S.P. anterior sin su fecha  final",
     .reabre_al_grabar = true,
     .al_salir = TratoFechas::kFormato,
     .de_lista = TratoFechas::kAmbos},
};

}  // namespace

std::span<const Campo> CamposFechas() { return kCampos; }

const DisenoFechas& DisenoDe(TablaIncidencias tabla) { return kDisenos[tabla == TablaIncidencias::kIT ? 0 : 1]; }

}  // namespace zendara

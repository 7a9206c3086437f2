#include "incidents/diseno_fechas.hpp"

#include "frame/catalogo.hpp"
#include "runtime/text.hpp"

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

constexpr DisenoFechas kDisenos[] = {
    {.comun = {.pantalla = "MIncidencias",
               .leyenda = "Incidencias de I.T.",
               .contexto_ayuda = 30001,
               .pista_grabar = " Graba Incidencia ",
               .pista_borrar = " Borra Incidencia ",
               .ranura = kTincidenciasIT,
               .fichero = FileKind::kCompany,
               .indice = "ICampo0_3",
               .clave = kCamposClave,
               .campos = kCampos,
               .trabajador = kTrabajador,
               .nombre = kNombre,
               .lista_sin_filas = false},
     .tabla = TablaIncidencias::kIT,
     .nombre_tabla = "TincidenciasIT",
     .tipos = &kListaTiposIT,
     .fechas = &kListaFechasIT,
     .falta_inicio = "Es preciso la fecha de inicio",
     .hay_abierta = "trabajador si existe alguna anterior sin su fecha  final",
     .reabre_al_grabar = false,
     .al_salir = TratoFechas::kTexto,
     .de_lista = TratoFechas::kFormato},
    {.comun = {.pantalla = "MIncidenciasESP",
               .leyenda = "Incidencias de E.S.P.",
               .contexto_ayuda = 300022,
               .pista_grabar = " Graba Incidencia",
               .pista_borrar = " Borra Incidencia ",
               .ranura = kTincidenciasESP,
               .fichero = FileKind::kCompany,
               .indice = "ICampo0_3",
               .clave = kCamposClave,
               .campos = kCampos,
               .trabajador = kTrabajador,
               .nombre = kNombre,
               .lista_sin_filas = true},
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

std::string EnReposo(const std::string& fecha) {
  if (Len(fecha) != 6 || fecha.find('/') != std::string::npos) return fecha;
  return Mid(fecha, 1, 2) + "/" + Mid(fecha, 3, 2) + "/" + Mid(fecha, 5, 2);
}

}  // namespace zendara

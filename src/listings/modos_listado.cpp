#include "listings/modos_listado.hpp"

#include <algorithm>
#include <iterator>
#include <span>

#include "frame/catalogo.hpp"

namespace zendara {
namespace {

constexpr std::string_view kTitulo = "Relación Numerica de Incidencias ";

const DescripcionListado kFechas = {kTitulo,
                                    {{"Nº Empleado", 1, "1100"},
                                     {"Nombre", 0, "4000"},
                                     {"Incidencia", 0, "2000"},
                                     {"Fecha Inicio", 0, "1000"},
                                     {"Fecha Fin", 0, "800"}}};
const DescripcionListado kVariables = {kTitulo,
                                       {{"Mes", 1, "700"},
                                        {"Nº Trabajador", 1, "1100"},
                                        {"Nombre Trabajador", 0, "3000"},
                                        {"Situación", 1, "800"},
                                        {"NºConcepto", 1, "1000"},
                                        {"Concepto", 0, "1200"},
                                        {"Importe", 1, "700"},
                                        {"Unidades", 1, "800"}}};

constexpr int kCifrasTrabajador = 5;
constexpr int kCifrasMes = 2;

const ModoListado kModos[] = {
    {.formulario = "MIncidencias",
     .ranura = kTincidenciasIT,
     .primero = "De Trabajador",
     .largo_primero = kCifrasTrabajador,
     .segundo = "A  Trabajador",
     .pide_mes = false,
     .lista = &kListaTrabajadoresIT,
     .sin_trabajador = "No existe ese trabajador o no tiene incidencias registradas",
     .tabla = "Tincidenciasit",
     .texto_tipo = TextoIncidenciaIT,
     .descripcion = &kFechas,
     .datos_de_programa = false},
    {.formulario = "MIncidenciasESP",
     .ranura = kTincidenciasESP,
     .primero = "De Trabajador",
     .largo_primero = kCifrasTrabajador,
     .segundo = "A  Trabajador",
     .pide_mes = false,
     .lista = &kListaTrabajadoresESP,
     .sin_trabajador = "No hay incidencias registradas o no existe este Trabajador",
     .tabla = "Tincidenciasesp",
     .texto_tipo = TextoIncidenciaESP,
     .descripcion = &kFechas,
     .datos_de_programa = true},
    {.formulario = "MIncidenciasVAR",
     .ranura = kTIncidenciasVar,
     .primero = "Mes",
     .largo_primero = kCifrasMes,
     .segundo = "De Trabajador",
     .pide_mes = true,
     .lista = &kListaTrabajadoresVar,
     .sin_trabajador = " No existe ese trabajador o no tiene incidencias ",
     .tabla = "TIncidenciasVar",
     .texto_tipo = nullptr,
     .descripcion = &kVariables,
     .datos_de_programa = true},
};

struct TextoIncidencia {
  std::string_view codigo;
  std::string_view texto;
};
constexpr TextoIncidencia kTextosIT[] = {
    {"1", "1 Enfermedad"},
    {"2", "2 Maternidad"},
    {"3", "3 Accidente"},
    {"4", "4 Recaida de Accidente"},
    {"5", "5 Recaidad de Accidente"},
};
constexpr TextoIncidencia kTextosESP[] = {{"1", "1 Vacaciones"}, {"2", "2 Huelga"}};

std::string_view TextoDe(std::span<const TextoIncidencia> textos, std::string_view codigo) {
  const auto texto = std::ranges::find(textos, codigo, &TextoIncidencia::codigo);
  return texto == textos.end() ? std::string_view() : texto->texto;
}

}  // namespace

const ModoListado* ModoDe(std::string_view formulario) {
  const auto* modo = std::ranges::find(kModos, formulario, &ModoListado::formulario);
  return modo == std::end(kModos) ? nullptr : modo;
}

std::string_view TextoIncidenciaIT(std::string_view codigo) { return TextoDe(kTextosIT, codigo); }
std::string_view TextoIncidenciaESP(std::string_view codigo) { return TextoDe(kTextosESP, codigo); }

}  // namespace zendara

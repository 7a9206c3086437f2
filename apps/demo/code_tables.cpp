#include "apps/demo/code_tables.hpp"

#include <algorithm>
#include <array>

namespace zendara {
namespace {

constexpr Code kCallesRows[] = {
    {"AVD", "Avenida"},   {"CJN", "Callejón"}, {"CLL", "Calle"},        {"CMN", "Camino"},
    {"CRA", "Carretera"}, {"GTA", "Glorieta"}, {"PZA", "Plaza"},        {"PSO", "Paseo"},
    {"RDA", "Ronda"},     {"TRV", "Travesía"}, {"URB", "Urbanización"},
};

constexpr Code kFormasPagoRows[] = {
    {"01", "Transferencia bancaria"},
    {"02", "Talón nominativo"},
    {"03", "Efectivo"},
    {"04", "Ingreso en cuenta"},
};

constexpr Code kCentrosRows[] = {
    {"001", "Oficina central"},        {"002", "Almacén de Alcalá"},   {"003", "Fábrica de Logroño"},
    {"004", "Delegación de A Coruña"}, {"005", "Tienda de Almuñécar"},
};

constexpr Code kSeccionesRows[] = {
    {"001", "Dirección"}, {"002", "Administración"}, {"003", "Comercial"}, {"004", "Producción"},
    {"005", "Almacén"},   {"006", "Mantenimiento"},  {"007", "Diseño"},
};

constexpr Code kEpigrafesRows[] = {
    {"097", "Fabricación de productos metálicos"},
    {"109", "Almacenes y depósitos en general"},
    {"113", "Personal en trabajos exclusivos de oficina"},
    {"114", "Representantes, viajantes y agentes de comercio"},
    {"119", "Conductores de vehículos de transporte pesado"},
    {"126", "Hostelería, cafés, bares y servicios de comidas"},
};

constexpr Code kGruposTarifaRows[] = {
    {"01", "Ingenieros y Licenciados"},          {"02", "Ingenieros Técnicos, Peritos y Ayudantes Titulados"},
    {"03", "Jefes Administrativos y de Taller"}, {"04", "Ayudantes no Titulados"},
    {"05", "Oficiales Administrativos"},         {"06", "Subalternos"},
    {"07", "Auxiliares Administrativos"},        {"08", "Oficial de Primera y Segunda"},
    {"09", "Oficial de Tercera y Especial"},     {"10", "Peones"},
    {"11", "Trabajadores menores de 18 años"},
};

// Ten characters, as ConTrabajadorConceptos holds them.
constexpr Code kConceptosRows[] = {
    {"001", "Sal. base"}, {"002", "Antigüedad"}, {"003", "P.Convenio"}, {"004", "H. extras"}, {"005", "Dietas"},
};

constexpr Categoria kMetal[] = {
    {"01", "Ingeniero", 1},       {"02", "Perito", 2},    {"03", "Jefe de taller", 3}, {"04", "Delineante", 4},
    {"05", "Oficial admtvo.", 5}, {"06", "Ordenanza", 6}, {"07", "Aux. admtvo.", 7},   {"08", "Oficial 1ª", 8},
    {"09", "Oficial 3ª", 9},      {"10", "Peón", 10},     {"11", "Aprendiz", 11},
};
constexpr Categoria kComercio[] = {
    {"01", "Titulado sup.", 1}, {"02", "Jefe de compras", 3},  {"03", "Dependiente", 5},
    {"04", "Cajera", 7},        {"05", "Mozo de almacén", 10}, {"11", "Aprendiz", 11},
};
constexpr Categoria kHosteleria[] = {
    {"01", "Director", 1}, {"02", "Jefe de cocina", 3}, {"03", "Cocinero", 8},
    {"04", "Camarero", 9}, {"05", "Pinche", 10},        {"11", "Aprendiz", 11},
};

constexpr Convenio kConveniosRows[] = {
    {kConvenioEmpresa, "Metal y siderurgia", kMetal},
    {"0000202", "Comercio en general", kComercio},
    {"0000303", "Hostelería y restauración", kHosteleria},
};

constexpr Contrato kContratosRows[] = {
    {"001", "01", "Indefinido ordinario", "", ""},
    {"001", "03", "Indefinido a tiempo parcial", "", ""},
    {"002", "08", "Fomento, primer periodo", "Disp. 1", "40"},
    {"002", "09", "Fomento, segundo periodo", "Disp. 1", "25"},
    {"002", "10", "Fomento, mayores de 45 años", "Disp. 2", "62,5"},
    {"003", "14", "Obra o servicio", "", ""},
    {"003", "15", "Eventual circunstancias producción", "", ""},
    {"004", "20", "Formación", "Disp. 3", ""},
    {"005", "25", "Tiempo parcial, determinado", "", ""},
    {"006", "30", "Relación laboral especial", "Disp. 4", ""},
};

constexpr std::array<Sueldo, 11> kSueldos = {{{4'000'000, 14'000'000},
                                              {3'200'000, 7'000'000},
                                              {2'800'000, 5'500'000},
                                              {2'200'000, 3'500'000},
                                              {2'000'000, 3'200'000},
                                              {1'500'000, 2'200'000},
                                              {1'400'000, 2'200'000},
                                              {1'900'000, 3'000'000},
                                              {1'700'000, 2'500'000},
                                              {1'300'000, 2'000'000},
                                              {1'000'000, 1'200'000}}};

}  // namespace

const std::span<const Code> kCalles = kCallesRows;
const std::span<const Code> kFormasPago = kFormasPagoRows;
const std::span<const Code> kCentros = kCentrosRows;
const std::span<const Code> kSecciones = kSeccionesRows;
const std::span<const Code> kEpigrafes = kEpigrafesRows;
const std::span<const Code> kGruposTarifa = kGruposTarifaRows;
const std::span<const Code> kConceptos = kConceptosRows;
const std::span<const Convenio> kConvenios = kConveniosRows;
const std::span<const Contrato> kContratos = kContratosRows;

std::size_t ContratoNumero(std::string_view number) {
  const auto at = std::ranges::find(kContratos, number, &Contrato::number);
  return static_cast<std::size_t>(at - kContratos.begin());
}

Sueldo SueldoDeGrupo(int grupo_tarifa) { return kSueldos.at(static_cast<std::size_t>(grupo_tarifa - 1)); }

}  // namespace zendara

#include "workers/reglas_trabajador.hpp"

#include <algorithm>

#include "common/listas.hpp"
#include "frame/catalogo.hpp"

namespace zendara {
namespace {

using enum CampoTrabajador;

constexpr CampoObligatorio kObligatorios[] = {
    {kNumero, "Debe introducir el número de trabajador"},
    {kTipoIdentificacion, "Debe seleccionar el tipo de identificacion"},
    {kIdentificacion, "Debe introducir el número de identificación"},
    {kSituacion, "Debe introducir número de la situación"},
    {kFechaInicio, "Debe introducir fecha de inicio de la situación"},
    {kFechaAlta, "Debe introducir la fecha de alta en la empresa"},
    {kConvenio, "Debe introducir el código de Convenio Colectivo"},
    {kEpigrafe, "Debe introducir el Epigrafe"},
    {kNumeroContrato, "Debe introducir el numero de contrato"},
    {kTipo1, "Debe introducir el tipo de contrato"},
    {kCentro, "Debe introducir el centro de trabajo"},
};

constexpr std::string_view kMenosDe25Horas =
    "El número de horas introducido no es válido, debe ser igual o menor a 24.";
constexpr std::string_view kMenosDe100 = "La cantidad introducida no es valida, debe ser inferior a 100.";
constexpr MaximoCampo kMaximos[] = {
    {kHorasParcial, 24, kMenosDe25Horas},
    {kPorcentajeSalario, 100, kMenosDe100},
    {kPorcentajeIRPF, 100, kMenosDe100},
    {kPluriempleo, 100, kMenosDe100},
};

constexpr DescripcionCampo kDescripciones[] = {
    {kFormaPago, kFPago, "ICampo0", 1},    {kConvenio, kConEmpresaConceptos, "ICampo0", 1},
    {kEpigrafe, kEpigrafes, "ICampo0", 1}, {kCentro, kCentros, "ICampo0", 1},
    {kSeccion, kSecciones, "ICampo0", 1},
};

constexpr std::size_t kLargoCodigoTarifa = 2;
constexpr std::size_t kInicioTextoTarifa = 5;  // behind "01 - "

template <typename Tabla>
auto FilaDe(const Tabla& tabla, CampoTrabajador campo) -> decltype(std::begin(tabla)) {
  const auto* fila = std::ranges::find(tabla, campo, [](const auto& f) { return f.campo; });
  return fila == std::end(tabla) ? nullptr : fila;
}

}  // namespace

std::span<const CampoObligatorio> CamposObligatorios() { return kObligatorios; }

const MaximoCampo* MaximoDe(CampoTrabajador campo) { return FilaDe(kMaximos, campo); }

const DescripcionCampo* DescripcionDe(CampoTrabajador campo) { return FilaDe(kDescripciones, campo); }

std::string_view TextoGrupoTarifa(std::string_view codigo) {
  for (const std::string_view linea : kListaGruposTarifa.lineas) {
    if (linea.substr(0, kLargoCodigoTarifa) != codigo) continue;
    const std::string_view texto = linea.substr(kInicioTextoTarifa);
    return texto.substr(0, texto.find_last_not_of(' ') + 1);
  }
  return {};
}

}  // namespace zendara

#include "workers/reglas_trabajador.hpp"

#include <algorithm>

#include "frame/catalogo.hpp"
#include "runtime/number.hpp"
#include "workers/trabajador_consultas.hpp"

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

// What a field takes where its rules do not tell.
struct EsperaCampo {
  CampoTrabajador campo;
  std::string_view texto;
};
constexpr EsperaCampo kEsperas[] = {
    {kNumero, "5 cifras · Intro: lo muestra"},
    {kSituacion, "3 cifras · Intro: la muestra"},
    {kDiasParcial, "Días, hasta 30, o letras L M X J V S D"},
    {kHorasParcial, "Horas"},
    {kPorcentajeSalario, "Porcentaje"},
    {kHorasComplementarias, "Horas"},
    {kFormacionPresencial, "Horas"},
    {kFormacionDistancia, "Horas"},
    {kPorcentajeIRPF, "Porcentaje"},
    {kPluriempleo, "Porcentaje"},
};

template <typename Tabla>
auto FilaDe(const Tabla& tabla, CampoTrabajador campo) -> decltype(std::begin(tabla)) {
  const auto* fila = std::ranges::find(tabla, campo, [](const auto& f) { return f.campo; });
  return fila == std::end(tabla) ? nullptr : fila;
}

}  // namespace

std::span<const CampoObligatorio> CamposObligatorios() { return kObligatorios; }

const MaximoCampo* MaximoDe(CampoTrabajador campo) { return FilaDe(kMaximos, campo); }

const DescripcionCampo* DescripcionDe(CampoTrabajador campo) { return FilaDe(kDescripciones, campo); }

std::string_view TextoGrupoTarifa(std::string_view codigo) { return TextoDeCodigo(kListaGruposTarifa, codigo); }

std::string EsperaDe(const Campo& campo) {
  const auto clave = static_cast<CampoTrabajador>(static_cast<int>(campo.indice));
  const auto base = [&]() -> std::string {
    if (const EsperaCampo* propia = FilaDe(kEsperas, clave)) return std::string(propia->texto);
    if (campo.Tiene(kVista)) return "Lo pone el programa";
    if (campo.Tiene(kFecha)) return "Fecha: ddmmaa";
    if (campo.Tiene(kImporte)) return "Importe";
    if (campo.tipo == TipoCampo::kLista) return "Código, una letra o cifra";
    if (campo.tipo == TipoCampo::kMarca) return "Barra espaciadora: sí o no";
    const std::string largo = std::to_string(campo.largo);
    return campo.Tiene(kCeros) ? largo + " cifras" : "Hasta " + largo + " caracteres";
  };
  std::string espera = base();
  if (const MaximoCampo* maximo = MaximoDe(clave)) espera += ", hasta " + CStr(maximo->maximo);
  if (ConsultaDeCampo(clave)) espera += " · F2: lista";
  return espera;
}

}  // namespace zendara

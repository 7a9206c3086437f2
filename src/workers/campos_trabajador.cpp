#include "workers/campos_trabajador.hpp"

#include <utility>

namespace zendara {
namespace {

using enum TipoCampo;
using enum CampoTrabajador;

constexpr int kLargoFecha = 8;
constexpr int kLargoCodigo = 1;
constexpr int kLargoImporte = 10;
constexpr int kLargoLibre = 50;  // no screen limits it

constexpr Campo kCampos[] = {
    {kNumero, kTexto, "Nº Trabajador:", 5, kCeros | kClave},
    {kApellido1, kTexto, "Apellido 1:", 20, kSinRegla},
    {kApellido2, kTexto, "Apellido2:", 20, kSinRegla},
    {kNombre, kTexto, "Nombre de Trabajador:", 15, kSinRegla},

    {kTipoIdentificacion, kLista, "Tipo de identificación:", kLargoCodigo, kSinRegla},
    {kIdentificacion, kTexto, "Nº Identificación:", 14, kSinRegla},
    {kProvinciaSS, kTexto, "Provincia:", 2, kCeros},
    {kAfiliacion, kTexto, "Número Afiliación:", 8, kCeros},
    {kControlSS, kTexto, "Dígito de Control:", 2, kCeros},
    {kSiglas, kTexto, "Siglas:", 3, kSinRegla},
    {kDomicilio, kTexto, "Domicilio:", 30, kSinRegla},
    {kNumeroCalle, kTexto, "Número:", 4, kSinRegla},
    {kEscalera, kTexto, "Escalera:", 3, kSinRegla},
    {kPiso, kTexto, "Piso:", 3, kSinRegla},
    {kPuerta, kTexto, "Puerta:", 3, kSinRegla},
    {kMunicipio, kTexto, "Municipio:", 35, kSinRegla},
    {kProvincia, kTexto, "Provincia:", 25, kSinRegla},
    {kCodigoPostal, kTexto, "Cód. Postal:", 5, kSinRegla},
    {kTelefono, kTexto, "Teléfono:", 10, kSinRegla},
    {kFechaNacimiento, kTexto, "Fecha de Nacimiento:", kLargoFecha, kFecha | kNacimiento},

    {kSituacionPerceptor, kLista, "Situación:", kLargoCodigo, kSinRegla},
    {kClaseContrato, kLista, "Tipo Contrato:", kLargoCodigo, kSinRegla},
    {kSituacionFamiliar, kLista, "Situación Familiar:", kLargoCodigo, kSinRegla},
    {kNifConyuge, kTexto, "N.I.F. del Conyuge:", 14, kSinRegla},
    {kMinusvalia, kLista, "Grado de minusvalia:", kLargoCodigo, kSinRegla},

    {kRetribuciones, kTexto, "Retribuciones Anuales", kLargoImporte, kImporte},
    {kReduccion, kTexto, "Redución Rentas Irregulares (Art 17.2)", kLargoImporte, kImporte},
    {kGastos, kTexto, "Gastos Anuales ( art 17.3 a, b  y  c  )", kLargoImporte, kImporte},
    {kPension, kTexto, "Pensión compensatoria al conyuge", kLargoImporte, kImporte},
    {kAnualidades, kTexto, "Anualidades a favor de hijos", kLargoImporte, kImporte},
    {kCeuta, kMarca, "Ingresos en Ceuta/Melilla", kLargoCodigo, kSinRegla},
    {kRetribucionesAcumuladas, kTexto, "Retribuciones acumuladas:", kLargoImporte, kImporte},
    {kRetencionAcumulada, kTexto, "Retención acumulada e ingresos a cuenta:", kLargoImporte, kImporte},
    {kRetribucionesIniciales, kTexto, "Retribuciones anuales iniciales:", kLargoImporte, kImporte},
    {kRetencionInicial, kTexto, "Retención anual inicial:", kLargoImporte, kImporte},

    {kEntidad, kTexto, "Entidad", 4, kCeros},
    {kOficina, kTexto, "Oficina", 4, kCeros},
    {kControlCuenta, kTexto, "DC", 2, kCeros},
    {kCuenta, kTexto, "Número", 10, kCeros},
    {kFormaPago, kTexto, "Número Forma de Pago:", 2, kCeros | kCodigo},
    {kDescripcionFormaPago, kTexto, "Descripción Forma de Pago:", 30, kSinRegla},

    {kSituacion, kTexto, "Número:", 3, kCeros | kClave},
    {kDescripcionSituacion, kTexto, "Descripción:", 30, kSinRegla},
    {kFechaInicio, kTexto, "Fecha Inicio:", kLargoFecha, kFecha},
    {kFechaFin, kTexto, "Fecha fin:", kLargoFecha, kFecha},
    {kFechaAlta, kTexto, "Fecha de alta:", kLargoFecha, kFecha},
    {kFechaBaja, kTexto, "Fecha de Baja:", kLargoFecha, kFecha},
    {kMotivoBaja, kTexto, "Motivo de la baja:", 30, kSinRegla},
    {kFechaAntiguedad, kTexto, "Fecha de Antiguedad:", kLargoFecha, kFecha},
    {kLibroMatricula, kTexto, "Numero de libro de matrícula:", 4, kCeros},
    {kConvenio, kTexto, "Cod. Convenio Colectivo:", 7, kCeros | kCodigo},
    {kDescripcionConvenio, kTexto, "Descripción:", 25, kSinRegla},
    {kCategoria, kTexto, "Número Categoría Profesional:", 2, kCeros | kCodigo},
    {kDescripcionCategoria, kTexto, "Categoría Profesional:", 15, kSinRegla},
    {kPuestoTrabajo, kTexto, "Puesto de Trabajo:", 15, kSinRegla},
    {kEpigrafe, kTexto, "Epigrafe:", 3, kCeros | kCodigo},
    {kDescripcionEpigrafe, kTexto, "Descripción:", 50, kSinRegla},
    {kGrupoTarifa, kTexto, "Nº Grupo de tarifa:", 2, kCeros | kCodigo},
    {kDescripcionGrupoTarifa, kTexto, "Grupo de tarifa:", 50, kSinRegla},

    {kNumeroContrato, kTexto, "Número de Contrato:", 3, kCeros},
    {kTipo1, kTexto, "Tipo:", 2, kCeros | kCodigo | kContrato},
    {kModalidad1, kTexto, "Modalidad:", kLargoLibre, kVista},
    {kDisposicion1, kTexto, "Disposición:", kLargoLibre, kVista},
    {kBonificacion1, kTexto, "% ", kLargoLibre, kVista},
    {kInicioBonificacion1, kTexto, "Fecha Inicio:", kLargoFecha, kFecha},
    {kFinBonificacion1, kTexto, "Fecha fin:", kLargoFecha, kFecha},
    {kTipo2, kTexto, "Tipo:", 2, kCeros | kCodigo | kContrato},
    {kModalidad2, kTexto, "Modalidad:", kLargoLibre, kVista},
    {kDisposicion2, kTexto, "Disposición:", kLargoLibre, kVista},
    {kBonificacion2, kTexto, "% ", kLargoLibre, kVista},
    {kInicioBonificacion2, kTexto, "Fecha Inicio:", kLargoFecha, kFecha},
    {kFinBonificacion2, kTexto, "Fecha fin:", kLargoFecha, kFecha},
    {kTipo3, kTexto, "Tipo:", 2, kCeros | kCodigo | kContrato},
    {kModalidad3, kTexto, "Modalidad:", kLargoLibre, kVista},
    {kDisposicion3, kTexto, "Disposición:", kLargoLibre, kVista},
    {kBonificacion3, kTexto, "% ", kLargoLibre, kVista},
    {kInicioBonificacion3, kTexto, "Fecha Inicio:", kLargoFecha, kFecha},
    {kFinBonificacion3, kTexto, "Fecha fin:", kLargoFecha, kFecha},

    // Days may be letters of the week.
    {kDiasParcial, kTexto, "Días a tiempo parcial:", 7, kSinRegla},
    {kHorasParcial, kTexto, "Horas Díarias a tiempo parcial:", 7, kImporte},
    {kPorcentajeSalario, kTexto, "Porcentaje de salario:", 7, kImporte},
    {kHorasComplementarias, kTexto, "Horas Complementarias:", 7, kImporte},
    {kFormacionPresencial, kTexto, "Horas de formación presencial:", 7, kImporte},
    {kFormacionDistancia, kTexto, "Horas de formación a distancia:", 7, kImporte},

    {kPorcentajeIRPF, kTexto, "Porcentaje de I.R.P.F:", 5, kImporte},
    {kPluriempleo, kTexto, "% Pluriempleo:", 5, kImporte},
    {kOcupacion, kTexto, "Código de ocupación:", 6, kCeros},
    {kAutonomo, kMarca, "Autonomo", kLargoCodigo, kSinRegla},
    {kAsimilado, kMarca, "Regimen Asimilado", kLargoCodigo, kSinRegla},

    {kCentro, kTexto, "Número de Centro de trabajo:", 3, kCeros | kCodigo},
    {kDescripcionCentro, kTexto, "Descripción Centro de trabajo:", kLargoLibre, kVista},
    {kSeccion, kTexto, "Número de Sección:", 3, kCeros | kCodigo},
    {kDescripcionSeccion, kTexto, "Descripción Sección:", kLargoLibre, kVista},

    {kPrestaciones, kMarca, "Derecho a prestaciones de la Seguridad Social", kLargoCodigo, kSinRegla},
};

constexpr int kDatosHijo = 3;         // year of birth, por entero, grade
constexpr int kDatosAscendiente = 2;  // convivencia, grade
constexpr int kPrimeraCeldaHijos = static_cast<int>(kPrimeraCelda);
constexpr int kPrimeraCeldaAscendientes = kPrimeraCeldaHijos + kFilasRejilla * kDatosHijo;

constexpr std::string_view kIdentificaciones[] = {"1", "2", "3", "4", "6", "9"};
constexpr std::string_view kSituacionesPerceptor[] = {"A", "D", "P"};
constexpr std::string_view kClasesContrato[] = {"G", "I", "R"};
constexpr std::string_view kSituacionesFamiliares[] = {"1", "2", "3"};
constexpr std::string_view kGradosMinusvalia[] = {"0", "1", "2", "3"};

constexpr std::pair<std::string_view, std::string_view> kTextosIdentificacion[] = {
    {"1", "N.I.F"}, {"2", "Pasaporte"}, {"3", "Tarjeta residente comunitario"}, {"4", "Permiso de Residencia"},
    {"6", "N.I.E"}, {"9", "C.I.F"},
};

}  // namespace

std::span<const Campo> CamposTrabajador() { return kCampos; }

CeldaTrabajador CeldaDe(IndiceCampo indice) {
  const bool hijo = indice < kPrimeraCeldaAscendientes;
  const int datos = hijo ? kDatosHijo : kDatosAscendiente;
  const int orden = indice - (hijo ? kPrimeraCeldaHijos : kPrimeraCeldaAscendientes);
  return {hijo ? kHijos : kAscendientes, orden / datos + 1, orden % datos + kPrimeraColumna};
}

std::span<const std::string_view> CodigosDe(IndiceCampo indice) {
  switch (static_cast<CampoTrabajador>(static_cast<int>(indice))) {
    case kTipoIdentificacion:
      return kIdentificaciones;
    case kSituacionPerceptor:
      return kSituacionesPerceptor;
    case kClaseContrato:
      return kClasesContrato;
    case kSituacionFamiliar:
      return kSituacionesFamiliares;
    case kMinusvalia:
      return kGradosMinusvalia;
    default:
      return {};
  }
}

std::string_view TextoIdentificacion(std::string_view codigo) {
  for (const auto& [clave, texto] : kTextosIdentificacion) {
    if (clave == codigo) return texto;
  }
  return {};
}

}  // namespace zendara

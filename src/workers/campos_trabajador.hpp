// The fields of the worker screen, in one table. A field's index is the key of the whole screen: the index of its
// control, its place in the tab order, and the column of its record.
#pragma once

#include <span>
#include <string_view>

#include "common/campos.hpp"

namespace zendara {

enum class CampoTrabajador : int {
  // TrabajadoresFijo: the worker.
  kNumero = 1,
  kApellido1 = 2,
  kApellido2 = 3,
  kNombre = 4,
  kTipoIdentificacion = 5,
  kIdentificacion = 6,
  kProvinciaSS = 7,
  kAfiliacion = 8,
  kControlSS = 9,
  kSiglas = 10,
  kDomicilio = 11,
  kNumeroCalle = 12,
  kEscalera = 13,
  kPiso = 14,
  kPuerta = 15,
  kMunicipio = 16,
  kProvincia = 17,
  kCodigoPostal = 18,
  kTelefono = 19,
  kFechaNacimiento = 20,
  kSituacionPerceptor = 21,
  kClaseContrato = 22,
  kSituacionFamiliar = 23,
  kNifConyuge = 24,
  kMinusvalia = 25,
  kPrimeraCelda = 26,  // of the children
  kUltimaCelda = 75,   // of the ascendants
  kRetribuciones = 76,
  kReduccion = 77,
  kGastos = 78,
  kPension = 79,
  kAnualidades = 80,
  kCeuta = 81,
  kRetribucionesAcumuladas = 82,
  kRetencionAcumulada = 83,
  kRetribucionesIniciales = 84,
  kRetencionInicial = 85,
  kEntidad = 86,
  kOficina = 87,
  kControlCuenta = 88,
  kCuenta = 89,
  kFormaPago = 90,
  kDescripcionFormaPago = 91,
  kUltimoFijo = kDescripcionFormaPago,

  // TrabajadoresVar: the situación.
  kSituacion = 92,
  kPrimeroVar = kSituacion,
  kDescripcionSituacion = 93,
  kFechaInicio = 94,
  kFechaFin = 95,
  kFechaAlta = 96,
  kFechaBaja = 97,
  kMotivoBaja = 98,
  kFechaAntiguedad = 99,
  kLibroMatricula = 100,
  kConvenio = 101,
  kDescripcionConvenio = 102,
  kCategoria = 103,
  kDescripcionCategoria = 104,
  kPuestoTrabajo = 105,
  kEpigrafe = 106,
  kDescripcionEpigrafe = 107,
  kGrupoTarifa = 108,
  kDescripcionGrupoTarifa = 109,
  kNumeroContrato = 110,
  kTipo1 = 111,
  kModalidad1 = 112,
  kDisposicion1 = 113,
  kBonificacion1 = 114,
  kInicioBonificacion1 = 115,
  kFinBonificacion1 = 116,
  kTipo2 = 117,
  kModalidad2 = 118,
  kDisposicion2 = 119,
  kBonificacion2 = 120,
  kInicioBonificacion2 = 121,
  kFinBonificacion2 = 122,
  kTipo3 = 123,
  kModalidad3 = 124,
  kDisposicion3 = 125,
  kBonificacion3 = 126,
  kInicioBonificacion3 = 127,
  kFinBonificacion3 = 128,
  kDiasParcial = 129,
  kHorasParcial = 130,
  kPorcentajeSalario = 131,
  kHorasComplementarias = 132,
  kFormacionPresencial = 133,
  kFormacionDistancia = 134,
  kPorcentajeIRPF = 135,
  kPluriempleo = 136,
  kOcupacion = 137,
  kAutonomo = 138,
  kAsimilado = 139,
  kCentro = 140,
  kDescripcionCentro = 141,
  kSeccion = 142,
  kDescripcionSeccion = 143,
  kUltimoTexto = kDescripcionSeccion,  // highest index of Text1
  kPrestaciones = 144,
  kUltimoVar = kPrestaciones,
};

constexpr CampoTrabajador operator+(CampoTrabajador campo, int pasos) {
  return static_cast<CampoTrabajador>(static_cast<int>(campo) + pasos);
}
constexpr int operator-(CampoTrabajador campo, CampoTrabajador otro) {
  return static_cast<int>(campo) - static_cast<int>(otro);
}

// What leaving a field does besides; rules that single fields have are in reglas_trabajador.hpp.
// A code of a table, whose row the fields after it show; empty, the next one is emptied.
inline constexpr unsigned kCodigo = kReglaPropia;
// The type of a contract; empty, the other fields of its block are emptied.
inline constexpr unsigned kContrato = 2 * kReglaPropia;

// All but the cells, in the order of their indexes.
std::span<const Campo> CamposTrabajador();

// Their columns in TrabajadoresFijo and, behind the worker's number, in TrabajadoresVar.
inline constexpr Tramo kTramoFijo = {CampoTrabajador::kNumero, CampoTrabajador::kUltimoFijo, 0};
inline constexpr Tramo kTramoVar = {CampoTrabajador::kPrimeroVar, CampoTrabajador::kUltimoVar, 1};

// The place of a cell: Grid1(rejilla), row from 1, column.
struct CeldaTrabajador {
  int rejilla;
  int fila;
  int columna;
};
// REQUIRES: kPrimeraCelda to kUltimaCelda.
CeldaTrabajador CeldaDe(IndiceCampo indice);

// The two grids: their columns from ordinal 0, of which 0 is a margin and 1 the label of the row.
inline constexpr int kHijos = 0;
inline constexpr int kAscendientes = 1;
inline constexpr int kFilasRejilla = 10;  // below the row of headers
inline constexpr int kColumnaRotulo = 1;
inline constexpr int kPrimeraColumna = 2;  // with data

// The entries of a list, the codes that its column holds.
std::span<const std::string_view> CodigosDe(IndiceCampo indice);
// What stands beside the kind of identification; empty for an unknown code.
std::string_view TextoIdentificacion(std::string_view codigo);

}  // namespace zendara

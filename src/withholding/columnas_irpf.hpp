// Columns of the year's row of table IRPF, by ordinal. Campo45, Campo51 and Campo52 are not read.
#pragma once

#include <cstddef>

namespace zendara {

enum ColumnaIRPF : std::size_t {
  kEscala = 0,    // eight rows of four: lower limit, amount due there, rate in percent, unread
  kLimites = 32,  // no-withholding limits, three rows (no child, one, more) of three (family situation)
  kAumentoPensionista = 41,
  kAumentoDesempleado = 42,
  kMinimoInferiorAno = 43,  // minimum rate of contracts under a year
  kMinimoEspeciales = 44,   // minimum rate of special relations
  kReduccionHasta = 46,
  kReduccionCompleta = 47,
  kTramoDesde = 48,  // sliding stretch of the reduction
  kTramoHasta = 49,
  kTramoPendiente = 50,
  kReduccionMinima = 53,
  kMultiplicadorGrado3 = 54,
  kMultiplicadorGrado1 = 55,
  kMultiplicadorGrado2 = 56,
  kPersonalGeneral = 57,
  kPersonalMayor65 = 58,
  kPersonalGrado12 = 59,
  kPersonalGrado3 = 60,
  kHijosPrimeros = 61,
  kHijosSiguientes = 62,
  kHijosEscolares = 63,
  kHijosMenores = 64,
  kHijosGrado1 = 65,
  kHijosGrado2 = 66,
  kAscendiente = 67,
  kAscendienteGrado1 = 68,
  kAscendienteGrado2 = 69,
  kDeduccionPensionista = 70,
  kDeduccionDesempleado = 71,
  kDeduccionFamiliaNumerosa = 72,
  kTopeHasta = 73,  // remuneration up to which the cap applies
  kTopePorcentaje = 74,
};

inline constexpr std::size_t kFilasEscala = 8;
inline constexpr std::size_t kColumnasEscala = 4;

}  // namespace zendara

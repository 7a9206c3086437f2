// A withholding rate step by step, for a payroll clerk.
#pragma once

#include <string>
#include <vector>

#include "withholding/calculo_irpf.hpp"

namespace zendara {

struct LineaExplicacion {
  std::string concepto;
  std::string importe;  // amount or percentage, decimal comma, never empty
  std::string detalle;  // where it comes from
};

// REQUIRES: `desglose` is what CalculaTipoIRPF gave for the same inputs.
// Steps that play no part for the worker (deductions, cap, regularisation, minimum rate) have no line; the last line is
// the rate.
std::vector<LineaExplicacion> ExplicaTipoIRPF(const DesgloseIRPF& desglose, const EntradasIRPF& entradas,
                                              const ParametrosIRPF& parametros, const CondicionesIRPF& condiciones);

}  // namespace zendara

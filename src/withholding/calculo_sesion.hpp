// The withholding rate as the screens ask for it: inputs and parameters from the session.
#pragma once

#include <vector>

#include "frame/sesion.hpp"
#include "withholding/calculo_irpf.hpp"
#include "withholding/entradas_irpf.hpp"
#include "zendara/ports.hpp"

namespace zendara {

struct CalculoSesion {
  EntradasIRPF entradas;
  ParametrosIRPF parametros;
  CondicionesIRPF condiciones;
  DesgloseIRPF desglose;  // desglose.tipo is the rate

  // The steps of the calculation as the detail of a box.
  std::vector<BoxDetail> Detalle() const;
};

// The inputs are what `pantalla` shows, the parameters the row on which slot 404 stands. Writes nothing. Errors go to
// the caller: 3021 without a row, and those of the calculation.
CalculoSesion CalculaTipoIRPF(const Sesion& sesion, const PantallaIRPF& pantalla, bool regularizacion);

}  // namespace zendara

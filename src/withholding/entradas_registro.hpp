// The record path into the withholding calculation: a worker's figures from the row of TrabajadoresFijo.
#pragma once

#include <string_view>

#include "withholding/calculo_irpf.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

// The current row of table IRPF, 3021 without one.
ParametrosIRPF LeeParametrosIRPF(Recordset& irpf);

// The current row of TrabajadoresFijo. Anualidades comes from Campo48, a column of the children's block, and
// CeutaMelilla from the stored check box value: both as the system has always read them.
// `ano` is the working year, two digits.
EntradasIRPF LeeDatosRegistro(Recordset& trabajadores_fijo, std::string_view ano);

}  // namespace zendara

// The row of withholding parameters of a demonstration year.
#pragma once

#include <array>

namespace zendara {

// Rounded to cents.
double Euros(double pesetas);

// Campo0 to Campo74 of table IRPF. In euros the amounts are converted; rates, coefficients and multipliers
// stay.
std::array<double, 75> FilaIRPF(bool euros);

}  // namespace zendara

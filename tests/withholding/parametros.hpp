// A row of table IRPF: the published scale of the tax year 2000 in pesetas, minimums and limits chosen so that no two
// cells of a group are alike. Cells that must not be read hold 777.
#pragma once

#include "withholding/calculo_irpf.hpp"

namespace zendara {

inline ParametrosIRPF Parametros() {
  return {0,        0,       18,      777,                      //
          612000,   110160,  24,      777,                      //
          2142000,  477360,  28.3,    777,                      //
          4182000,  1054680, 37.2,    777,                      //
          6732000,  2003280, 45,      777,                      //
          11220000, 4022880, 48,      777,                      //
          0,        0,       0,       777,                      //
          0,        0,       0,       777,                      //
          1250000,  1265000, 1280000,                           // 32 limits without children
          1650000,  1500000, 1350000,                           // 35 one child
          1800000,  2025000, 1400000,                           // 38 more
          100000,   200000,  2,       18,      777,             // 41 increases, minimum rates
          1340000,  500000,  1350000, 2000000, 0.1923,          // 46 reduction of work income
          777,      777,     375000,  2.75,    1.75,   2.25,    // 51
          550000,   650000,  850000,  1150000,                  // 57 personal minimum
          200000,   300000,  25000,   50000,   300000, 600000,  // 61 children
          100000,   150000,  250000,                            // 67 ascendants
          120000,   210000,  110000,                            // 70 deductions
          3000000,  35};                                        // 73 cap
}

}  // namespace zendara

// What the withholding calculation works on: the year's parameters, and a worker's figures from his stored row or from
// a screen that shows him.
#pragma once

#include <string>
#include <string_view>

#include "withholding/calculo_irpf.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

// The figures that a regularisation puts in the place of the worker's own.
enum class CifraRegularizacion {
  kRetribuciones = 1,
  kReduccion = 2,
  kGastos = 3,
  kRetribucionesAcumuladas = 4,
  kRetencionAcumulada = 5,
};

// A form that shows a worker, saved or not.
class PantallaIRPF {
 public:
  virtual ~PantallaIRPF() = default;
  // What stands at this moment in the control of that column of TrabajadoresFijo.
  virtual std::string TextoColumna(int ordinal) const = 0;
  virtual std::string TextoCifra(CifraRegularizacion cifra) const = 0;
};

// The current row of table IRPF, 3021 without one.
ParametrosIRPF LeeParametrosIRPF(Recordset& irpf);

// `ano` is the working year, two digits. Both take CeutaMelilla from the check box value, which never equals "S".

// The current row of TrabajadoresFijo. Anualidades comes from Campo48, a column of the children's block, and not from
// Campo79, where the screen saves it.
EntradasIRPF LeeDatosRegistro(Recordset& trabajadores_fijo, std::string_view ano);
EntradasIRPF LeeDatosPantalla(const PantallaIRPF& pantalla, std::string_view ano, bool regularizacion);

}  // namespace zendara

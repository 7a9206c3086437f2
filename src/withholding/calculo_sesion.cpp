#include "withholding/calculo_sesion.hpp"

#include "frame/catalogo.hpp"
#include "withholding/explicacion.hpp"

namespace zendara {

std::vector<BoxDetail> CalculoSesion::Detalle() const {
  std::vector<BoxDetail> detalle;
  for (const LineaExplicacion& linea : ExplicaTipoIRPF(desglose, entradas, parametros, condiciones)) {
    detalle.push_back({.label = linea.concepto, .figure = linea.importe, .source = linea.detalle});
  }
  return detalle;
}

CalculoSesion CalculaTipoIRPF(const Sesion& sesion, const PantallaIRPF& pantalla, bool regularizacion) {
  CalculoSesion calculo;
  calculo.condiciones = {
      .ano = sesion.AnoTrabajo.str(), .pesetas = sesion.TextoRetorno == "P", .regularizacion = regularizacion};
  calculo.parametros = LeeParametrosIRPF(sesion.Tabla(kIRPF));
  calculo.entradas = LeeDatosPantalla(pantalla, calculo.condiciones.ano, regularizacion);
  calculo.desglose = CalculaTipoIRPF(calculo.entradas, calculo.parametros, calculo.condiciones);
  return calculo;
}

}  // namespace zendara

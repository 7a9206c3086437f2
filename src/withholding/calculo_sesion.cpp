#include "withholding/calculo_sesion.hpp"

#include "frame/catalogo.hpp"
#include "platform/form/form.hpp"
#include "withholding/entradas_irpf.hpp"
#include "withholding/explicacion.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

EntradasIRPF LeeEntradas(const Sesion& sesion, const CondicionesIRPF& condiciones) {
  if (!sesion.FormActivo) throw RuntimeError(kObjectNotSet);
  if (const auto* pantalla = dynamic_cast<const PantallaIRPF*>(sesion.FormActivo)) {
    return LeeDatosPantalla(*pantalla, condiciones.ano, condiciones.regularizacion);
  }
  return LeeDatosRegistro(sesion.Tabla(kTrabajadoresFijo), condiciones.ano);
}

}  // namespace

std::vector<BoxDetail> CalculoSesion::Detalle() const {
  std::vector<BoxDetail> detalle;
  for (const LineaExplicacion& linea : ExplicaTipoIRPF(desglose, entradas, parametros, condiciones)) {
    detalle.push_back({.label = linea.concepto, .figure = linea.importe, .source = linea.detalle});
  }
  return detalle;
}

CalculoSesion CalculaTipoIRPF(const Sesion& sesion, bool regularizacion) {
  CalculoSesion calculo;
  calculo.condiciones = {
      .ano = sesion.AnoTrabajo.str(), .pesetas = sesion.TextoRetorno == "P", .regularizacion = regularizacion};
  calculo.parametros = LeeParametrosIRPF(sesion.Tabla(kIRPF));
  calculo.entradas = LeeEntradas(sesion, calculo.condiciones);
  calculo.desglose = CalculaTipoIRPF(calculo.entradas, calculo.parametros, calculo.condiciones);
  return calculo;
}

}  // namespace zendara

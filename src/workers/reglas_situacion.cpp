#include "workers/reglas_situacion.hpp"

#include <algorithm>
#include <string_view>

#include "runtime/date.hpp"
#include "runtime/number.hpp"

namespace zendara {
namespace {

constexpr std::string_view kLaNueva = "No se puede registrar la nueva situacion, la situación ";
constexpr std::string_view kUnaNueva = "No se puede registrar una nueva situacion, la situación ";
constexpr std::string_view kInicioDentro =
    "La fecha de inicio de la situación no es valida, ya que estaria dentro del intervalo correspondiente a la "
    "situación ";
constexpr std::string_view kFinDentro =
    "La fecha de fin de la situación no es valida, ya que estaria dentro del intervalo correspondiente a la situación ";
constexpr std::string_view kAbarca =
    "El intervalo de la situación no es valido ya que abarcaria al intervalo correspondiente a la situación ";

// Days from `desde` to `hasta`.
double Dias(const std::string& desde, const std::string& hasta, YearWindow ventana) {
  return CDbl(DateDiffDays(desde, hasta, ventana));
}

FaltaSituacion Falta(std::string_view mensaje, const IntervaloSituacion& otra, CampoTrabajador campo) {
  return {std::string(mensaje) + otra.numero, BoxIcon::kExclamation, campo};
}

FaltaSituacion SinFinalizar(std::string_view principio, const IntervaloSituacion& otra) {
  return {std::string(principio) + otra.numero + " no esta finalizada", BoxIcon::kInformation, std::nullopt};
}

std::optional<FaltaSituacion> ComparaConAbierta(const IntervaloSituacion& nueva, const IntervaloSituacion& otra,
                                                YearWindow ventana) {
  if (Dias(nueva.inicio, otra.inicio, ventana) <= 0) return SinFinalizar(kLaNueva, otra);
  if (!nueva.fin.empty() && Dias(nueva.fin, otra.inicio, ventana) <= 0) return SinFinalizar(kUnaNueva, otra);
  return std::nullopt;
}

std::optional<FaltaSituacion> ComparaConCerrada(const IntervaloSituacion& nueva, const IntervaloSituacion& otra,
                                                YearWindow ventana) {
  const auto dentro = [&](const std::string& fecha) {
    return Dias(fecha, otra.inicio, ventana) <= 0 && Dias(fecha, otra.fin, ventana) >= 0;
  };
  if (dentro(nueva.inicio)) return Falta(kInicioDentro, otra, CampoTrabajador::kFechaInicio);
  if (nueva.fin.empty()) return std::nullopt;
  if (dentro(nueva.fin)) return Falta(kFinDentro, otra, CampoTrabajador::kFechaFin);
  if (Dias(nueva.inicio, otra.inicio, ventana) >= 0 && Dias(nueva.fin, otra.fin, ventana) <= 0) {
    return Falta(kAbarca, otra, CampoTrabajador::kFechaInicio);
  }
  return std::nullopt;
}

}  // namespace

std::optional<FaltaSituacion> ComparaIntervalos(const IntervaloSituacion& nueva, const IntervaloSituacion& otra,
                                                YearWindow ventana) {
  if (otra.numero == nueva.numero || otra.inicio == nueva.inicio) return std::nullopt;
  return otra.fin.empty() ? ComparaConAbierta(nueva, otra, ventana) : ComparaConCerrada(nueva, otra, ventana);
}

FaltaContratos CompruebaFechasContratos(const FechasContratos& fechas, YearWindow ventana) {
  const auto ultima = fechas.end() - 1;
  const auto vacia = std::find(fechas.begin(), ultima, std::string());
  if (std::any_of(vacia, ultima, [](const std::string& fecha) { return !fecha.empty(); })) {
    return FaltaContratos::kAnteriorAbierto;
  }
  for (auto fecha = fechas.begin(); fecha != ultima; ++fecha) {
    const std::string& siguiente = *(fecha + 1);
    if (!fecha->empty() && !siguiente.empty() && Dias(*fecha, siguiente, ventana) <= 0) {
      return FaltaContratos::kSolapados;
    }
  }
  return FaltaContratos::kNinguna;
}

}  // namespace zendara

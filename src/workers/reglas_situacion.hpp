// What the dates of a situación and of its contracts must satisfy, apart from any screen. Dates are texts, dd/mm/yy; a
// text that is no date is error 13.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "workers/campos_trabajador.hpp"
#include "zendara/ports.hpp"
#include "zendara/value.hpp"

namespace zendara {

struct IntervaloSituacion {
  std::string numero;
  std::string inicio;
  std::string fin;  // empty: open
};

// What is wrong, for the box, and the field to correct if it is one.
struct FaltaSituacion {
  std::string mensaje;
  BoxIcon icono = BoxIcon::kNone;
  std::optional<CampoTrabajador> campo;
};

// Whether `nueva` may stand beside `otra`, another situación of the worker; all bounds include equality. Its own number
// and rows of the same start are not compared, nor is an open `nueva` with a closed row that begins later.
std::optional<FaltaSituacion> ComparaIntervalos(const IntervaloSituacion& nueva, const IntervaloSituacion& otra,
                                                YearWindow ventana);

// Start and end of the three bonuses, in order.
using FechasContratos = std::array<std::string, 6>;
enum class FaltaContratos { kNinguna, kAnteriorAbierto, kSolapados };
// No date after one that is missing (the last one is not looked at), and each later than the one before it.
FaltaContratos CompruebaFechasContratos(const FechasContratos& fechas, YearWindow ventana);

}  // namespace zendara

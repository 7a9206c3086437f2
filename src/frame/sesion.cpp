#include "frame/sesion.hpp"

#include <algorithm>

#include "runtime/characters.hpp"
#include "runtime/date.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

Recordset& Sesion::Tabla(int ranura) const {
  if (ranura < 0 || ranura > kSlots) throw RuntimeError(kSubscriptOutOfRange);
  const std::shared_ptr<Recordset>& tabla = Tablas[static_cast<std::size_t>(ranura)];
  if (!tabla) throw RuntimeError(kObjectNotSet);
  return *tabla;
}

void Sesion::PonEjercicio(std::string_view ejercicio) {
  AnoTrabajo = Right(ejercicio, 2);
  const std::optional<int> year = Ejercicio();
  if (!year) return;
  VentanaFechas = WindowOfDates(*year);
  VentanaNacimientos = WindowOfBirths(*year);
}

std::optional<int> Sesion::Ejercicio() const {
  const std::string digits = Trim(AnoTrabajo.str());
  if (digits.empty() || !std::ranges::all_of(digits, IsDigit)) return std::nullopt;
  int year = 0;
  for (const char digit : digits) year = 10 * year + (digit - '0');
  return year;
}

}  // namespace zendara

#include "frame/sesion.hpp"

#include "runtime/date.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

Recordset& Sesion::Tabla(int slot) const {
  if (slot < 0 || slot > kSlots) throw RuntimeError(kSubscriptOutOfRange);
  const std::shared_ptr<Recordset>& recordset = Tablas[static_cast<std::size_t>(slot)];
  if (!recordset) throw RuntimeError(kObjectNotSet);
  return *recordset;
}

void Sesion::PonEjercicio(std::string_view ejercicio) {
  AnoTrabajo = Right(ejercicio, 2);
  const std::string digits = Trim(AnoTrabajo.str());
  if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) return;
  int year = 0;
  for (const char digit : digits) year = 10 * year + (digit - '0');
  VentanaFechas = WindowOfDates(year);
  VentanaNacimientos = WindowOfBirths(year);
}

}  // namespace zendara

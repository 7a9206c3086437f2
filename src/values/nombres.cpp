#include "values/nombres.hpp"

#include <array>
#include <string_view>

#include "runtime/text.hpp"

namespace zendara {
namespace {

constexpr std::size_t kFieldWidth = 36;

bool IsLetter(const std::string& character) { return UCase(character) != LCase(character); }

// "J." of "José"; "J. M." of "José María". A first name of seven letters keeps its one initial.
std::string Initials(const std::string& nombre) {
  constexpr int kBlankWithoutSecond = 8;
  std::string initials = Left(nombre, 1) + ". ";
  const int blank = InStr(nombre, " ");
  if (blank == 0 || blank == kBlankWithoutSecond) return initials;
  const std::string second = Mid(nombre, blank + 1, 1);
  if (IsLetter(second)) initials += second + ".";
  return initials;
}

}  // namespace

std::string NombreCompleto(std::string& apellido1, std::string& apellido2, std::string& nombre) {
  apellido1 = Trim(apellido1);
  apellido2 = Trim(apellido2);
  nombre = Trim(nombre);
  if (apellido1.empty() && apellido2.empty() && nombre.empty()) return {};

  const bool long_surnames = Len(apellido1) + Len(apellido2) > kFieldWidth;
  const std::string surnames = apellido1 + " " + (long_surnames ? Left(apellido2, 3) + "." : apellido2);
  return surnames + ", " + (Len(surnames) + Len(nombre) > kFieldWidth ? Initials(nombre) : nombre);
}

std::string NombreMes(std::int16_t mes) {
  static constexpr std::array<std::string_view, 12> kMeses = {"Enero",      "Febrero", "Marzo",     "Abril",
                                                              "Mayo",       "Junio",   "Julio",     "Agosto",
                                                              "Septiembre", "Octubre", "Noviembre", "Diciembre"};
  if (mes < 1 || mes > 12) return {};
  return std::string(kMeses[static_cast<std::size_t>(mes - 1)]);
}

}  // namespace zendara

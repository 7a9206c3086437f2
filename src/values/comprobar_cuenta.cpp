#include "values/comprobar_cuenta.hpp"

#include <array>

#include "runtime/characters.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

constexpr std::array kWeights = {1, 2, 4, 8, 5, 10, 9, 7, 3, 6};

int ControlDigit(std::string_view text, std::size_t first_weight) {
  const std::string digits = Fit(text, kWeights.size() - first_weight);
  int sum = 0;
  int place = 1;
  for (std::size_t i = first_weight; i < kWeights.size(); ++i, ++place) {
    const std::string digit = Mid(digits, place, 1);
    if (IsDigit(digit[0])) sum += (digit[0] - '0') * kWeights[i];
  }
  const int rest = 11 - sum % 11;
  return rest == 11 ? 0 : rest == 10 ? 1 : rest;
}

}  // namespace

std::string ControlCuenta(std::string_view entidad, std::string_view oficina, std::string_view numero) {
  const int first = ControlDigit(std::string(entidad).append(oficina), 2);
  const int second = ControlDigit(numero, 0);
  return std::to_string(first) + std::to_string(second);
}

std::int16_t ComprobarCuenta(std::string_view entidad, std::string_view oficina, std::string_view dc,
                             std::string_view numero, Dialogs& dialogs) {
  const std::string control = ControlCuenta(entidad, oficina, numero);
  if (control != dc) dialogs.Show({.text = "EL NÚMERO DE CUENTA ES INCORRECTO"});
  return static_cast<std::int16_t>(10 * (control[0] - '0') + (control[1] - '0'));
}

}  // namespace zendara

#include "values/identificaciones.hpp"

#include <algorithm>

#include "runtime/characters.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

constexpr std::size_t kDigitosNif = 8;

bool SonDigitos(std::string_view texto) { return !texto.empty() && std::ranges::all_of(texto, IsDigit); }

int Resto(std::string_view digitos, int modulo) {
  int resto = 0;
  for (const char digito : digitos) resto = (resto * 10 + (digito - '0')) % modulo;
  return resto;
}

// Without what separates, in capitals.
std::string Compacta(std::string_view texto) {
  std::string compacta = UCase(texto);
  std::erase_if(compacta, [](char c) { return c == ' ' || c == '.' || c == '-'; });
  return compacta;
}

}  // namespace

char LetraNif(int numero) { return "TRWAGMYFPDXBNJZSQVHLCKE"[numero % 23]; }

bool LetraCorrecta(std::string_view identificacion) {
  std::string texto = Compacta(identificacion);
  if (texto.size() < 2) return false;
  const char letra = texto.back();
  texto.pop_back();
  // X, Y and Z stand for a first digit; K, L and M for none.
  const char primera = texto.front();
  if (primera >= 'X' && primera <= 'Z') {
    texto.front() = static_cast<char>('0' + (primera - 'X'));
    return texto.size() <= kDigitosNif + 1 && SonDigitos(texto) && LetraNif(Resto(texto, 23)) == letra;
  }
  if (primera >= 'K' && primera <= 'M') texto.erase(0, 1);
  return texto.size() <= kDigitosNif && SonDigitos(texto) && LetraNif(Resto(texto, 23)) == letra;
}

std::string ControlAfiliacion(std::string_view provincia, std::string_view numero) {
  if (provincia.size() != 2 || numero.size() != 8 || !SonDigitos(provincia) || !SonDigitos(numero)) return {};
  // Numbers of less than eight digits are written behind the province with seven.
  if (numero.front() == '0') numero.remove_prefix(1);
  const int resto = Resto(std::string(provincia).append(numero), 97);
  return {static_cast<char>('0' + resto / 10), static_cast<char>('0' + resto % 10)};
}

}  // namespace zendara

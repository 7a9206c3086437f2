// Invented people: names and places to draw from, identification numbers with their check characters.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace zendara {

extern const std::span<const std::string_view> kApellidos;     // at most 20 characters
extern const std::span<const std::string_view> kNombresMujer;  // at most 15
extern const std::span<const std::string_view> kNombresHombre;
extern const std::span<const std::string_view> kNombresCalle;

struct Lugar {
  std::string_view municipio;
  std::string_view provincia;
  std::string_view codigo;  // of the province, first two digits of post code and social security number
};
extern const std::span<const Lugar> kLugares;  // the last one is Ceuta

// Eight digits and their letter.
std::string Nif(int number);
// "X", seven digits and the letter.
std::string Nie(int number);

// `number` with zeros on the left up to `width` digits.
std::string Digits(int number, int width);

}  // namespace zendara

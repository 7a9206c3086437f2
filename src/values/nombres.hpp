// Names of persons and months.
#pragma once

#include <cstdint>
#include <string>

namespace zendara {

// "apellido1 apellido2, nombre" for a field of 36 characters: the second surname is cut to three letters, then the
// given name to its initials, when the whole is longer. Empty when all three are. Trims the caller's three texts.
std::string NombreCompleto(std::string& apellido1, std::string& apellido2, std::string& nombre);

// "Enero" for 1 to "Diciembre" for 12; otherwise empty.
std::string NombreMes(std::int16_t mes);

}  // namespace zendara

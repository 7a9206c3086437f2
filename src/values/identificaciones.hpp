// The control characters of the numbers that a worker is known by.
#pragma once

#include <string>
#include <string_view>

namespace zendara {

// Of the number of a N.I.F.
char LetraNif(int numero);
// Whether the letter of a N.I.F. (up to eight digits; K, L or M and seven) or N.I.E. (X, Y or Z and up to eight) is
// the one of its number. Case, blanks, points and hyphens do not count; any other text is none of them.
bool LetraCorrecta(std::string_view identificacion);

// The two digits behind a social security number: those of province and number, each with its zeros on the left.
// Empty when they are not two and eight digits.
std::string ControlAfiliacion(std::string_view provincia, std::string_view numero);

}  // namespace zendara

// Numbers as the texts that amounts and rates travel in: decimal comma, no thousands separators.
#pragma once

#include <string>
#include <string_view>

namespace zendara {

// The mask has five characters:
//   1  rounding: "1" adds 0.5 of a unit of the last kept decimal, "2" 0.49 of it, anything else cuts
//   2  "1": a whole number gets its decimals as zeros
//   3  number of decimals kept, one digit
//   4  padding character
//   5  "S": a zero is shown, anything else: it comes out as padding
//
// The rightmost `width` characters are kept, then blanks at the left are dropped. Amounts below zero are rounded
// upwards by the same addition. Error 5 for a mask of another length or a negative width, 6 when the number is not
// finite.
std::string FormatoValor(int width, double value, std::string_view mask);
// The text through ValorNumero.
std::string FormatoValor(int width, std::string_view value, std::string_view mask);

}  // namespace zendara

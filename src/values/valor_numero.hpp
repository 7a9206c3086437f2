// Columns and typed fields as numbers and texts.
#pragma once

#include <string>
#include <string_view>

#include "zendara/value.hpp"

namespace zendara {

// The first "," counts as the decimal point, then the number at the start of the text; empty or no number gives 0.
// Error 6 on overflow, 13 on a type mark such as "5,5%".
double ValorNumero(std::string_view text);

// Null gives the empty text; a number has a decimal comma, a date is dd/mm/yy.
std::string TextoNoNulo(const Value& value);

}  // namespace zendara

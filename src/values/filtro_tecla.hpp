// The key filter of numeric fields.
#pragma once

#include "zendara/forms/text_field.hpp"

namespace zendara {

// `tecla` is a character code, before the key reaches the field; 0 refuses it. A point becomes a comma, of which the
// text may have one; a minus goes first and once; besides these only digits and backspace pass. Returns the code.
int FiltroTecla(int& tecla, const TextField& control);

}  // namespace zendara

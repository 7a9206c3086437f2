// Dates typed as digits, DDMMAA, and shown as dd/mm/yy.
#pragma once

#include <string>

#include "platform/text_field.hpp"
#include "zendara/ports.hpp"
#include "zendara/value.hpp"

namespace zendara {

// The typed digits as dd/mm/yy, or the empty text; the caller puts the result into the field. A day of one digit may be
// typed without its zero. What can be no date in any order is told at once, the field emptied and given the focus; what
// is no date as day, month, year is told with a beep.
std::string FormatoFecha(TextField& control, Dialogs& dialogs, YearWindow window);

// The field's text without its two "/", the form in which a date is edited.
std::string SinBarras(const TextField& control);

}  // namespace zendara

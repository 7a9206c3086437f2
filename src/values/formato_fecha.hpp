// Dates typed as digits, DDMMAA, and shown as dd/mm/yy.
#pragma once

#include <string>

#include "zendara/forms/text_field.hpp"
#include "zendara/ports.hpp"
#include "zendara/value.hpp"

namespace zendara {

// The typed digits as dd/mm/yy, or the empty text; the caller puts the result into the field. A day of one digit may be
// typed without its zero. For what is no date in any order of its parts a box is shown, the field emptied and given the
// focus; for what is no date as day, month, year a box is shown with a beep.
std::string FormatoFecha(TextField& control, Dialogs& dialogs, YearWindow window);

// The field's text without its two "/", the form in which a date is edited.
std::string SinBarras(const TextField& control);
// The other way: six digits as dd/mm/yy; any other text stays.
std::string ConBarras(const std::string& fecha);

}  // namespace zendara

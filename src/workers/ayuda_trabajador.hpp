// What the help has on each control of the worker screen.
#pragma once

#include "zendara/forms/form.hpp"

namespace zendara {

// From the page trabajadores.md: the section of its field, with the field's words, or that of the buttons.
HelpPlace AyudaDe(const Control& control);

}  // namespace zendara

// The box that shows a run-time error.
#pragma once

#include "zendara/ports.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

// Number, two blanks and the Spanish text, in a plain box.
void MuestraError(int numero, Dialogs& dialogs);
// The same with the names that the error's text carries. What the store itself said goes to standard error, in a line.
void MuestraError(const RuntimeError& error, Dialogs& dialogs);

}  // namespace zendara

// The workers of the company to choose from, whatever is known of them, and numbers for new ones.
#pragma once

#include <string>

#include "frame/sesion.hpp"

namespace zendara {

// The number of the worker that is chosen, empty if none is. The rows are the workers that were shown last, then all by
// number; a list shows the others by surname. It begins on the worker `actual`. Error 429 when there is no pick list;
// those of the list and of the store go to the caller too.
std::string EligeTrabajador(const Sesion& sesion, const std::string& actual);

// A worker of the company is shown.
void ApuntaVisto(Sesion& sesion, const std::string& numero);

// The number behind the highest one of five digits that a worker or a situación has, or the lowest free one when that
// is 99999; empty when all are in use.
std::string NumeroLibre(const Sesion& sesion);

}  // namespace zendara

// The control digits of a Spanish bank account.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zendara/ports.hpp"

namespace zendara {

// Both digits. Characters that are no digits count 0, missing ones too.
std::string ControlCuenta(std::string_view entidad, std::string_view oficina, std::string_view numero);
// The same as a number. A box warns when `dc` is not exactly these two; nothing is refused.
std::int16_t ComprobarCuenta(std::string_view entidad, std::string_view oficina, std::string_view dc,
                             std::string_view numero, Dialogs& dialogs);

}  // namespace zendara

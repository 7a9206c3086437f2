// What all hosts of this project call themselves.
#pragma once

#include <string_view>

namespace zendara {

// Title of boxes that give none.
inline constexpr std::string_view kApplicationTitle = "Zendara";

}  // namespace zendara

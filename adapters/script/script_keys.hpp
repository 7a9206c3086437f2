// Keys as scripts name them and as texts are typed; a front end that sends real events gives the form the same ones.
#pragma once

#include <optional>
#include <string_view>

#include "zendara/forms/control.hpp"

namespace zendara {

// "Enter", "Shift+Tab", "Alt+End", "Alt+N", "F2" ... in any case; nothing for a name that is no key.
std::optional<Key> KeyByName(std::string_view name);

// The key that types this character of UTF-8: Enter a line feed, Tab a tabulator.
Key KeyOfCharacter(std::string_view character);

}  // namespace zendara

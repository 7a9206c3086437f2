// Passwords in the text of a place.
#pragma once

#include <string_view>

namespace zendara {

// True when the text of a place, as OpenStore takes it, holds a password or the like: what is said of the place, asked
// for on a command line or remembered would give it away. Also for a text that is no connection but may have been meant
// as one.
bool HoldsPassword(std::string_view place);
// The same of a word of a command line, also of "--store=PLACE".
bool WordHoldsPassword(std::string_view word);
// Why such a word is refused.
inline constexpr const char* kNoPasswords =
    "a password is no part of a command, which every user of the machine can read: it goes into the password file "
    "~/.pgpass, a service file or the variable PGPASSWORD";

}  // namespace zendara

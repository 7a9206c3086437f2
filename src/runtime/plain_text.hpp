// Texts as they are searched.
#pragma once

#include <string>
#include <string_view>

namespace zendara {

// Small letters, no accents; ñ is a letter of its own. As many characters as before.
std::string PlainText(std::string_view text);
// Adds a text without accents behind another one; its plain capitals stay.
void AddUnmarked(std::string_view text, std::string& unmarked);

}  // namespace zendara

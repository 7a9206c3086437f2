// Texts and memory that change hands.
#pragma once

#include <string>
#include <string_view>

namespace zendara {

// A text that came in. Refused when it is null or no UTF-8; `OrEmpty` takes null for the empty text.
std::string TakeText(const char* utf8);
std::string TakeTextOrEmpty(const char* utf8);

// Puts a copy there that the host frees.
void GiveText(char** place, std::string_view text);

// Memory for the host; refused when there is none left.
void* GiveMemory(std::size_t bytes);

}  // namespace zendara

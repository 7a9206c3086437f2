// A draft as lines of text: the first one has all of it, each further one what has changed since.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "zendara/forms/drafts.hpp"

namespace zendara {

// Each with its line feed. Texts that are no UTF-8 get signs in place of their bytes.
std::string FirstLine(const Draft& draft);
std::string ChangeLine(const Draft& before, const Draft& now);

// The draft that the lines make up, as far as they are whole: a last one that was torn, and what follows one that
// cannot be read, does not count. Answers how many bytes count; 0: there is no draft.
std::size_t ReadLines(std::string_view lines, Draft& draft);

}  // namespace zendara

// Plain characters: digits, and letters without their case.
#pragma once

namespace zendara {

// Of a byte or of a character's number.
constexpr bool IsDigit(int c) { return c >= '0' && c <= '9'; }

// Capital letters of ASCII as small ones; anything else is itself.
constexpr char FoldCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace zendara

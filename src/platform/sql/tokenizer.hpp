// The words of the SQL dialect.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zendara/value.hpp"

namespace zendara::sql {

enum class TokenKind { kWord, kLiteral, kSymbol, kEnd };

struct Token {
  TokenKind kind = TokenKind::kEnd;
  std::string text;     // word without its brackets, or symbol
  bool quoted = false;  // a word in brackets is never a keyword
  Value literal;        // text, number or date
};

// The tokens, the last one of kind kEnd. Texts stand in '...' or "..." with the quote doubled inside, names may stand
// in brackets, dates in #...#: month first, then year first, then day first, two-digit years in `window`. Error 3075
// for an open quote, a date that is none, or a character of no token.
std::vector<Token> Tokenize(std::string_view sql, YearWindow window);

// The error 3075 of a text: `cause` is its first part.
[[noreturn]] void FailSyntax(std::string_view sql, std::string_view cause = "Error de sintaxis (falta operador)");

}  // namespace zendara::sql

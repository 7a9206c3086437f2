// The words of the SQL dialect.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zendara/record_engine.hpp"

namespace zendara::sql {

enum class TokenKind { kWord, kLiteral, kSymbol, kEnd };

struct Token {
  TokenKind kind = TokenKind::kEnd;
  std::string_view text;                // word without its brackets, or symbol; stands in the statement's text
  bool quoted = false;                  // a word in brackets is never a keyword
  int number = 0;                       // of a literal: which one of the statement, from 1
  ColumnType type = ColumnType::kText;  // of a literal
};

struct Tokens {
  std::string_view sql;         // what was read
  std::vector<Token> tokens;    // the last one is of kind kEnd
  std::vector<Value> literals;  // in the order of the text
  // The statement without the values of its literals: the same for statements that differ only in those, or in blanks.
  std::string shape;
};

// Texts stand in '...' or "..." with the quote doubled inside, names may stand in brackets, dates between "#": month
// first, then year first, then day first, two-digit years in `window`. Error 3075 for an open quote, a date that is
// none, or a character of no token. REQUIRES: the text outlives the tokens.
Tokens Tokenize(std::string_view sql, YearWindow window);

inline constexpr std::string_view kMissingOperator = "Error de sintaxis (falta operador)";
inline constexpr std::string_view kTooComplex = "Expresión demasiado compleja";

// The error 3075 of a text: `cause` is its first part. A long text is cut.
[[noreturn]] void FailSyntax(std::string_view sql, std::string_view cause = kMissingOperator);

}  // namespace zendara::sql

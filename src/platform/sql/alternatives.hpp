// Long lists of alternatives, as those of a choice of rows, made short.
#pragma once

#include "platform/sql/statement.hpp"

namespace zendara::sql {

// What an OR compares of one column with literals for equality becomes one kIn. For a store that takes each alternative
// of an OR as a way of its own to the rows, and needs a time for them that grows with the square of their number.
void JoinAlternatives(std::optional<Expression>& where);

}  // namespace zendara::sql

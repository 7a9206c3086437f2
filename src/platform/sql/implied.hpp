// Conditions that follow from those of a statement and let a store find rows by key.
#pragma once

#include "platform/sql/statement.hpp"

namespace zendara::sql {

// Where columns are joined as equal and every alternative of an OR compares one of them with a literal for equality,
// the rows of all of them have one of these literals there: that is added as a condition. The rows stay the same.
//
// A store that takes the alternatives one by one would walk the joined tables otherwise, as none of the alternatives
// says something about each table.
void AddImpliedKeys(Select& select);

}  // namespace zendara::sql

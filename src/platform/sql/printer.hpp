// A statement of the dialect written in an engine's own SQL.
#pragma once

#include <string>

#include "platform/sql/statement.hpp"

namespace zendara::sql {

// What engines write differently.
class Dialect {
 public:
  virtual ~Dialect() = default;
  // The same literal may stand in the text more than once.
  virtual std::string Placeholder(const Parameter& literal) const = 0;
  // Both ends included, in either order; Null in any of them gives Null.
  virtual std::string Between(const std::string& value, const std::string& a, const std::string& b) const = 0;
  // Sort key of the order in which the rows of that table were written.
  virtual std::string OrderOfWriting(const std::string& table) const = 0;
  // Added to a sort key so that Null comes first ascending and last descending.
  virtual std::string NullOrder(bool descending) const = 0;
};

struct Printed {
  std::string text;
  // What a reader from left to right has open at a time, at most: brackets, operators and what stood before them.
  int depth = 0;
};

// Identifiers are written between double quotes.
std::string QuoteName(std::string_view name);
// Long chains of conditions are written in groups of groups, so that an engine that builds a tree of pairs from the
// text gets no tree of their length.
Printed Print(const Select& select, const Dialect& dialect);
Printed Print(const Delete& statement, const Dialect& dialect);

}  // namespace zendara::sql

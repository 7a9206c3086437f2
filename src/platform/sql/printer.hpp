// A statement of the dialect written in an engine's own SQL.
#pragma once

#include <string>

#include "platform/sql/statement.hpp"

namespace zendara::sql {

// What a value stands for in a statement.
enum class Form {
  kRead,      // the result has it as it is stored
  kOfGroup,   // the result has one of those that are equal in a group
  kCompared,  // it is compared with others
  kKey,       // it is compared with others by its sort key
};

// What engines write differently.
class Dialect {
 public:
  virtual ~Dialect() = default;

  // A table where FROM names it.
  virtual std::string Table(const TableDef& table) const;
  // What its rows are beside all that the statement says of them; nothing for any row.
  virtual std::string RowsOf(const TableRef&) const { return {}; }

  // It has a sort key: values are compared by keys where all of them have one, as every literal has.
  virtual bool HasKey(const TableDef&, int /*column*/) const { return false; }
  virtual std::string Column(const TableRef& table, int column, Form form) const;
  // The same literal may stand in the text more than once.
  virtual std::string Literal(const Parameter& literal, Form form) = 0;

  // Both ends included, in either order; Null in any of them gives Null. `nullable`: one of the ends may be Null.
  virtual std::string Between(const std::string& value, const std::string& a, const std::string& b,
                              bool nullable) const = 0;
  // The least or the greatest value of a column, as it is stored.
  virtual std::string Extreme(const TableRef& table, int column, bool greatest) const;

  // What GROUP BY names for a column.
  virtual std::string GroupKey(const TableRef& table, int column) const;
  // A term of ORDER BY, for a column or for kOrderOfWriting: Null is the least of all.
  virtual std::string OrderKey(const TableRef& table, int column, bool descending) const = 0;
};

struct Printed {
  std::string text;
  // What a reader from left to right has open at a time, at most: brackets, operators and what stood before them.
  int depth = 0;
};

// Identifiers are written between double quotes.
std::string QuoteName(std::string_view name);
// Of a column, behind that of its table.
std::string Qualified(const TableRef& table, std::string_view quoted_column);
// Long chains of conditions are written in groups of groups, so that an engine that builds a tree of pairs from the
// text gets no tree of their length.
Printed Print(const Select& select, Dialect& dialect);
Printed Print(const Delete& statement, Dialect& dialect);

}  // namespace zendara::sql
